#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "comm/ScriptedHandlers.h"
#include "fakes/ScriptedClock.h"
#include "support/LoggingOn.h"
#include "support/ThreadCount.h"

/// The in-memory platform, where a test can come in between: `beforeNextLine` runs once, on the thread that writes the next
/// line, before that line takes the log's semaphore.
class HookedWindows : public fakes::InMemoryWindows {
 public:
  void beforeNextLine(std::function<void()> action) {
    const std::lock_guard lock(m_mutex);
    m_action = std::move(action);
  }

  void GetLocalTime(SYSTEMTIME* time) override {
    std::function<void()> action;
    {
      const std::lock_guard lock(m_mutex);
      action.swap(m_action);
    }
    if (action) action();
    InMemoryWindows::GetLocalTime(time);
  }

 private:
  std::mutex m_mutex;
  std::function<void()> m_action;
};

/// The scheduler on the scripted clock with scripted handlers, seen through its log and the runs.
///
/// Every task that a test makes is deleted at its end, every list is driven to its end, and no thread may be left.
class SchedulerTest : public testing::Test {
 protected:
  using Type = AppComm::Type;
  using ms = std::chrono::milliseconds;

  /// The values of one wait line.
  struct Wait {
    long duration;
    long chkDuration;
    long npaDuration;
    long interval;

    friend bool operator==(const Wait&, const Wait&) = default;
    friend void PrintTo(const Wait& wait, std::ostream* out) {
      *out << "{duration " << wait.duration << ", chk " << wait.chkDuration << ", npa " << wait.npaDuration << ", interval "
           << wait.interval << '}';
    }
  };

  SchedulerTest();
  ~SchedulerTest() override;

  /// A once task. Its code tells it apart in `handlers.runs()`.
  std::shared_ptr<AppComm::Node> onceTask(Type type, long code, const std::wstring& uid = L"P1", std::int32_t interval = 1000);
  std::shared_ptr<AppComm::Node> repeatingTask(Type type, long code, const std::wstring& uid = L"P1",
                                               std::int32_t interval = 1000);

  /// Adds the tasks in this order from within a first run, so that the list holds just them when it waits next. That run has
  /// code 0 and type `SetWifiList`; wait line 2 follows it, and the first of the tasks runs after that wait.
  void beginWith(std::vector<std::shared_ptr<AppComm::Node>> tasks);

  std::size_t count(std::string_view function, int number) const { return logging.lines().count(function, number); }
  void awaitLine(std::string_view function, int number, std::size_t nth = 1);
  std::vector<Wait> waits() const;
  /// The values of the nth wait line (1: the first), as soon as it is there.
  Wait awaitWait(std::size_t nth);
  /// Waits for the nth wait line, which must announce a wait, and for its thread to be parked; then lets that time pass.
  void passWait(std::size_t nth);
  /// Stops the lists while one waits with a recent NPA run, and lets its interval run out.
  void stopAndPassTheRest(ms rest);
  void awaitLeave(std::size_t nth = 1) { awaitLine("thread_list", 240, nth); }

  static std::size_t registeredLists();

  /// Outside the tests only the main thread lives.
  static constexpr int kThreadsBefore = 1;

  fakes::ScriptedClock clock;
  HookedWindows* const windows = new HookedWindows;  // the log's
  support::LoggingOn logging{std::unique_ptr<fakes::InMemoryWindows>(windows)};
  fakes::ScriptedHandlers handlers;

 private:
  void endAllLists();

  std::vector<std::weak_ptr<AppComm::Node>> m_tasks;
};
