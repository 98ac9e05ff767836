#include "fakes/StepFault.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

namespace {

using fakes::Step;
using fakes::StepFault;

// True when it succeeds.
bool allocates() {
  try {
    return std::make_unique<int>(1) != nullptr;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool locks() {
  std::mutex mutex;
  try {
    const std::lock_guard lock(mutex);
    return true;
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::resource_deadlock_would_occur) throw;
    return false;
  }
}

bool prints() {
  wchar_t buffer[8];
  return ::_snwprintf_s(buffer, std::size(buffer), _TRUNCATE, L"%d", 1) == 1;
}

bool copies() {
  wchar_t buffer[8] = L"";
  return ::wcscpy_s(buffer, std::size(buffer), L"a") == 0 && ::wcsnlen(buffer, std::size(buffer)) == 1;
}

struct Kind {
  const char* name;
  Step step;
  bool (*succeeds)();
};

class StepFaultTest : public testing::TestWithParam<Kind> {};

TEST_P(StepFaultTest, FailsTheNthStepAndNoOther) {
  const auto& [name, step, succeeds] = GetParam();
  bool results[4];
  std::size_t steps = 0;
  bool early = true;
  {
    const StepFault fault(step, 3);
    for (bool& result : results) {
      result = succeeds();
      if (&result == &results[1]) early = fault.happened();
    }
    steps = fault.steps();
  }
  EXPECT_TRUE(results[0] && results[1] && !results[2] && results[3]);
  EXPECT_FALSE(early);
  EXPECT_EQ(steps, 4U);
}

TEST_P(StepFaultTest, EndsWithItsScope) {
  { const StepFault fault(GetParam().step, 1); }
  EXPECT_TRUE(GetParam().succeeds());
}

TEST_P(StepFaultTest, ConcernsItsOwnThreadOnly) {
  bool other = false;
  std::mutex gate;
  gate.lock();
  std::thread thread([&] {
    gate.lock();
    other = GetParam().succeeds();
    gate.unlock();
  });
  bool own = true;
  bool happened = true;
  {
    const StepFault fault(GetParam().step, 1);
    gate.unlock();
    thread.join();
    happened = fault.happened();
    own = GetParam().succeeds();
  }
  EXPECT_TRUE(other);
  EXPECT_FALSE(happened);
  EXPECT_FALSE(own);
}

TEST_P(StepFaultTest, CanBeAwaitedByAnotherThread) {
  std::atomic<const StepFault*> made{nullptr};
  std::atomic<bool> seen{false};
  std::thread thread([&] {
    const StepFault fault(GetParam().step, 1);
    made.store(&fault);
    made.notify_one();
    GetParam().succeeds();
    seen.wait(false);
  });

  made.wait(nullptr);
  made.load()->awaitHappened();

  EXPECT_EQ(made.load()->steps(), 1U);
  seen.store(true);
  seen.notify_one();
  thread.join();
}

INSTANTIATE_TEST_SUITE_P(Kinds, StepFaultTest,
                         testing::Values(Kind{"Allocation", Step::allocation, allocates}, Kind{"Lock", Step::lock, locks},
                                         Kind{"Print", Step::print, prints}, Kind{"Copy", Step::copy, copies}),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
