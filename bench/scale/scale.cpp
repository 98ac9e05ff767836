/// How cost grows with the number of printers. Prints "name,value" lines.
///
///   bench_scale lists PRINTERS SECONDS [SLOTS]    the module polls them
///   bench_scale threads PRINTERS SECONDS [SLOTS]  a bare thread each polls them
///   bench_scale end PRINTERS                      the module's lists end after Stop, long after their last exchange
///
/// SLOTS: how many slots the kernel's table of this process's sleeping threads has. By itself it takes 16 on 2 CPUs, and
/// each wake walks along all that sleep in the same slot.

#include <malloc.h>
#include <sys/prctl.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>

#include "bench/scale/Population.h"
#include "bench/scale/ProcessFigures.h"

namespace {

using namespace std::chrono_literals;
using bench::Clock;
using bench::Population;

constexpr auto kPatience = 120s;

[[noreturn]] void fail(const std::string& what) {
  std::cerr << "bench_scale: " << what << '\n';
  std::exit(1);
}

void print(const char* name, double value) { std::cout << name << ',' << value << '\n'; }

double inKilobytes(std::size_t bytes) { return static_cast<double>(bytes) / 1024; }
double inMilliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

double quantile(const std::vector<double>& sorted, double part) {
  return sorted.at(static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1)));
}

// Evenly over one interval, so that not all of them want the processor at once ever after.
void startAll(Population& population) {
  const auto begin = Clock::now();
  const auto count = population.printers.size();
  std::vector<double> times;
  for (std::size_t index = 0; index < count; ++index) {
    std::this_thread::sleep_until(begin + bench::kInterval * index / count);
    const auto before = Clock::now();
    population.start(index);
    times.push_back(inMilliseconds(Clock::now() - before) * 1000);
  }
  std::sort(times.begin(), times.end());
  print("start_us", quantile(times, 0.5));
}

void waitForReads(const Population& population, std::uint64_t reads) {
  const auto deadline = Clock::now() + kPatience;
  for (const auto& printer : population.printers) {
    while (printer->reads() < reads) {
      if (Clock::now() > deadline) fail("a printer was not read in two minutes");
      std::this_thread::sleep_for(10ms);
    }
  }
}

void printLateness(const Population& population) {
  std::vector<double> all;
  std::size_t least = SIZE_MAX;
  std::size_t most = 0;
  for (const auto& printer : population.printers) {
    const auto& lateness = printer->lateness();
    all.insert(all.end(), lateness.begin(), lateness.end());
    least = std::min(least, lateness.size());
    most = std::max(most, lateness.size());
  }
  if (all.empty()) fail("nothing was read");
  std::sort(all.begin(), all.end());
  print("lateness_median_ms", quantile(all, 0.5));
  print("lateness_p99_ms", quantile(all, 0.99));
  print("lateness_worst_ms", all.back());
  print("fewest_reads", static_cast<double>(least));
  print("most_reads", static_cast<double>(most));
}

void measurePolling(Population& population, std::chrono::seconds duration) {
  const auto count = static_cast<double>(population.printers.size());
  const auto before = bench::residentBytes();
  startAll(population);
  waitForReads(population, 2);  // every thread that will be there has been started
  print("resident_kb_each", inKilobytes(bench::residentBytes() - before) / count);
  print("threads", static_cast<double>(bench::threadCount() - 1));

  bench::Printer::beginMeasuring();
  const auto begin = Clock::now();
  const auto processor = bench::processorTime();
  std::this_thread::sleep_for(duration);
  const auto used = bench::processorTime() - processor;
  const auto elapsed = Clock::now() - begin;
  bench::Printer::endMeasuring();
  print("processor_ms_per_s", inMilliseconds(used) / inMilliseconds(elapsed) * 1000);

  population.stop();
  if (!bench::waitForThreads(1, kPatience)) fail("threads were left two minutes after the stop");
  printLateness(population);
}

// Lists whose last exchange lies far back: the stop need not keep the distance to it.
void measureEnd(int printers) {
  bench::Lists lists(printers, 0, false);
  const auto resident = bench::residentBytes();
  const auto heap = bench::heapBytesInUse();
  for (std::size_t index = 0; index < lists.printers.size(); ++index) lists.start(index);
  const auto deadline = Clock::now() + kPatience;
  while (bench::threadCount() < 2 * lists.printers.size() + 1) {  // a worker and its helper each
    if (Clock::now() > deadline) fail("not all lists had two threads after two minutes");
    std::this_thread::sleep_for(10ms);
  }
  print("resident_kb_running", inKilobytes(bench::residentBytes() - resident));

  const auto begin = Clock::now();
  lists.stop();
  if (!bench::waitForThreads(1, kPatience)) fail("threads were left two minutes after the stop");
  print("end_ms", inMilliseconds(Clock::now() - begin));
  print("heap_kb_left", inKilobytes(bench::heapBytesInUse()) - inKilobytes(heap));
  ::malloc_trim(0);
  print("resident_kb_left", inKilobytes(bench::residentBytes()) - inKilobytes(resident));
}

// Linux 6.16 and later. False when the kernel does not know it.
bool setFutexSlots(int slots) {
  constexpr int kFutexHash = 78;  // PR_FUTEX_HASH, PR_FUTEX_HASH_SET_SLOTS: newer than the C library's headers
  constexpr unsigned long kSetSlots = 1;
  return ::prctl(kFutexHash, kSetSlots, static_cast<unsigned long>(slots), 0UL, 0UL) == 0;
}

int number(const char* text) {
  const int value = std::atoi(text);
  if (value < 1) fail(std::string(text) + " is not a number of printers, seconds or slots");
  return value;
}

void measure(const std::string& mode, int printers, int seconds) {
  const int expectedReads = seconds + 10;
  if (mode == "lists") {
    bench::Lists lists(printers, expectedReads, true);
    measurePolling(lists, std::chrono::seconds(seconds));
  } else {
    bench::BareThreads threads(printers, expectedReads);
    measurePolling(threads, std::chrono::seconds(seconds));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mode = argc > 2 ? argv[1] : "";
  if (mode == "end" && argc == 3) {
    measureEnd(number(argv[2]));
  } else if ((mode == "lists" || mode == "threads") && (argc == 4 || argc == 5)) {
    if (argc == 5 && !setFutexSlots(number(argv[4]))) fail("this kernel has one such table for all processes; leave SLOTS out");
    measure(mode, number(argv[2]), number(argv[3]));
  } else {
    fail("usage: bench_scale lists|threads PRINTERS SECONDS [SLOTS], or bench_scale end PRINTERS");
  }
  return 0;
}
