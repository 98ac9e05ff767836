/// What a soak says of itself at its end.

#include "Totals.h"

#include <gtest/gtest.h>

namespace soak::test {
namespace {

constexpr Totals kSome{.runs = 1, .notices = 2, .refusals = 3, .failures = 4, .hangs = 5};
constexpr std::chrono::seconds kLong{3'000};

TEST(Totals, LastLineHasEveryFigure) {
  EXPECT_EQ(lastLine(50, kSome),
            "printers 50, runs 1, notices 2, faults 12 (failed calls 4, hangs 5, refused notices 3), differences 0");
}

TEST(Totals, LastLineTellsOfPrintersThatAreNotDecided) {
  Totals totals = kSome;
  totals.setAside = 2;
  EXPECT_TRUE(lastLine(50, totals).ends_with("), differences 0, not decided 2 printers"));
}

TEST(Totals, NothingIsUnseenWhereThereWasSomeOfEach) { EXPECT_EQ(unseen(kSome, kLong), std::nullopt); }

TEST(Totals, EachFigureThatIsZeroIsUnseen) {
  const struct {
    std::uint64_t Totals::*figure;
    const char* name;
  } cases[] = {{&Totals::runs, "runs"},
               {&Totals::notices, "notices"},
               {&Totals::failures, "failed calls"},
               {&Totals::hangs, "hangs"},
               {&Totals::refusals, "refused notices"}};
  for (const auto& one : cases) {
    Totals totals = kSome;
    totals.*one.figure = 0;
    EXPECT_EQ(unseen(totals, kLong), "the soak shows nothing, as it had none of these: " + std::string(one.name) + "\n");
  }
}

TEST(Totals, HangsAreMissedInALongSoakAlone) {
  Totals totals = kSome;
  totals.hangs = 0;
  EXPECT_EQ(unseen(totals, kLong - std::chrono::seconds(1)), std::nullopt);
}

TEST(Totals, NothingIsMissedInAShortSoak) { EXPECT_EQ(unseen({}, std::chrono::seconds(299)), std::nullopt); }

TEST(Totals, AllThatIsUnseenIsNamed) {
  EXPECT_EQ(unseen({}, kLong),
            "the soak shows nothing, as it had none of these: runs, notices, failed calls, hangs, refused notices\n");
}

}  // namespace
}  // namespace soak::test
