/// The time that the panel has to answer.

#include "Messenger.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "wnd/WindowThread.h"

namespace {

using namespace std::chrono_literals;

using paneltest::Messenger;

TEST(MessengerTest, WindowThatIsBusyWhileAnotherOneAnswersIsSilent) {
  const WindowThread other;
  const Messenger messenger(other.parent());
  WindowThread window;
  EXPECT_TRUE(messenger.send(window.parent(), WM_NULL));
  window.makeBusy(10s);  // a message that never counts would be answered then
  EXPECT_FALSE(messenger.send(window.parent(), WM_NULL));
}

TEST(MessengerTest, SecondInWhichNoWindowAnswersDoesNotCount) {
  WindowThread windows;
  const Messenger messenger(windows.child());
  windows.makeBusy(2500ms);
  EXPECT_TRUE(messenger.send(windows.parent(), WM_NULL));
}

TEST(MessengerTest, WindowThatHasGoneIsSilent) {
  const WindowThread other;
  const Messenger messenger(other.parent());
  HWND gone = nullptr;
  {
    const WindowThread window;
    gone = window.parent();
  }
  EXPECT_FALSE(messenger.send(gone, WM_NULL));
}

}  // namespace
