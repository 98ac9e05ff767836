#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "AppCommunication.h"
#include "Records.h"
#include "bench/BenchWindow.h"
#include "bench/scale/Printer.h"
#include "comm/Semaphore.h"

namespace bench {

/// Many printers, each polled once per interval by somebody. What is theirs alone is made by the constructor, so that what
/// `start` adds is the poller's.
class Population {
 public:
  Population(int count, int expectedReads);
  virtual ~Population() = default;
  Population(const Population&) = delete;
  Population& operator=(const Population&) = delete;

  virtual void start(std::size_t index) = 0;
  /// Returns at once; the threads end by themselves.
  virtual void stop() = 0;

  std::vector<std::shared_ptr<Printer>> printers;
};

/// Polled by the module: one repeating state task each.
class Lists final : public Population {
 public:
  /// `exchanging`: the task asks for its exchange, so that each run reads the state.
  Lists(int count, int expectedReads, bool exchanging);
  void start(std::size_t index) override;
  void stop() override;

 private:
  std::vector<std::shared_ptr<AppComm::Node>> m_tasks;
};

/// The end of a poller's work, and its wait for the next read.
class PollerStop {
 public:
  void stop();
  bool stopped();
  /// An interval long, or until it is stopped.
  void waitForTurn();

  comm::Semaphore wakeup;

 private:
  std::mutex m_mutex;
  std::condition_variable m_condition;
  bool m_stopped = false;
};

/// Waits and reads, and does nothing else.
void pollPlainly(PollerStop& stop, Printer& printer);

/// Has its wait ended by a `std::async` task, a new one each time, as a list's worker would without a thread kept for it.
void pollByAsyncTimer(PollerStop& stop, Printer& printer);

/// Polled by one thread each.
class Threads final : public Population {
 public:
  using Poll = void (*)(PollerStop& stop, Printer& printer);

  Threads(int count, int expectedReads, Poll poll);
  ~Threads() override;
  void start(std::size_t index) override;
  void stop() override;

 private:
  struct Poller {
    PollerStop stop;
    std::thread thread;
  };

  Poll m_poll;
  std::vector<std::unique_ptr<Poller>> m_pollers;
};

}  // namespace bench
