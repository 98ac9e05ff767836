#include "model/Holdups.h"

#include <gtest/gtest.h>

#include <chrono>

namespace soak::test {
namespace {

using namespace std::chrono_literals;

constexpr ThreadId kCaller = 1;

/// Printer 0 has a call of two seconds again and again; what else happens is up to the test.
class HoldupsTest : public testing::Test {
 protected:
  std::optional<std::string> see(Event event) {
    event.number = ++m_number;
    event.time = m_now;
    m_now += 1ms;
    return m_holdups.see(event);
  }
  static Event of(What what, PrinterId printer, ThreadId thread) {
    return {.what = what, .thread = thread, .printer = printer, .function = "AppPrinterSdk_GetState"};
  }
  void call(PrinterId printer) {
    see(of(What::callBegin, printer, printer + 10));
    see(of(What::callEnd, printer, printer + 10));
  }
  void callsOfOthers() {
    for (const PrinterId printer : {1U, 2U, 3U}) call(printer);
  }
  /// So many long calls, with `during` in the midst of each and `after` when it has ended.
  template <class During, class After>
  std::optional<std::string> longCalls(int count, During during, After after) {
    for (int index = 0; index < count; ++index) {
      callsOfOthers();
      see(of(What::callBegin, 0, 10));
      m_now += 1s;
      during();
      m_now += 1s;
      if (auto difference = see(of(What::callEnd, 0, 10))) return difference;
      after();
    }
    return std::nullopt;
  }
  void control(What what, PrinterId printer = 0) { see({.what = what, .thread = kCaller, .printer = printer}); }

  Moment m_now = Moment(1'000'000s);
  Holdups m_holdups;

