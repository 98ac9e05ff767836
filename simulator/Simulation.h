#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/ThreadAnnotations.h"
#include "simulator/Jobs.h"
#include "simulator/PrinterState.h"
#include "simulator/Scenario.h"
#include "simulator/SimulatedPrinters.h"
#include "simulator/Time.h"

namespace simulator {

/// What belongs to one loaded scenario. Calls keep theirs alive, so that a later one never meets an older one's data.
struct Session {
  Session(Scenario loaded, Time::Point now);

  // Fixed.
  const Scenario scenario;
  const Time::Point start;

  // Guarded by the simulation's mutex.
  struct Count {
    std::uint32_t begun = 0;
    std::uint32_t ended = 0;
  };
  std::vector<std::array<Count, functionCount>> counts;  ///< by printer; the last is for calls that name none of them
  std::deque<CallRecord> record;
  std::uint64_t forgotten = 0;  ///< calls that have left the record
  std::uint64_t releases = 0;   ///< a call that waits ends its wait when this changes
  std::vector<PrinterState> printers;
  Jobs jobs;
};

/// A call that has begun and not yet ended.
struct OpenCall {
  std::shared_ptr<Session> session;
  Function function{};
  std::optional<std::size_t> printer;  ///< its place in the scenario
  std::uint32_t number = 0;            ///< among the printer's calls of the function, from 1
  std::uint64_t place = 0;             ///< in the record, counted from the session's first call
  Effects effects;
};

/// The one simulation of the process. Any thread may call; every wait lets go of the lock, so that calls never hold each other
/// up.
class Simulation {
 public:
  /// Lives until the process is gone: destroying a condition variable on which a thread still waits would hang the exit.
  static Simulation& instance();

  void load(Scenario scenario) EXCLUDES(m_mutex);
  void reset() EXCLUDES(m_mutex);
  /// The session; loads from the environment when there is none.
  std::shared_ptr<Session> session() EXCLUDES(m_mutex);

  /// Records the begin of a call and chooses its effects, then waits as they say.
  OpenCall begin(std::shared_ptr<Session> session, Function function, std::optional<std::size_t> printer) EXCLUDES(m_mutex);
  void end(const OpenCall& call, std::optional<int> result) EXCLUDES(m_mutex);

  /// What `use(session, now)` returns, with the session guarded and `now` counted from its start. `use` calls nothing that
  /// waits.
  template <typename Use>
  auto visit(Session& session, Use use) EXCLUDES(m_mutex) {
    std::lock_guard lock(m_mutex);
    return use(session, elapsedLocked(session));
  }

  std::vector<CallRecord> calls() EXCLUDES(m_mutex);
  bool waitUntil(std::uint32_t Session::Count::*counted, Function function, std::wstring_view printer, std::size_t count,
                 milliseconds limit) EXCLUDES(m_mutex);
  void release() EXCLUDES(m_mutex);

  void holdTime() EXCLUDES(m_mutex);
  void advanceTime(milliseconds by) EXCLUDES(m_mutex);

 private:
  Simulation() = default;

  void replaceLocked(std::shared_ptr<Session> session) REQUIRES(m_mutex);
  void waitLocked(std::optional<Time::Point> deadline) REQUIRES(m_mutex);
  void waitAsToldLocked(const OpenCall& call, Time::Point begun) REQUIRES(m_mutex);
  milliseconds elapsedLocked(const Session& session) const REQUIRES(m_mutex);
  std::size_t countedLocked(std::uint32_t Session::Count::*counted, Function function, std::wstring_view printer) const
      REQUIRES(m_mutex);

  std::mutex m_mutex;
  // Apart, since with many printers most calls that wait would be woken for nothing by each call that begins or ends.
  std::condition_variable m_changed;   // for calls that wait: the session, its releases, the time
  std::condition_variable m_recorded;  // for those who wait for calls: the session and its record
  std::shared_ptr<Session> m_session GUARDED_BY(m_mutex);
  Time m_time GUARDED_BY(m_mutex);
};

/// Loads the scenario that the environment names, or the built-in one.
Scenario readScenarioFromEnvironment();

}  // namespace simulator
