#include "support/ThreadCount.h"

#include <atomic>
#include <thread>

#include "support/AllThreads.h"

namespace support {
namespace {

std::atomic<int> harnessThreads{0};

}  // namespace

int threadCount() {
  const int all = countAllThreads();
  return all < 0 ? -1 : all - harnessThreads;
}

bool waitForThreadCount(int count, std::chrono::steady_clock::time_point deadline) {
  for (;;) {
    if (threadCount() == count) return true;
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void countThreadsFromHere() { harnessThreads = countAllThreads() - 1; }

}  // namespace support
