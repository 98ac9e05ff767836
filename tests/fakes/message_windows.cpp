#include "fakes/MessageWindows.h"

#include <gtest/gtest.h>

#include <chrono>

namespace fakes {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 20s;
constexpr auto kLookAgain = 2ms;

}  // namespace

MessageWindows::~MessageWindows() {
  std::unique_lock lock(m_mutex);
  EXPECT_TRUE(m_left.wait_for(lock, kPatience, [this] { return m_senders == 0; })) << "a sender waits for its answer";
}

std::size_t MessageWindows::takeSent() {
  std::unique_lock lock(m_mutex);
  const auto count = m_sent.size();
  for (std::size_t taken = 0; taken < count && !m_sent.empty(); ++taken) {  // a procedure may destroy windows
    auto& sender = *m_sent.front();
    m_sent.pop_front();
    lock.unlock();
    const auto answer = give(sender.message);
    lock.lock();
    sender.answer = answer;
    sender.isAnswered = true;
    sender.answered.notify_one();  // under the lock: the sender lives no longer than that
  }
  return count;
}

std::size_t MessageWindows::takePosted() {
  std::deque<Message> taken;
  {
    const std::lock_guard lock(m_mutex);
    taken.swap(m_posted);
  }
  for (const auto& message : taken) give(message);
  return taken.size();
}

std::size_t MessageWindows::sent() const {
  const std::lock_guard lock(m_mutex);
  return m_sent.size();
}

std::size_t MessageWindows::posted() const {
  const std::lock_guard lock(m_mutex);
  return m_posted.size();
}

std::size_t MessageWindows::count() const {
  const std::lock_guard lock(m_mutex);
  return m_dialogs.size();
}

bool MessageWindows::awaitSent(std::size_t count) const {
  std::unique_lock lock(m_mutex);
  return m_arrived.wait_for(lock, kPatience, [&] { return m_sent.size() >= count; });
}

bool MessageWindows::awaitPosted(std::size_t count) const {
  std::unique_lock lock(m_mutex);
  return m_arrived.wait_for(lock, kPatience, [&] { return m_posted.size() >= count; });
}

void MessageWindows::awaitAny() const {
  std::unique_lock lock(m_mutex);
  m_arrived.wait_for(lock, kLookAgain, [&] { return !m_sent.empty() || !m_posted.empty(); });
}

HMODULE MessageWindows::GetModuleHandleW(LPCWSTR /*name*/) { return reinterpret_cast<HMODULE>(this); }

HWND MessageWindows::CreateDialogParamW(HINSTANCE /*instance*/, LPCWSTR /*resource*/, HWND /*parent*/, DLGPROC procedure,
                                        LPARAM parameter) {
  EXPECT_TRUE(isOnItsThread()) << "a window would belong to a thread that takes no messages";
  HWND window = nullptr;
  {
    const std::lock_guard lock(m_mutex);
    m_lastHandle += 2;  // never reused, so that a stale handle is noticed
    window = reinterpret_cast<HWND>(m_lastHandle);
    m_dialogs[window].procedure = procedure;
  }
  give({window, WM_INITDIALOG, 0, parameter});
  return window;
}

BOOL MessageWindows::DestroyWindow(HWND window) {
  if (!isOnItsThread()) return FALSE;
  const std::lock_guard lock(m_mutex);
  if (m_dialogs.erase(window) == 0) return FALSE;
  std::erase_if(m_posted, [&](const Message& message) { return message.window == window; });
  std::erase_if(m_sent, [&](Sender* sender) {
    if (sender->message.window != window) return false;
    sender->isAnswered = true;
    sender->answered.notify_one();
    return true;
  });
  return TRUE;
}

BOOL MessageWindows::IsWindow(HWND window) {
  const std::lock_guard lock(m_mutex);
  return m_dialogs.contains(window);
}

LONG_PTR MessageWindows::GetWindowLongPtrW(HWND window, int index) {
  const std::lock_guard lock(m_mutex);
  const auto dialog = m_dialogs.find(window);
  return dialog == m_dialogs.end() ? 0 : dialog->second.values[index];
}

LONG_PTR MessageWindows::SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
  const std::lock_guard lock(m_mutex);
  const auto dialog = m_dialogs.find(window);
  return dialog == m_dialogs.end() ? 0 : std::exchange(dialog->second.values[index], value);
}

LRESULT MessageWindows::SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  Sender sender{.message = {window, message, wParam, lParam}};
  if (isOnItsThread()) return give(sender.message);
  std::unique_lock lock(m_mutex);
  if (!m_dialogs.contains(window)) return 0;
  ++m_senders;
  m_sent.push_back(&sender);
  m_arrived.notify_all();
  sender.answered.wait(lock, [&] { return sender.isAnswered; });
  --m_senders;
  m_left.notify_all();
  return sender.answer;
}

BOOL MessageWindows::PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const std::lock_guard lock(m_mutex);
  if (!m_dialogs.contains(window)) return FALSE;
  m_posted.push_back({window, message, wParam, lParam});
  m_arrived.notify_all();
  return TRUE;
}

// The procedure runs under no lock: it calls back.
LRESULT MessageWindows::give(const Message& message) {
  DLGPROC procedure = nullptr;
  {
    const std::lock_guard lock(m_mutex);
    const auto dialog = m_dialogs.find(message.window);
    if (dialog == m_dialogs.end()) return 0;
    procedure = dialog->second.procedure;
  }
  return procedure(message.window, message.id, message.wParam, message.lParam);
}

}  // namespace fakes
