#include "operations/FirmwarePercent.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using operations::firmwarePercent;

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kGreatest = std::numeric_limits<std::int32_t>::max();

struct Row {
  std::int32_t current;
  std::int32_t total;
  std::int32_t percent;
};

template <std::size_t size>
void expectPercents(const Row (&rows)[size]) {
  for (const auto& row : rows) {
    EXPECT_EQ(firmwarePercent(row.current, row.total), row.percent) << row.current << " of " << row.total;
  }
}

TEST(FirmwarePercent, ACompleteTransferIs85) {
  expectPercents({{1, 1, 85}, {100, 100, 85}, {16777216, 16777216, 85}, {kGreatest, kGreatest, 85}});
}

TEST(FirmwarePercent, IsTruncatedTowardZero) {
  expectPercents({{50, 100, 42}, {99, 100, 84}, {1, 86, 0}, {1, 85, 1}, {2, 86, 1}, {1, 2, 42}, {19, 17, 95}, {18, 17, 90}});
}

// Any other order or precision is one off in one of these.
TEST(FirmwarePercent, IsMultipliedThenDividedInSinglePrecision) {
  expectPercents({{79, 79, 85}, {303, 303, 85}, {69, 391, 15}, {276, 391, 60}});
  expectPercents({{1334105, 1597168, 71}, {13532096, 23474046, 49}, {10854961, 13568702, 67}, {31568165, 34847974, 76}});
  expectPercents({{14134035, 23103711, 52}, {27448704, 39544742, 59}, {36501625, 36936170, 84}, {3635445, 38626605, 8}});
}

TEST(FirmwarePercent, IsAtMost100) {
  expectPercents({{117, 100, 99}, {20, 17, 100}, {118, 100, 100}, {200, 100, 100}, {25264513, 1, 100}, {kGreatest, 100, 100}});
}

TEST(FirmwarePercent, IsAtMost100WhenTheQuotientIsBeyondEveryInteger) {
  // 85 times the first is just below 2^31, the second is the first one beyond it.
  expectPercents({{25264512, 1, 100}, {25264514, 1, 100}, {kGreatest, 1, 100}, {kLeast, -1, 100}});
}

TEST(FirmwarePercent, IsNoneWhereNothingOrLessWasDone) {
  expectPercents({{0, 1, 0}, {0, kGreatest, 0}, {-1, 100, 0}, {-100, 100, 0}, {1, -100, 0}, {100, -1, 0}, {0, -5, 0}});
  expectPercents({{kLeast, 1, 0}, {kGreatest, -1, 0}, {kLeast, kGreatest, 0}});
}

TEST(FirmwarePercent, IsNoneOfATotalOfNone) {
  expectPercents({{0, 0, 0}, {1, 0, 0}, {-1, 0, 0}, {kGreatest, 0, 0}, {kLeast, 0, 0}});
}

TEST(FirmwarePercent, OfTwoNegativeNumbersIsThatOfTheirQuotient) { expectPercents({{-50, -100, 42}, {-100, -100, 85}}); }

}  // namespace
