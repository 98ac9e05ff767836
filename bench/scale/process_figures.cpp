#include "bench/scale/ProcessFigures.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <fstream>
#include <string>
#include <thread>

namespace bench {

using namespace std::chrono_literals;

double residentKilobytes() {
  std::ifstream file("/proc/self/statm");
  double total = 0;
  double resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1024;
}

double heapKilobytesInUse() {
  const auto heap = ::mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd) / 1024;
}

std::size_t threadCount() {
  std::ifstream file("/proc/self/status");
  for (std::string word; file >> word;) {
    if (word != "Threads:") continue;
    std::size_t count = 0;
    file >> count;
    return count;
  }
  return 0;
}

std::chrono::nanoseconds processorTime() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  const auto of = [](const timeval& time) {
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
  };
  return of(usage.ru_utime) + of(usage.ru_stime);
}

bool waitForThreads(std::size_t count, std::chrono::seconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (threadCount() > count) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(1ms);
  }
  return true;
}

double waitForHeap(double kilobytes, std::chrono::seconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  auto inUse = heapKilobytesInUse();
  while (inUse > kilobytes && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(1ms);
    inUse = heapKilobytesInUse();
  }
  return inUse;
}

}  // namespace bench
