#include <gtest/gtest.h>

#include <string>

#include "support/Watchdog.h"

namespace {

struct StartsWatchdog {
  StartsWatchdog() { support::startWatchdog(); }
};

// Before all other static objects, so that a hang in one of their constructors is seen.
#if defined(__GNUC__)
[[gnu::init_priority(101)]]
#endif
const StartsWatchdog startsWatchdog;

/// Tells the watchdog where the run is. What lies between two tests is put down to their suite.
class WatchdogListener : public testing::EmptyTestEventListener {
 public:
  void OnTestSuiteStart(const testing::TestSuite& suite) override { enterSuite(suite.name()); }
  void OnTestStart(const testing::TestInfo& test) override {
    support::enterWatchedStep(std::string(test.test_suite_name()) + "." + test.name());
  }
  void OnTestEnd(const testing::TestInfo& test) override { enterSuite(test.test_suite_name()); }
  void OnTestSuiteEnd(const testing::TestSuite& /*suite*/) override { support::enterWatchedStep("end of the program"); }

 private:
  static void enterSuite(const std::string& name) { support::enterWatchedStep("set-up or tear-down of suite " + name); }
};

}  // namespace

int main(int argc, char** argv) {
  // The watchdog's thread makes a mere fork unsafe: a death test runs the program anew.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new WatchdogListener);  // owned by GoogleTest from here on
  return RUN_ALL_TESTS();
}
