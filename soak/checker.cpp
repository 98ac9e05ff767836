#include "Checker.h"

#include <algorithm>
#include <chrono>

#include "Recorder.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 10ms;
constexpr auto kBetweenTicks = 1s;
constexpr auto kLong = 1s;
constexpr std::size_t kManyStates = 200;

}  // namespace

Checker::Checker(const std::vector<PrinterTraits>& printers) : m_unclear(printers.size()) {
  for (const PrinterTraits& printer : printers) m_models.push_back(std::make_unique<PrinterModel>(printer));
  m_thread = std::thread(&Checker::watch, this);
}

Checker::~Checker() {
  if (m_thread.joinable()) finish();
}

// The module announces nothing to the checker, and must not wait for it: it looks again and again.
void Checker::watch() {
  auto nextTick = std::chrono::steady_clock::now() + kBetweenTicks;
  while (!m_ending.load()) {
    if (std::chrono::steady_clock::now() >= nextTick) {
      nextTick += kBetweenTicks;
      Recorder::instance().record({.what = What::tick, .printer = kEveryPrinter});
    }
    if (!takeAll()) std::this_thread::sleep_for(kBetweenLooks);
  }
  takeAll();
}

bool Checker::takeAll() {
  const auto events = Recorder::instance().take();
  for (const Event& event : events) {
    see(event);
    Recorder::instance().judged(event.number);
  }
  return !events.empty();
}

void Checker::see(const Event& event) {
  count(event);
  if (m_difference) return;  // what follows would be judged by a model that is lost
  if (event.printer != kEveryPrinter) return show(event.printer, event);
  for (PrinterId printer = 0; printer < m_models.size() && !m_difference; ++printer) show(printer, event);
}

void Checker::show(PrinterId printer, const Event& event) {
  if (const auto difference = m_models[printer]->see(event)) fail(printer, *difference);
  m_unclear[printer].store(m_models[printer]->states() > kManyStates);
}

void Checker::fail(PrinterId printer, const std::string& text) {
  m_difference = "difference at printer " + std::to_string(printer) + ":\n" + text;
  m_found.store(true);
}

void Checker::count(const Event& event) {
  ++m_totals.events;
  if (event.thread >= m_callBegan.size()) m_callBegan.resize(event.thread + 1);
  auto& began = m_callBegan[event.thread];
  switch (event.what) {
    case What::noticeBegin:
      ++m_totals.notices;
      break;
    case What::noticeEnd:
      m_totals.refusals += event.value == 0 ? 1 : 0;
      break;
    case What::callBegin:
      began = event.time;
      break;
    case What::callEnd:
      m_totals.failures += event.value < 0 ? 1 : 0;
      m_totals.hangs += began && event.time - *began >= kLong ? 1 : 0;
      break;
    default:
      break;
  }
}

std::optional<std::string> Checker::finish() {
  m_ending.store(true);
  m_thread.join();
  for (PrinterId printer = 0; printer < m_models.size(); ++printer) {
    const PrinterModel& model = *m_models[printer];
    m_totals.runs += model.runs();
    m_totals.mostStates = std::max(m_totals.mostStates, model.mostStates());
    if (m_difference) continue;
    if (const auto left = model.atRest(std::chrono::system_clock::now())) fail(printer, "at the end, " + *left);
  }
  return m_difference;
}

}  // namespace soak
