#include "simulator/Scenario.h"

#include <gtest/gtest.h>

#include <set>

namespace simulator {
namespace {

using namespace std::chrono_literals;

Scenario withLatency(std::uint64_t seed, milliseconds min, milliseconds max) {
  Scenario scenario{seed, std::vector<Printer>(2)};
  for (Printer& printer : scenario.printers) printer.behaviour.fill({{min, max}, {}});
  return scenario;
}

std::vector<milliseconds> latencies(const Scenario& scenario, std::size_t printer, Function function) {
  std::vector<milliseconds> all;
  for (std::uint32_t number = 1; number <= 400; ++number) {
    all.push_back(effectsOf(scenario, printer, function, number, 0ms).latency);
  }
  return all;
}

TEST(Latency, TakesEveryValueOfItsSpanAndNoOther) {
  const auto all = latencies(withLatency(1, 3ms, 7ms), 0, Function::getState);
  EXPECT_EQ(std::set(all.begin(), all.end()), (std::set<milliseconds>{3ms, 4ms, 5ms, 6ms, 7ms}));
}

TEST(Latency, IsTheSameForTheSameSeed) {
  EXPECT_EQ(latencies(withLatency(5, 0ms, 1000ms), 1, Function::getPrintingJob),
            latencies(withLatency(5, 0ms, 1000ms), 1, Function::getPrintingJob));
}

TEST(Latency, DiffersBetweenSeedsPrintersAndFunctions) {
  const Scenario scenario = withLatency(5, 0ms, 1000ms);
  const auto one = latencies(scenario, 0, Function::getState);
  EXPECT_NE(one, latencies(scenario, 1, Function::getState));
  EXPECT_NE(one, latencies(scenario, 0, Function::checkIpChange));
  EXPECT_NE(one, latencies(withLatency(6, 0ms, 1000ms), 0, Function::getState));
}

TEST(Latency, IsTheSameOnEverySystem) {
  const auto all = latencies(withLatency(1, 0ms, 1000ms), 0, Function::getState);
  EXPECT_EQ((std::vector<milliseconds>(all.begin(), all.begin() + 4)), (std::vector<milliseconds>{548ms, 859ms, 119ms, 972ms}));
}

Effects hanging(std::optional<milliseconds> length) {
  Effects effects{3ms, Fault(), std::nullopt, false};
  effects.hang->length = length;
  return effects;
}

TEST(Wait, IsTheLatencyAndThenTheHang) {
  EXPECT_EQ(waitOf(Effects{3ms, std::nullopt, std::nullopt, false}), 3ms);
  EXPECT_EQ(waitOf(hanging(10ms)), 13ms);
  EXPECT_EQ(waitOf(hanging(std::nullopt)), std::nullopt);
}

}  // namespace
}  // namespace simulator
