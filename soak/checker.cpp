#include "Checker.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Recorder.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 10ms;
constexpr auto kBetweenTicks = 1s;
constexpr auto kLong = 1s;
constexpr std::size_t kManyStates = 200;

}  // namespace

Checker::Checker(const std::vector<PrinterTraits>& printers, OnDifference onDifference)
    : m_unclear(printers.size()), m_onDifference(std::move(onDifference)) {
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
  if (event.printer != kEveryPrinter) return show(event.printer, event);
  for (PrinterId printer = 0; printer < m_models.size(); ++printer) show(printer, event);
}

void Checker::show(PrinterId printer, const Event& event) {
  PrinterModel& model = *m_models[printer];
  const std::uint64_t runs = model.runs();
  if (const auto difference = model.see(event)) fail(printer, *difference);
  m_totals.runs += model.runs() - runs;
  m_totals.mostStates = std::max(m_totals.mostStates, model.mostStates());
  m_unclear[printer].store(model.states() > kManyStates);
}

void Checker::fail(PrinterId printer, const std::string& text) {
  m_onDifference("difference at printer " + std::to_string(printer) + ":\n" + text, m_totals);
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

void Checker::finish() {
  m_ending.store(true);
  m_thread.join();
  for (PrinterId printer = 0; printer < m_models.size(); ++printer) {
    const PrinterModel& model = *m_models[printer];
    if (const auto left = model.atRest(std::chrono::system_clock::now())) fail(printer, "at the end, " + *left);
  }
}

}  // namespace soak
