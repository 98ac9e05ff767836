#include "Soak.h"

#include <algorithm>
#include <thread>

#include "Callers.h"
#include "Recorder.h"
#include "simulator/SimulatedPrinters.h"
#include "support/ThreadCount.h"

namespace soak {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto kPatience = 90s;
constexpr auto kBetweenLooks = 10ms;
constexpr int kLooks = 50;

void watchCall(const simulator::CallSight& sight) {
  Recorder& recorder = Recorder::instance();
  const PrinterId named = printerOf(sight.printer);
  if (named != kNoPrinter) recorder.belongsTo(named);
  // Functions of a job name no printer; their thread has to have worked for one before.
  recorder.record({.what = sight.ends ? What::callEnd : What::callBegin,
                   .printer = recorder.printerOfThread(),
                   .value = sight.result.value_or(0),
                   .function = sight.function,
                   .told = sight.told,
                   .failed = sight.failed,
                   .hung = sight.hung});
}

std::vector<PrinterTraits> traitsOf(const std::vector<PrinterPlan>& printers) {
  std::vector<PrinterTraits> traits;
  for (const PrinterPlan& printer : printers) traits.push_back(printer.traits);
  return traits;
}

// Of what the models do not see.
void tell(const std::string& text, Checker& checker, const OnDifference& onDifference) {
  checker.stop();
  Totals totals = checker.totals();
  ++totals.differences;
  onDifference(text, totals);
}

// A thread that was joined is still counted until the system has taken it back, which a busy machine puts off.
int threadsAtRest() {
  int least = support::threadCount();
  for (int look = 0; look < kLooks; ++look) {
    std::this_thread::sleep_for(kBetweenLooks);
    least = std::min(least, support::threadCount());
  }
  return least;
}

// Hangs end one after the other, as later calls hang anew.
bool waitForRest(int threads) {
  const auto deadline = steady_clock::now() + kPatience;
  while (steady_clock::now() < deadline) {
    simulator::releaseCalls();
    const int count = support::threadCount();
    if (count >= 0 && count <= threads) return true;
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return false;
}

}  // namespace

Totals runSoak(std::uint64_t seed, int printers, std::chrono::seconds length, const OnDifference& onDifference) {
  static const int threads = threadsAtRest();  // before the first soak: later ones would count what an earlier one left
  const PrinterPlans plans = planPrinters(seed, printers, length);
  simulator::loadScenarioText(plans.scenario, "soak");
  simulator::watchCalls(watchCall);
  Totals totals;
  {
    Checker checker(traitsOf(plans.printers), onDifference);
    bool rests = false;
    {
      Callers callers(seed, plans.printers, checker);
      std::this_thread::sleep_for(length);
      if (!callers.rest()) tell("calls of the callers have not returned\n", checker, onDifference);
      callers.deleteAll();
      if (stopsAtEnd(seed)) stopAll();
      rests = waitForRest(threads + 1);
    }
    checker.finish();
    if (!rests) tell("the module's threads have not ended\n", checker, onDifference);
    totals = checker.totals();
  }
  simulator::watchCalls(nullptr);
  simulator::reset();
  Recorder::instance().forgetEnded();
  return totals;
}

}  // namespace soak
