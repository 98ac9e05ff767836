#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

/// What a scenario may ask for at most (docs/scenario.md lists them). They keep a mistyped number from costing an hour.
namespace simulator {

using namespace std::chrono_literals;

inline constexpr std::size_t largestFile = 4'194'304;  // bytes
inline constexpr std::size_t mostPrinters = 256;
inline constexpr std::size_t mostSupplies = 64;
inline constexpr std::size_t mostAlerts = 1'000;
inline constexpr std::size_t mostAccessPoints = 1'000;
inline constexpr std::int64_t mostSegments = 1'000;
inline constexpr std::int64_t mostJobs = 100'000;
inline constexpr std::int64_t mostCalls = 1'000'000'000;
inline constexpr std::chrono::milliseconds longestInterval = 1h;
inline constexpr std::chrono::milliseconds longestLatency = 10min;
inline constexpr std::chrono::milliseconds longestHang = 1h;
inline constexpr std::chrono::milliseconds longestWork = 1h;  // of a page, a restart, a segment ...
inline constexpr std::chrono::milliseconds latestTime = 24h;

}  // namespace simulator
