#include <gtest/gtest.h>

#include "platform/WindowsApi.h"
#include "support/HandleCount.h"

namespace {

TEST(HandleCountTest, OpenHandlesAreCountedAndClosedOnesAreNot) {
  const int before = support::handleCount();
  ASSERT_GT(before, 0);
  const HANDLE first = ::CreateSemaphoreW(nullptr, 0, 1, nullptr);
  const HANDLE second = ::CreateSemaphoreW(nullptr, 0, 1, nullptr);
  EXPECT_EQ(support::handleCount(), before + 2);
  ::CloseHandle(first);
  EXPECT_EQ(support::handleCount(), before + 1);
  ::CloseHandle(second);
  EXPECT_EQ(support::handleCount(), before);
}

}  // namespace
