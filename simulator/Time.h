#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace simulator {

/// The simulation's clock: the steady one, or one that a test holds and moves by hand. Guarded by its owner's mutex.
class Time {
 public:
  using Point = std::chrono::steady_clock::time_point;

  Point now() const { return m_held ? *m_held : std::chrono::steady_clock::now(); }

  bool held() const { return m_held.has_value(); }
  void hold() { m_held = now(); }
  void advance(std::chrono::milliseconds by) { *m_held += by; }
  void run() { m_held.reset(); }

  /// Waits for one notification, at most until `deadline` (none: no limit). Whoever moves the clock notifies.
  void wait(std::condition_variable& changed, std::unique_lock<std::mutex>& lock, std::optional<Point> deadline) const {
    if (m_held || !deadline) {
      changed.wait(lock);
    } else {
      changed.wait_until(lock, *deadline);
    }
  }

 private:
  std::optional<Point> m_held;
};

}  // namespace simulator
