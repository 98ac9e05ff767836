#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "Checker.h"
#include "Printers.h"
#include "Task.h"

namespace soak {

/// Eight threads of an application that adds, deletes, changes, starts, pauses and stops at random.
class Callers {
 public:
  Callers(std::uint64_t seed, const std::vector<PrinterPlan>& printers, const Checker& checker);
  ~Callers();
  Callers(const Callers&) = delete;
  Callers& operator=(const Callers&) = delete;

  /// No new calls. True when those under way are over, false when some of them have not returned after a long time.
  bool rest();
  /// After `rest`: every task that the module still holds is deleted.
  void deleteAll();

 private:
  struct Printer {
    std::atomic<int> actions{0};  // under way
    std::mutex mutex;
    std::vector<std::shared_ptr<Task>> tasks;            // guarded by mutex: those that the module may still hold
    std::chrono::steady_clock::time_point quietUntil{};  // guarded by mutex: its list is left to end by itself
  };

  void work(std::uint64_t number);
  void act(Random& random);
  void actOn(PrinterId place, Random& random);
  PrinterId choosePrinter(Random& random) const;
  void add(Random& random, PrinterId place);
  void emptyPrinter(PrinterId place);
  std::shared_ptr<Task> anyTask(Random& random, PrinterId place);

  const std::uint64_t m_seed;
  const std::vector<PrinterPlan>& m_plans;
  const Checker& m_checker;
  std::vector<std::unique_ptr<Printer>> m_printers;
  std::atomic<TaskId> m_lastCode{0};

  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_resting = false;     // guarded by m_mutex
  std::size_t m_working = 0;  // guarded by m_mutex: threads
  std::vector<std::thread> m_threads;
};

}  // namespace soak
