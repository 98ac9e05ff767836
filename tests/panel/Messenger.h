#pragma once

#include <atomic>
#include <thread>

#include "windows.h"

namespace paneltest {

/// Sends messages that have a second to be answered.
///
/// A machine that stands still stops every window, so a second counts only while another window answers, one that has nothing
/// else to do. What does not count is sent again, for a limited time.
class Messenger {
 public:
  /// The other window lives longer.
  explicit Messenger(HWND other);
  ~Messenger();
  Messenger(const Messenger&) = delete;
  Messenger& operator=(const Messenger&) = delete;

  /// On any thread. False when the window does not answer although the other one does.
  bool send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, DWORD_PTR* result = nullptr) const;

 private:
  void beat(HWND other);

  std::atomic<bool> m_ending{false};
  std::atomic<int> m_answered{0};  // by the other window
  std::thread m_thread;
};

}  // namespace paneltest
