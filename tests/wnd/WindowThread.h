#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <tuple>
#include <vector>

#include "AppWindow.h"
#include "support/PlainWindow.h"

inline constexpr UINT kBusy = WM_APP;  // keeps the thread of the windows busy until `letGo`
inline constexpr UINT kQuit = WM_APP + 1;
inline constexpr UINT kFirst = WM_APP + 2;
inline constexpr UINT kSecond = WM_APP + 3;
inline constexpr LRESULT kAnswer = 0x123456789ALL;

struct Message {
  HWND window;
  UINT id;
  WPARAM wParam;
  LPARAM lParam;
  DWORD thread;

  auto key() const { return std::tuple(window, id, wParam, lParam); }
  bool operator<(const Message& other) const { return key() < other.key(); }
  bool operator==(const Message& other) const { return key() == other.key(); }
};

/// A parent and its child on a thread that serves their messages.
class WindowThread {
 public:
  WindowThread() {
    m_thread = std::thread([this] { serve(); });
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_ready; });
  }
  ~WindowThread() {
    letGo();
    ::PostMessageW(m_parent, kQuit, 0, 0);
    m_thread.join();
  }

  HWND parent() const { return m_parent; }
  HWND child() const { return m_child; }
  DWORD id() const { return m_threadId; }

  /// Returns when the thread is busy: from now on it takes no message until `letGo`, or for `limit`.
  void makeBusy(std::chrono::milliseconds limit = std::chrono::minutes(5)) {
    m_limit = limit;
    ::PostMessageW(m_parent, kBusy, 0, 0);
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_busy; });
  }
  void letGo() {
    const std::lock_guard lock(m_mutex);
    m_released = true;
    m_changed.notify_all();
  }

  std::size_t received() {
    const std::lock_guard lock(m_mutex);
    return m_messages.size();
  }
  /// The messages, sorted, once there are `count`.
  std::vector<Message> await(std::size_t count) {
    std::unique_lock lock(m_mutex);
    EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::seconds(60), [&] { return m_messages.size() >= count; }))
        << m_messages.size() << " came";
    auto messages = m_messages;
    std::sort(messages.begin(), messages.end());
    return messages;
  }

 private:
  static constexpr const wchar_t* kClass = L"AppCommunicationTestWindow";

  static LRESULT CALLBACK procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<WindowThread*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr || id < WM_APP) return ::DefWindowProcW(window, id, wParam, lParam);
    return self->take({window, id, wParam, lParam, ::GetCurrentThreadId()});
  }

  LRESULT take(const Message& message) {
    if (message.id == kQuit) {
      ::PostQuitMessage(0);
      return 0;
    }
    std::unique_lock lock(m_mutex);
    if (message.id == kBusy) {
      m_busy = true;
      m_changed.notify_all();
      m_changed.wait_for(lock, m_limit, [&] { return m_released; });
      m_busy = false;
      return 0;
    }
    m_messages.push_back(message);
    m_changed.notify_all();
    return kAnswer;
  }

  HWND make(DWORD style) {
    const HWND window =
        ::CreateWindowExW(0, kClass, L"", style, 0, 0, 10, 10, HWND_MESSAGE, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return window;
  }

  void serve() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    ::RegisterClassW(&windowClass);
    m_parent = make(0);
    m_child = make(WS_CHILD);
    ::SetParent(m_child, m_parent);  // afterwards: a window made as the child of another one would need a display
    m_threadId = ::GetCurrentThreadId();
    {
      const std::lock_guard lock(m_mutex);
      m_ready = true;
      m_changed.notify_all();
    }
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    ::DestroyWindow(m_parent);
    ::UnregisterClassW(kClass, windowClass.hInstance);
  }

  std::thread m_thread;
  HWND m_parent = nullptr;
  HWND m_child = nullptr;
  DWORD m_threadId = 0;

  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_ready = false;
  bool m_busy = false;
  std::chrono::milliseconds m_limit{};
  bool m_released = false;
  std::vector<Message> m_messages;
};

/// A wrapper of the child that leaves the window to the thread that made it.
class ChildWindow : public support::PlainWindow {
 public:
  explicit ChildWindow(HWND window) { SetWnd(window); }
  ~ChildWindow() override { SetWnd(nullptr); }
};
