#include "Task.h"

#include <utility>

#include "Record.h"
#include "Recorder.h"
#include "Window.h"
#include "model/Operation.h"

namespace soak {
namespace {

constexpr std::int32_t kSlow = 400;  // milliseconds

std::shared_ptr<qzstd::PrinterInfo> describe(const PrinterPlan& plan, const TaskTraits& traits) {
  auto info = std::make_shared<qzstd::PrinterInfo>();
  info->uid = plan.uid;
  info->managerId = plan.managerId;
  info->interval = traits.interval;
  info->connectionKind = plan.traits.network ? 1 : 0;
  info->hasCtrlPort = plan.traits.ctrlPort;
  info->deviceStatus = traits.status;
  return info;
}

Type drawType(Random& random) { return static_cast<Type>(random.between(0, static_cast<int>(kTypes) - 1)); }

bool takesLong(Type type) {
  return type == Type::FirmUpgrade || type == Type::FirmUpCheck || type == Type::GetWifiList || type == Type::SetWifiList;
}

Type drawOften(Random& random) {
  if (random.chance(35)) return Type::State;
  const Type type = drawType(random);
  return takesLong(type) && random.chance(70) ? Type::GetNetwork : type;
}

TaskTraits drawTraits(Random& random, const PrinterPlan& plan) {
  TaskTraits traits;
  traits.type = plan.pausesLong ? Type::State : drawOften(random);
  // Only the task that makes a list decides its pace.
  traits.interval = random.chance(80) || plan.interval > kSlow ? plan.interval : plan.interval * 2;
  constexpr std::int32_t statuses[] = {0, 0, 0, 11, 1, 3};
  traits.status = statuses[random.between(0, 5)];
  traits.once = takesLong(traits.type) || !random.chance(traits.type == Type::State ? 70 : 35);
  traits.wrongRecord = traits.type != Type::GetAlarm && !plan.pausesLong && random.chance(6);
  traits.npaRequested = random.chance(20);
  traits.selected = drawSelection(random);
  return traits;
}

}  // namespace

std::shared_ptr<Task> Task::draw(std::uint64_t seed, Random& random, PrinterId printer, const PrinterPlan& plan, TaskId code,
                                 const Checker& checker) {
  const TaskTraits traits = drawTraits(random, plan);
  const auto info = describe(plan, traits);
  if (random.chance(30)) info->name = L"device of task " + std::to_wstring(code);
  auto record = drawRecord(random, traits, printer, code, plan.interval <= 0);
  const auto window = std::make_shared<Window>(seed, printer, plan, code, traits.type, record, checker);
  auto node = AppComm::Node::Instance(info, window, static_cast<long>(code), traits.type);
  window->belongsTo(node);
  node->setResource(std::move(record));
  if (!traits.once) node->setRepeat();
  if (traits.npaRequested) node->setReqNPA();
  return std::make_shared<Task>(printer, code, traits, std::move(node));
}

Task::Task(PrinterId printer, TaskId code, const TaskTraits& traits, std::shared_ptr<AppComm::Node> node)
    : m_printer(printer), m_code(code), m_traits(traits), m_node(std::move(node)) {}

Event Task::event(What what, std::int32_t value) const {
  return {.what = what, .printer = m_printer, .task = m_code, .value = value, .traits = m_traits};
}

void Task::announce() { Recorder::instance().record(event(What::addBegin)); }

void Task::add(const std::shared_ptr<Task>& self) {
  const auto release = [self](AppComm::Node* /*node*/) {
    Recorder::instance().belongsTo(self->m_printer);  // a worker's end tells that its list has ended
    Recorder::instance().record(self->event(What::released));
    self->m_released.store(true, std::memory_order_relaxed);
  };
  const int result = Add(std::shared_ptr<AppComm::Node>(m_node.get(), release));
  Recorder::instance().record(event(What::addEnd, result));
}

void Task::setDelete() {
  Recorder::instance().record(event(What::deleteBegin));
  m_node->setDelete();
  Recorder::instance().record(event(What::deleteEnd));
}

bool Task::setOnce(bool once) {
  if (m_changing.exchange(true)) return false;
  Recorder::instance().record(event(What::onceBegin, once ? 1 : 0));
  if (once) {
    m_node->setOnce();
  } else {
    m_node->setRepeat();
  }
  Recorder::instance().record(event(What::onceEnd, once ? 1 : 0));
  m_changing.store(false);
  return true;
}

void requestNpa(Random& random, PrinterId printer, const PrinterPlan& plan) {
  const TaskTraits traits{.type = random.chance(80) ? Type::State : drawType(random)};
  const bool start = random.chance(50);
  auto node = AppComm::Node::Instance(describe(plan, traits), nullptr, 0, traits.type);
  const auto record = [&](What what, int result) {
    Recorder::instance().record({.what = what, .printer = printer, .value = result, .traits = traits});
  };
  record(start ? What::startBegin : What::pauseBegin, 0);
  const int result = start ? StartNPA(std::move(node)) : PauseNPA(std::move(node));
  record(start ? What::startEnd : What::pauseEnd, result);
}

void stopAll() {
  Recorder::instance().record({.what = What::stopBegin, .printer = kEveryPrinter});
  const int result = Stop();
  Recorder::instance().record({.what = What::stopEnd, .printer = kEveryPrinter, .value = result});
}

}  // namespace soak
