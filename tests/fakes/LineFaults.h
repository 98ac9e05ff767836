#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "fakes/FaultyWindows.h"

/// Each call of something fails in turn; and what the log's calls are for a line.
namespace fakes {

using Names = std::vector<std::string_view>;

/// More than any test has.
inline constexpr std::size_t kMostSteps = 100;

inline Names joined(Names first, const Names& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// The calls of a line up to the end of the append. What follows is a rotation where the file is too large, and the release.
inline const Names kCallsOfAnAppend = {"MultiByteToWideChar", "MultiByteToWideChar", "WaitForSingleObject", "CreateFileW",
                                       "SetFilePointer",      "WriteFile",           "GetFileSizeEx",       "CloseHandle"};

/// Whether a line whose call of this name fails is lost.
inline bool losesTheLine(std::string_view failed) {
  return failed == "CreateFileW" || failed == "SetFilePointer" || failed == "WriteFile";
}

/// Runs `act` with the `nth` call in it failing. Returns that call's name; an empty one when there are not so many.
template <class Act>
std::string_view failNthCall(FaultyWindows& windows, std::size_t nth, Act act) {
  windows.failCall(nth);
  act();
  const auto name = windows.failedCall();
  windows.failCall(0);
  return name;
}

/// Runs `round` with 1, 2, ... until it returns no name of a call that failed. Returns the names.
template <class Round>
Names namesOfFailed(Round round) {
  Names failed;
  while (failed.size() < kMostSteps) {
    const std::string_view name = round(failed.size() + 1);
    if (name.empty()) return failed;
    failed.push_back(name);
  }
  ADD_FAILURE() << "calls without end";
  return failed;
}

}  // namespace fakes
