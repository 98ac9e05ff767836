#pragma once

#include <chrono>

namespace support {

/// The number of the process's threads, the calling one included, without those that the harness itself keeps: the
/// watchdog's, and the background thread of a sanitizer. -1 when the system does not tell. Any thread.
int threadCount();

/// True as soon as the process has `count` threads; false when it does not before `deadline`. The system announces the end of
/// a thread that nobody joins to no one, so this one wait polls. Any thread.
bool waitForThreadCount(int count, std::chrono::steady_clock::time_point deadline);

/// The threads that exist now, except the calling one, are the harness's own. For the watchdog, once, before any test.
void countThreadsFromHere();

}  // namespace support
