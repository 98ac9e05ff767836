#pragma once

#include <chrono>
#include <cstddef>

/// What the system and the C library say about this process. Linux.
namespace bench {

double residentKilobytes();
/// Of the C library, in all its arenas.
double heapKilobytesInUse();
std::size_t threadCount();
/// User and system time of all threads so far.
std::chrono::nanoseconds processorTime();

/// False when there were still more than `count` threads after `limit`.
bool waitForThreads(std::size_t count, std::chrono::seconds limit);
/// Returns when no more than `kilobytes` of the heap are in use, or after `limit`. What is in use then.
double waitForHeap(double kilobytes, std::chrono::seconds limit);

}  // namespace bench
