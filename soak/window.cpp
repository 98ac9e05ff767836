#include "Window.h"

#include <chrono>
#include <memory>
#include <thread>

#include "Random.h"
#include "Recorder.h"
#include "Records.h"
#include "Task.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr int kRefusals = 6;                // percent
constexpr int kCalls = 3;                   // percent: of the module, which must hold no lock while a window is told
constexpr std::uint64_t kLongestWatch = 4;  // notices: nothing else ends a watch

std::shared_ptr<AppComm::State> stateOf(Type type, const std::any& record) {
  const auto* state = std::any_cast<std::shared_ptr<AppComm::State>>(&record);
  return type == Type::State && state != nullptr ? *state : nullptr;
}

std::int32_t queried(const AppComm::State* state) {
  if (state == nullptr) return -1;
  return state->queried ? 1 : 0;
}

}  // namespace

Window::Window(std::uint64_t seed, PrinterId printer, const PrinterPlan& plan, TaskId task, Type type, const std::any& record,
               const Checker& checker)
    : m_seed(seed),
      m_printer(printer),
      m_plan(plan),
      m_task(task),
      m_type(type),
      m_state(stateOf(type, record)),
      m_checker(checker) {}

bool Window::Notice(long code) const {
  Recorder& recorder = Recorder::instance();
  const TaskId task =
      code == static_cast<long>(m_task) ? m_task : 0;  // each window is told its own code, or nothing explains it
  const auto node = m_node.lock();
  recorder.belongsTo(m_printer);
  recorder.record({.what = What::noticeBegin,
                   .printer = m_printer,
                   .task = task,
                   .value = queried(m_state.get()),
                   .updated = node != nullptr && node->getUpdate()});
  recorder.waitForRoom();
  Random random(m_seed, (std::uint64_t{m_task} << 20U) + ++m_notices);
  const bool slow = m_plan.interval <= 0;  // there is no pause between runs
  if (slow || random.chance(10)) std::this_thread::sleep_for(std::chrono::milliseconds(random.between(1, 3)));
  if (random.chance(kCalls) && !m_checker.isUnclear(m_printer)) requestNpa(random, m_printer, m_plan);
  const bool goesOn = !random.chance(kRefusals) && (m_type != Type::FirmUpCheck || m_notices < kLongestWatch);
  recorder.record({.what = What::noticeEnd, .printer = m_printer, .task = task, .value = goesOn ? 1 : 0});
  return goesOn;
}

}  // namespace soak
