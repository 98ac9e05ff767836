#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

#include "AppCommunication.h"
#include "support/PlainWindow.h"

/// Notices from the handlers of several printers, all forwarded to one window.
namespace manynotices {

inline constexpr int kPrinters = 8;
inline constexpr int kNoticesEach = 1'250;
inline constexpr std::size_t kNotices = 10'000;
inline constexpr std::size_t kMostInFlight = 64;  // senders; a process has only so many threads
inline constexpr int kThreadsOfAList = 2;         // its worker, and the helper that runs the handlers
inline constexpr unsigned kForwarded = WM_APP + 10;
static_assert(kNotices == std::size_t{kPrinters} * kNoticesEach);

/// A message tells which printer's notice it was, and which of that printer's, from 1.
using Messages = std::set<std::pair<WPARAM, LPARAM>>;

/// Forwards each notice, once there is room for its sender. Its code is the printer's number. It outlives its senders.
class Forwarder : public support::PlainWindow {
 public:
  explicit Forwarder(int noticesEach) : m_noticesEach(noticesEach) {}

  bool Notice(long code) const override {
    {
      std::unique_lock lock(m_mutex);
      m_changed.wait(lock, [this] { return m_inFlight < kMostInFlight; });
      ++m_inFlight;
      m_changed.notify_all();
    }
    const int number = ++m_numbers.at(static_cast<std::size_t>(code));
    ThreadToSelf(kForwarded, static_cast<WPARAM>(code), number);
    return number < m_noticesEach;
  }

  __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override {
    const auto answer = PlainWindow::SendSelfMsg(msg, wParam, lParam);
    const std::lock_guard lock(m_mutex);
    --m_inFlight;
    m_changed.notify_all();
    return answer;
  }

  /// Waits for exactly so many senders; false when there are not so many after all the patience. None: no sender touches this
  /// object any more.
  [[nodiscard]] bool awaitInFlight(std::size_t count) const {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::seconds(20), [&] { return m_inFlight == count; });
  }

 private:
  const int m_noticesEach;
  mutable std::array<std::atomic<int>, kPrinters> m_numbers{};

  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  mutable std::size_t m_inFlight = 0;  // guarded by m_mutex
};

/// Adds a task for one of the printers, which repeats until the window has had its notices: half of them back to back, the
/// others with a wait in between.
inline void addTask(int number, qzstd::PrinterInfo printer, const std::shared_ptr<Forwarder>& window) {
  printer.interval = number % 2;
  auto task =
      AppComm::Node::Instance(std::make_shared<qzstd::PrinterInfo>(std::move(printer)), window, number, AppComm::Type::State);
  task->setResource(std::make_shared<AppComm::State>());
  task->setRepeat();
  task->setReqNPA();  // each run reads the printer's state
  Add(std::move(task));
}

/// What a window has received when nothing was lost and nothing came twice.
inline Messages allMessages() {
  Messages all;
  for (WPARAM printer = 0; printer < kPrinters; ++printer) {
    for (LPARAM number = 1; number <= kNoticesEach; ++number) all.emplace(printer, number);
  }
  return all;
}

}  // namespace manynotices
