#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "AppCommunication.h"
#include "Records.h"
#include "bench/BenchWindow.h"
#include "bench/scale/Printer.h"

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

/// Polled by one thread each, that waits and reads and does nothing else.
class BareThreads final : public Population {
 public:
  using Population::Population;
  ~BareThreads() override;
  void start(std::size_t index) override;
  void stop() override;

 private:
  struct Poller {
    std::mutex mutex;
    std::condition_variable condition;
    bool stopped = false;
    std::thread thread;
  };
  static void poll(Poller& poller, Printer& printer);

  std::vector<std::unique_ptr<Poller>> m_pollers;
};

}  // namespace bench
