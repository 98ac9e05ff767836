// Tests that hang on purpose, one per place where a test program can. They run only as probes of the watchdog, each one alone.

#include <gtest/gtest.h>

#include <cstdlib>
#include <future>
#include <mutex>
#include <string_view>
#include <thread>

namespace {

[[gnu::noinline]] void waitForever() { std::promise<void>().get_future().wait(); }

bool asked(std::string_view place) {
  const char* const value = std::getenv("APPCOMM_PROBE_HANGS_AT");
  return value != nullptr && value == place;
}

struct HangsOutsideMain {
  [[gnu::noinline]] HangsOutsideMain() {
    if (asked("start")) waitForever();
  }
  [[gnu::noinline]] ~HangsOutsideMain() {
    if (asked("end")) waitForever();
  }
};
// As early as any static object but the watchdog's own.
[[gnu::init_priority(102)]] const HangsOutsideMain hangsOutsideMain;

TEST(Probe, Passes) {}

TEST(Probe, HangsInItsBody) { waitForever(); }

std::mutex heldForGood;

[[gnu::noinline]] void lockTwice() { std::lock_guard lock(heldForGood); }

TEST(Probe, HangsWithASecondThread) {
  std::lock_guard lock(heldForGood);
  std::thread second(&lockTwice);
  second.join();
}

class ProbeSetUp : public testing::Test {
 protected:
  void SetUp() override { waitForever(); }
};
TEST_F(ProbeSetUp, Hangs) {}

class ProbeTearDown : public testing::Test {
 protected:
  void TearDown() override { waitForever(); }
};
TEST_F(ProbeTearDown, Hangs) {}

class ProbeSuite : public testing::Test {
 protected:
  static void TearDownTestSuite() { waitForever(); }
};
TEST_F(ProbeSuite, Hangs) {}

}  // namespace
