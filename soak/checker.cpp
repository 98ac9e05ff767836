#include "Checker.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Recorder.h"
#include "model/Describe.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 10ms;
constexpr auto kBetweenTicks = 1s;
constexpr std::size_t kManyStates = 100;
constexpr std::size_t kFewOf = 20;  // printers

std::string headOf(PrinterId printer) { return "difference at printer " + std::to_string(printer) + ":\n"; }

}  // namespace

Checker::Checker(const std::vector<PrinterTraits>& printers, OnDifference onDifference)
    : m_unclear(printers.size()), m_onDifference(std::move(onDifference)) {
  for (const PrinterTraits& printer : printers) m_models.push_back(std::make_unique<PrinterModel>(printer));
  m_thread = std::thread(&Checker::watch, this);
}

Checker::~Checker() { stop(); }

// The module announces nothing to the checker, and must not wait for it: it looks again and again.
void Checker::watch() {
  auto nextTick = std::chrono::steady_clock::now() + kBetweenTicks;
  while (!m_ending.load()) {
    if (std::chrono::steady_clock::now() >= nextTick) {
      nextTick = std::chrono::steady_clock::now() + kBetweenTicks;  // none is made up for: they tell of time that was had
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
  if (const auto difference = m_holdups.see(event)) fail(*difference);
  if (event.printer == kNoPrinter) return fail(strayText(event));
  if (event.printer != kEveryPrinter) return show(event.printer, event);
  for (PrinterId printer = 0; printer < m_models.size(); ++printer) show(printer, event);
}

void Checker::show(PrinterId printer, const Event& event) {
  PrinterModel& model = *m_models[printer];
  const std::uint64_t runs = model.runs();
  const bool followed = !model.isSetAside();
  if (const auto difference = model.see(event)) fail(headOf(printer) + *difference);
  m_totals.runs += model.runs() - runs;
  m_totals.mostStates = std::max(m_totals.mostStates, model.mostStates());
  if (followed && model.isSetAside()) setAside(printer);
  m_unclear[printer].store(model.states() > kManyStates, std::memory_order_relaxed);
}

void Checker::fail(const std::string& text) {
  ++m_totals.differences;
  m_onDifference(text, m_totals);
}

void Checker::setAside(PrinterId printer) {
  ++m_totals.setAside;
  if (m_totals.setAside * kFewOf <= m_models.size()) return;
  m_onDifference("not decided: " + std::to_string(m_totals.setAside) + " of " + std::to_string(m_models.size()) +
                     " printers, the last one printer " + std::to_string(printer) +
                     ", have done so much at once that the model cannot follow them\n",
                 m_totals);
}

void Checker::count(const Event& event) {
  ++m_totals.events;
  switch (event.what) {
    case What::noticeBegin:
      ++m_totals.notices;
      break;
    case What::noticeEnd:
      m_totals.refusals += event.value == 0 ? 1 : 0;
      break;
    case What::callEnd:
      m_totals.failures += event.failed ? 1 : 0;
      m_totals.hangs += event.hung ? 1 : 0;
      break;
    default:
      break;
  }
}

void Checker::stop() {
  m_ending.store(true);
  if (m_thread.joinable()) m_thread.join();
}

void Checker::finish() {
  stop();
  for (PrinterId printer = 0; printer < m_models.size(); ++printer) {
    PrinterModel& model = *m_models[printer];
    if (const auto left = model.atRest(std::chrono::system_clock::now())) fail(headOf(printer) + "at the end, " + *left);
  }
}

}  // namespace soak
