#include "Printers.h"

#include <gtest/gtest.h>

#include "simulator/SimulatedPrinters.h"

namespace soak::test {
namespace {

using namespace std::chrono_literals;

// With one printer faults come as often as they may, so some begin just before the end.
TEST(Printers, PlannedForADayAreAScenario) {
  for (std::uint64_t seed = 0; seed < 6; ++seed) {
    EXPECT_NO_THROW(simulator::loadScenarioText(planPrinters(seed, 1, 24h).scenario)) << "seed " << seed;
  }
  EXPECT_NO_THROW(simulator::loadScenarioText(planPrinters(6, 256, 24h).scenario));
  simulator::reset();
}

TEST(Printers, AreTheSameForTheSameSeed) {
  EXPECT_EQ(planPrinters(3, 20, 60s).scenario, planPrinters(3, 20, 60s).scenario);
  EXPECT_NE(planPrinters(3, 20, 60s).scenario, planPrinters(7, 20, 60s).scenario);
}

TEST(Printers, AreFoundByTheirUid) {
  const PrinterPlans plans = planPrinters(2, 100, 60s);
  for (PrinterId place = 0; place < plans.printers.size(); ++place) {
    EXPECT_EQ(printerOf(plans.printers[place].uid), place);
  }
  EXPECT_EQ(printerOf(L""), kNoPrinter);
}

}  // namespace
}  // namespace soak::test
