/// A function that writes beyond its array ends the process before it returns, in a program as in a library of this project.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "support/ChildProcess.h"

namespace {

constexpr std::uint32_t kStackBufferOverrun = 0xC0000409;  // STATUS_STACK_BUFFER_OVERRUN

std::optional<std::uint32_t> exitCodeOf(const std::wstring& where, int bytes) {
  const support::ChildProcess child(L"module_smash.exe", {where, std::to_wstring(bytes)});
  return child.wait();
}

class StackProtectorTest : public testing::TestWithParam<const wchar_t*> {};

TEST_P(StackProtectorTest, LetsAFunctionReturnThatFillsItsArray) { EXPECT_EQ(exitCodeOf(GetParam(), 32), 0U); }

// The fewest that reach the guard, whatever the compiler fills up to it; more reach the return address.
TEST_P(StackProtectorTest, EndsTheProcessOverOneThatWritesBeyondIt) {
  for (const int bytes : {48, 64, 128}) {
    SCOPED_TRACE(bytes);
    EXPECT_EQ(exitCodeOf(GetParam(), bytes), kStackBufferOverrun);
  }
}

INSTANTIATE_TEST_SUITE_P(Places, StackProtectorTest, testing::Values(L"here", L"library"),
                         [](const auto& place) { return place.param == std::wstring(L"here") ? "Program" : "Library"; });

}  // namespace
