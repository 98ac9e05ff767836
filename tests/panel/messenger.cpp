#include "Messenger.h"

#include <chrono>

namespace paneltest {
namespace {

using std::chrono::steady_clock;

constexpr UINT kLimit = 1000;                 // milliseconds
constexpr DWORD kPause = 20;                  // milliseconds: leaves the other window time for others
constexpr int kGoesOn = kLimit / kPause / 2;  // its answers in that time, at least
constexpr auto kPatience = std::chrono::seconds(20);

bool isAnswered(HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* result) {
  return ::SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kLimit, result) != 0;
}

}  // namespace

Messenger::Messenger(HWND other) : m_thread(&Messenger::beat, this, other) {}

Messenger::~Messenger() {
  m_ending = true;
  m_thread.join();
}

void Messenger::beat(HWND other) {
  while (!m_ending) {
    if (isAnswered(other, WM_NULL, 0, 0, nullptr)) ++m_answered;
    ::Sleep(kPause);
  }
}

bool Messenger::send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* result) const {
  const auto deadline = steady_clock::now() + kPatience;
  for (;;) {
    const int before = m_answered;
    if (isAnswered(window, message, wParam, lParam, result)) return true;
    const bool timedOut = ::GetLastError() == ERROR_TIMEOUT;  // a window that has gone fails at once
    if (!timedOut || m_answered - before >= kGoesOn || steady_clock::now() >= deadline) return false;
  }
}

}  // namespace paneltest
