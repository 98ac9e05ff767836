#pragma once

#include <atomic>
#include <functional>

#include "AppWindow.h"

namespace panel {

/// A window that nobody sees. What the module tells it, on threads of its own, it passes on to the thread that made it.
///
/// A sender's thread uses this object until its message has arrived, which may be long after the module has let go of the task.
/// Whoever made the courier keeps it until `isResting` and lets go of it last, on the thread of the window.
///
/// A sender's thread may fail to start. That throws inside the notice, where nobody could catch it: the message is posted then.
class Courier : public AppWnd::CWnd {
 public:
  /// `inNotice` runs within each notice, on a thread of the module, and answers whether more are wanted. `arrived` runs on the
  /// thread of the window, some time after.
  Courier(std::function<bool()> inNotice, std::function<void()> arrived);

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;
  bool Notice(long code) const override;
  __int64 SendSelfMsg(unsigned msg, unsigned __int64 wParam, __int64 lParam) const override;

  /// No sender is under way.
  bool isResting() const { return m_senders == 0; }

  /// Has `arrived` run soon. On any thread; waits for nothing and starts no thread, so that a destructor may call it.
  static void poke(HWND courier);

 private:
  void passOn(long code) const;

  const std::function<bool()> m_inNotice;
  const std::function<void()> m_arrived;
  mutable std::atomic<int> m_senders{0};
};

}  // namespace panel
