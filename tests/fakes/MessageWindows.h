#pragma once

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

#include "fakes/Windows.h"

namespace fakes {

/// Dialogs and their messages, in memory. All of them belong to the thread that made this object: it alone makes and destroys
/// them, and their procedures run on it, when the test takes a message.
///
/// What is sent from other threads and what is posted wait in two queues, so that a test can choose which comes first; the real
/// platform fixes no order between a sender that has just started and a post. Sending and posting are for any thread, also the
/// looking and waiting; taking is for the thread of the windows. Calls that are not listed stay unscripted.
class MessageWindows : public Windows {
 public:
  MessageWindows() = default;
  /// Every sender has had its answer, also those whose window was destroyed; what they still do for it is waited for.
  ~MessageWindows() override;

  /// Takes the messages that are there now, in their order, and returns how many these were. A sender is answered when its
  /// message has been taken.
  std::size_t takeSent();
  std::size_t takePosted();

  /// How many messages wait to be taken.
  std::size_t sent() const;
  std::size_t posted() const;
  /// How many windows there are.
  std::size_t count() const;

  // Waits until at least `count` messages wait; false when they do not within `kPatience`.
  [[nodiscard]] bool awaitSent(std::size_t count) const;
  [[nodiscard]] bool awaitPosted(std::size_t count) const;
  /// Waits, but not for long, until a message waits that was sent or posted.
  void awaitAny() const;

  HMODULE GetModuleHandleW(LPCWSTR name) override;
  HWND CreateDialogParamW(HINSTANCE instance, LPCWSTR resource, HWND parent, DLGPROC procedure, LPARAM parameter) override;
  BOOL DestroyWindow(HWND window) override;
  BOOL IsWindow(HWND window) override;
  LONG_PTR GetWindowLongPtrW(HWND window, int index) override;
  LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) override;
  LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Message {
    HWND window;
    UINT id;
    WPARAM wParam;
    LPARAM lParam;
  };
  /// A message and the thread that waits for its answer.
  struct Sender {
    const Message message;
    bool isAnswered = false;
    LRESULT answer = 0;
    std::condition_variable answered = {};
  };
  struct Dialog {
    DLGPROC procedure;
    std::map<int, LONG_PTR> values;
  };

  bool isOnItsThread() const { return std::this_thread::get_id() == m_thread; }
  /// 0 for a window that is gone.
  LRESULT give(const Message& message);

  const std::thread::id m_thread = std::this_thread::get_id();

  mutable std::mutex m_mutex;  // guards all below
  mutable std::condition_variable m_arrived;
  std::condition_variable m_left;
  int m_senders = 0;  // that are here
  std::map<HWND, Dialog> m_dialogs;
  std::deque<Sender*> m_sent;
  std::deque<Message> m_posted;
  std::uintptr_t m_lastHandle = 0;
};

}  // namespace fakes
