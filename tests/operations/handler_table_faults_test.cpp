#include <gtest/gtest.h>

#include <new>
#include <unordered_map>

#include "comm/HandlerTable.h"
#include "fakes/StepFault.h"

namespace {

constexpr std::size_t kTaskTypes = 22;

// True when an allocation failed, as the exception says.
bool failsToRegister(std::unordered_map<int, comm::Handler>& handlers) {
  try {
    comm::registerHandlers(handlers);
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

TEST(HandlerTableFaults, EachAllocationLeavesAsItsExceptionAndTheNextCallFillsTheTable) {
  std::size_t failures = 0;
  for (bool happened = true; happened;) {
    ASSERT_LE(failures, 2 * kTaskTypes) << "allocations without end";
    std::unordered_map<int, comm::Handler> handlers;
    bool failed = false;
    {
      const fakes::StepFault fault(fakes::Step::allocation, failures + 1);
      failed = failsToRegister(handlers);
      happened = fault.happened();
    }
    EXPECT_EQ(failed, happened) << "allocation " << failures + 1;
    if (happened) {
      ++failures;
      EXPECT_LT(handlers.size(), kTaskTypes);
      comm::registerHandlers(handlers);
    }
    EXPECT_EQ(handlers.size(), kTaskTypes);
    for (const auto& [type, handler] : handlers) EXPECT_TRUE(handler != nullptr) << type;
  }
  EXPECT_EQ(failures, 1 + kTaskTypes) << "the room for all, and each";
}

}  // namespace
