/// How cost grows with the number of printers. Prints "name,value" lines.
///
///   bench_scale lists PRINTERS SECONDS [SLOTS]    the module polls them
///   bench_scale threads PRINTERS SECONDS [SLOTS]  a bare thread each polls them
///   bench_scale async PRINTERS SECONDS [SLOTS]    a thread each polls them, whose waits are std::async tasks
///   bench_scale end PRINTERS                      the module's lists end after Stop, long after their last exchange
///   bench_scale slots SLOTS                       can the table below be chosen? "possible,1" or "possible,0"
///
/// Exit code 3: so many printers are more than the processor can do.
///
/// SLOTS: how many slots the kernel's table of this process's sleeping threads has. By itself it takes few, by the number of
/// CPUs, and each wake walks along all that sleep in the same slot.

#include <malloc.h>
#include <sys/prctl.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "bench/scale/Population.h"
#include "bench/scale/ProcessFigures.h"

namespace {

using namespace std::chrono_literals;
using bench::Clock;
using bench::Population;

constexpr auto kStartPatience = 30s;  // it takes one interval
constexpr auto kPatience = 60s;
constexpr int kOverloaded = 3;  // exit code
constexpr auto kHeapPatience = 5s;
constexpr double kHeapLeft = 0.01;  // of what the lists had: what may stay behind

[[noreturn]] void fail(const std::string& what) {
  std::cerr << "bench_scale: " << what << '\n';
  std::exit(1);
}

// The threads are not waited for: they have more to do than there is time.
[[noreturn]] void giveUpOverloaded(const std::string& what) {
  std::cerr << "bench_scale: more than the processor can do: " << what << '\n';
  std::_Exit(kOverloaded);
}

// Threads are started by the module's own threads too, where nobody can catch what is thrown.
[[noreturn]] void explainEnd() {
  try {
    if (const auto error = std::current_exception()) std::rethrow_exception(error);
    std::cerr << "bench_scale: ended without an exception\n";
  } catch (const std::system_error& error) {
    std::cerr << "bench_scale: a thread could not be started (" << error.what() << ") when there were " << bench::threadCount()
              << ". Look at `ulimit -u`, `ulimit -v`, /proc/sys/kernel/threads-max, /proc/sys/vm/max_map_count and pids.max of "
                 "the container.\n";
  } catch (const std::exception& error) {
    std::cerr << "bench_scale: " << error.what() << '\n';
  }
  std::_Exit(1);
}

void print(const char* name, double value) { std::cout << name << ',' << value << '\n'; }

double inMilliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

double quantile(const std::vector<double>& sorted, double part) {
  return sorted.at(static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1)));
}

// PR_FUTEX_HASH, PR_FUTEX_HASH_SET_SLOTS and PR_FUTEX_HASH_GET_SLOTS: newer than the C library's headers.
constexpr int kFutexHash = 78;
constexpr unsigned long kSetSlots = 1;
constexpr unsigned long kGetSlots = 2;

// False when the kernel does not know it.
bool setFutexSlots(int slots) { return ::prctl(kFutexHash, kSetSlots, static_cast<unsigned long>(slots), 0UL, 0UL) == 0; }

// 0 or less: the kernel has one table for all processes.
int futexSlots() { return ::prctl(kFutexHash, kGetSlots, 0UL, 0UL, 0UL); }

// Evenly over one interval, so that not all of them want the processor at once ever after.
void startAll(Population& population) {
  const auto begin = Clock::now();
  const auto count = population.printers.size();
  std::vector<double> times;
  for (std::size_t index = 0; index < count; ++index) {
    std::this_thread::sleep_until(begin + bench::kInterval * index / count);
    const auto before = Clock::now();
    if (before > begin + kStartPatience) giveUpOverloaded("only " + std::to_string(index) + " printers were started in 30 s");
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
      if (Clock::now() > deadline) giveUpOverloaded("a printer was not read in a minute");
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
  const auto before = bench::residentKilobytes();
  startAll(population);
  waitForReads(population, 2);  // every thread that will be there has been started
  print("resident_kb_each", (bench::residentKilobytes() - before) / count);
  print("threads", static_cast<double>(bench::threadCount() - 1));

  bench::Printer::beginMeasuring();
  const auto begin = Clock::now();
  const auto processor = bench::processorTime();
  std::this_thread::sleep_for(duration);
  const auto used = bench::processorTime() - processor;
  const auto elapsed = Clock::now() - begin;
  bench::Printer::endMeasuring();
  print("measured_s", inMilliseconds(elapsed) / 1000);
  print("processor_ms_per_s", inMilliseconds(used) / inMilliseconds(elapsed) * 1000);
  if (const int slots = futexSlots(); slots > 0) print("slots", slots);

  population.stop();
  if (!bench::waitForThreads(1, kPatience)) giveUpOverloaded("threads were left a minute after the stop");
  printLateness(population);
}

// Lists whose last exchange lies far back: the stop need not keep the distance to it.
void measureEnd(int printers) {
  bench::Lists lists(printers, 0, false);
  const auto resident = bench::residentKilobytes();
  const auto heap = bench::heapKilobytesInUse();
  for (std::size_t index = 0; index < lists.printers.size(); ++index) lists.start(index);
  const auto deadline = Clock::now() + kPatience;
  while (bench::threadCount() < 2 * lists.printers.size() + 1) {  // a worker and its helper each
    if (Clock::now() > deadline) fail("not all lists had two threads after a minute");
    std::this_thread::sleep_for(10ms);
  }
  print("resident_kb_running", bench::residentKilobytes() - resident);
  const auto heapRunning = bench::heapKilobytesInUse() - heap;
  print("heap_kb_running", heapRunning);

  const auto begin = Clock::now();
  lists.stop();
  if (!bench::waitForThreads(1, kPatience)) fail("threads were left a minute after the stop");
  print("threads_gone_ms", inMilliseconds(Clock::now() - begin));
  const auto heapLeft = bench::waitForHeap(heap + kHeapLeft * heapRunning, kHeapPatience) - heap;
  print("end_ms", inMilliseconds(Clock::now() - begin));
  print("heap_kb_left", heapLeft);
  ::malloc_trim(0);
  print("resident_kb_left_after_trim", bench::residentKilobytes() - resident);
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
    bench::Threads threads(printers, expectedReads, mode == "async" ? bench::pollByAsyncTimer : bench::pollPlainly);
    measurePolling(threads, std::chrono::seconds(seconds));
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::set_terminate(explainEnd);
  const std::string mode = argc > 2 ? argv[1] : "";
  const bool polling = mode == "lists" || mode == "threads" || mode == "async";
  if (mode == "end" && argc == 3) {
    measureEnd(number(argv[2]));
  } else if (mode == "slots" && argc == 3) {
    print("possible", setFutexSlots(number(argv[2])) ? 1 : 0);
  } else if (polling && (argc == 4 || argc == 5)) {
    if (argc == 5 && !setFutexSlots(number(argv[4]))) fail("this kernel has one such table for all processes; leave SLOTS out");
    measure(mode, number(argv[2]), number(argv[3]));
  } else {
    fail(
        "usage: bench_scale lists|threads|async PRINTERS SECONDS [SLOTS], bench_scale end PRINTERS, or bench_scale slots "
        "SLOTS");
  }
  return 0;
}