 private:
  std::uint64_t m_number = 0;
};

constexpr auto kNothing = [] {};

testing::AssertionResult says(const std::optional<std::string>& difference, std::string_view what) {
  if (!difference) return testing::AssertionFailure() << "no difference";
  if (difference->find(what) == std::string::npos) return testing::AssertionFailure() << *difference;
  return testing::AssertionSuccess();
}

TEST_F(HoldupsTest, FindsThatOtherPrintersNeverHaveCallsDuringACall) {
  EXPECT_TRUE(says(longCalls(3, kNothing, kNothing), "no library call for another printer has ever begun and ended"));
}

TEST_F(HoldupsTest, FindsNothingWhereOneOtherPrinterHadACallDuringACall) {
  see(of(What::callBegin, 0, 10));
  call(1);
  see(of(What::callEnd, 0, 10));
  EXPECT_EQ(longCalls(20, kNothing, kNothing), std::nullopt);
}

TEST_F(HoldupsTest, FindsNothingWhereFewPrintersHaveCalls) {
  for (int index = 0; index < 20; ++index) {
    call(1);
    call(2);
    see(of(What::callBegin, 0, 10));
    m_now += 2s;
    EXPECT_EQ(see(of(What::callEnd, 0, 10)), std::nullopt);
  }
}

TEST_F(HoldupsTest, FindsNothingInLongCallsAtTheSameTime) {
  for (int round = 0; round < 2; ++round) {  // as when a machine stands still
    callsOfOthers();
    for (PrinterId printer = 0; printer < 8; ++printer) see(of(What::callBegin, printer, printer + 10));
    m_now += 5s;
    for (PrinterId printer = 0; printer < 8; ++printer) {
      EXPECT_EQ(see(of(What::callEnd, printer, printer + 10)), std::nullopt);
    }
  }
}

TEST_F(HoldupsTest, FindsNoMissingCallsWhereStopMayHaveEndedThem) {
  const auto stop = [this] {
    control(What::stopBegin, kEveryPrinter);
    control(What::stopEnd, kEveryPrinter);
  };
  EXPECT_EQ(longCalls(20, stop, kNothing), std::nullopt);
}

class HoldupsOfControlCalls : public HoldupsTest {
 protected:
  void SetUp() override {  // other printers go on
    see(of(What::callBegin, 0, 10));
    call(1);
    see(of(What::callEnd, 0, 10));
  }
  std::optional<std::string> heldUp(What begin, What end, PrinterId printer) {
    return longCalls(
        3, [&] { control(begin, printer); },
        [&] {
          control(end, printer);
          m_now += 11s;  // a Stop before would have taken the list out of the registry
        });
  }
};

TEST_F(HoldupsOfControlCalls, FindThatAddNeverReturnsDuringACall) {
  EXPECT_TRUE(says(heldUp(What::addBegin, What::addEnd, 0), "no Add for the same printer has ever begun and ended"));
}

TEST_F(HoldupsOfControlCalls, FindThatStopNeverReturnsDuringACall) {
  EXPECT_TRUE(says(heldUp(What::stopBegin, What::stopEnd, kEveryPrinter), "no Stop has ever begun and ended"));
}

TEST_F(HoldupsOfControlCalls, FindThatStopNeverReturnsDuringACallHoweverOftenItComes) {
  const auto found = longCalls(
      3, [&] { control(What::stopBegin, kEveryPrinter); }, [&] { control(What::stopEnd, kEveryPrinter); });
  EXPECT_TRUE(says(found, "no Stop has ever begun and ended"));
}

TEST_F(HoldupsOfControlCalls, FindNothingWhereStopComesOftenAndMostlyReturns) {
  const auto stop = [this] {
    control(What::stopBegin, kEveryPrinter);
    control(What::stopEnd, kEveryPrinter);
  };
  stop();
  for (int round = 0; round < 10; ++round) {
    EXPECT_EQ(longCalls(
                  2, [&] { control(What::stopBegin, kEveryPrinter); }, [&] { control(What::stopEnd, kEveryPrinter); }),
              std::nullopt);
    EXPECT_EQ(longCalls(1, stop, kNothing), std::nullopt);
  }
}

TEST_F(HoldupsOfControlCalls, FindThatARequestNeverReturnsDuringACall) {
  for (const auto& [begin, end] : {std::pair(What::startBegin, What::startEnd), std::pair(What::pauseBegin, What::pauseEnd)}) {
    m_holdups = {};
    SetUp();
    EXPECT_TRUE(says(heldUp(begin, end, 0), "no StartNPA or PauseNPA for the same printer has ever begun and ended"));
  }
}

TEST_F(HoldupsOfControlCalls, FindNothingWhereAddReturnedDuringACall) {
  see(of(What::callBegin, 0, 10));
  control(What::addBegin);
  control(What::addEnd);
  see(of(What::callEnd, 0, 10));
  EXPECT_EQ(heldUp(What::addBegin, What::addEnd, 0), std::nullopt);
}

TEST_F(HoldupsOfControlCalls, FindNothingInAnAddForAnotherPrinter) {
  EXPECT_EQ(heldUp(What::addBegin, What::addEnd, 1), std::nullopt);
}

TEST_F(HoldupsOfControlCalls, TakeNoAddForFreeThatCameAfterStop) {
  control(What::stopBegin, kEveryPrinter);
  control(What::stopEnd, kEveryPrinter);
  see(of(What::callBegin, 0, 10));
  control(What::addBegin);  // makes a new list
  control(What::addEnd);
  see(of(What::callEnd, 0, 10));
  m_now += 11s;
  EXPECT_TRUE(says(heldUp(What::addBegin, What::addEnd, 0), "no Add for the same printer"));
}

TEST_F(HoldupsOfControlCalls, TakeNoAddForFreeThatCameAfterAnOldWorkersEnd) {
  see(of(What::threadEnded, 0, 30));
  see(of(What::callBegin, 0, 10));
  control(What::addBegin);
  control(What::addEnd);
  see(of(What::callEnd, 0, 10));
  see(of(What::threadEnded, 0, 10));
  EXPECT_TRUE(says(heldUp(What::addBegin, What::addEnd, 0), "no Add for the same printer"));
}

}  // namespace
}  // namespace soak::test
