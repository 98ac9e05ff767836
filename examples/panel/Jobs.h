#pragma once

#include <chrono>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "panel/Task.h"

namespace panel {

/// How something is said.
enum class Tone { Plain, Good, Bad };

/// The operations that pages started, on any of the printers: at most one of a kind per printer at a time. On the thread of the
/// window that they are started for; nothing here waits.
class Jobs {
 public:
  using Clock = std::chrono::steady_clock;
  using Say = std::function<void(Tone tone, const std::wstring& text)>;
  struct Order {
    std::wstring title;
    std::wstring printer;  ///< its name
    std::shared_ptr<qzstd::PrinterInfo> info;
    std::unique_ptr<examples::Operation> operation;
    Task::Told told;
  };

  explicit Jobs(Say say) : m_say(std::move(say)) {}

  /// Says that it begins, and later what came of it; or why it does not begin.
  void start(HWND parent, Order order);
  /// Those of these types on the printer `uid` that are under way. False: there was none.
  bool cancel(const std::wstring& uid, std::initializer_list<AppComm::Type> types);
  void cancelAll();

  /// The title of what was started first on the printer `uid` and is under way; empty: nothing.
  std::wstring underWay(const std::wstring& uid) const;
  /// `said` with how long it has taken, when that is the beginning of something slow that is under way.
  std::optional<std::wstring> howLong(const std::wstring& said, Clock::time_point now) const;

  /// Lets go of what is over.
  void tidy();
  bool areOver() const { return m_jobs.empty(); }

 private:
  struct Job {
    std::shared_ptr<Task> task;
    std::wstring title;
    std::wstring beginning;  // as it was said
    Clock::time_point start;
  };

  bool isUnderWay(const std::wstring& uid, AppComm::Type type) const;
  void sayEnd(const std::wstring& title, const std::wstring& printer, const examples::Report& report) const;

  const Say m_say;
  std::vector<Job> m_jobs;
};

}  // namespace panel
