#pragma once

#include <chrono>
#include <cstddef>

/// What the system and the C library say about this process. Linux.
namespace bench {

std::size_t residentBytes();
std::size_t heapBytesInUse();
std::size_t threadCount();
/// User and system time of all threads so far.
std::chrono::nanoseconds processorTime();

/// False when there were still more than `count` threads after `limit`.
bool waitForThreads(std::size_t count, std::chrono::seconds limit);

}  // namespace bench
