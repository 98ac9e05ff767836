#include "fakes/MessageWindows.h"

#include <gtest/gtest.h>

#include <future>
#include <vector>

namespace {

/// A dialog that notes what it is given, on which thread.
class MessageWindowsTest : public testing::Test {
 protected:
  struct Given {
    UINT id;
    WPARAM wParam;
    bool here;
  };

  HWND newWindow() {
    const auto procedure = [](HWND window, UINT id, WPARAM wParam, LPARAM lParam) -> INT_PTR {
      if (id == WM_INITDIALOG) ::SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
      auto* self = reinterpret_cast<MessageWindowsTest*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
      self->given.push_back({id, wParam, std::this_thread::get_id() == self->m_here});
      return static_cast<INT_PTR>(10 * wParam);
    };
    return ::CreateDialogParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), nullptr, procedure,
                                reinterpret_cast<LPARAM>(this));
  }
  static std::future<LRESULT> sendElsewhere(HWND window, WPARAM wParam) {
    return std::async(std::launch::async, [=] { return ::SendMessageW(window, WM_APP, wParam, 0); });
  }

  fakes::MessageWindows windows;
  const fakes::Installed installed{windows};
  std::vector<Given> given;

 private:
  const std::thread::id m_here = std::this_thread::get_id();
};

TEST_F(MessageWindowsTest, DialogIsToldOfItsParameterAtOnce) {
  newWindow();
  ASSERT_EQ(given.size(), 1U);
  EXPECT_EQ(given[0].id, WM_INITDIALOG);
}

TEST_F(MessageWindowsTest, SenderIsAnsweredWhenTheThreadOfTheWindowHasTakenItsMessage) {
  const HWND window = newWindow();
  auto answer = sendElsewhere(window, 3);
  ASSERT_TRUE(windows.awaitSent(1));
  EXPECT_EQ(given.size(), 1U);

  EXPECT_EQ(windows.takeSent(), 1U);

  EXPECT_EQ(answer.get(), 30);
  EXPECT_TRUE(given.back().here);
}

TEST_F(MessageWindowsTest, PostedAndSentMessagesAreTakenEachByThemselves) {
  const HWND window = newWindow();
  EXPECT_EQ(::PostMessageW(window, WM_APP, 1, 0), TRUE);
  auto answer = sendElsewhere(window, 2);
  ASSERT_TRUE(windows.awaitSent(1));
  ASSERT_TRUE(windows.awaitPosted(1));

  EXPECT_EQ(windows.takePosted(), 1U);
  EXPECT_EQ(given.back().wParam, 1U);
  EXPECT_EQ(windows.takeSent(), 1U);
  EXPECT_EQ(given.back().wParam, 2U);
  EXPECT_EQ(answer.get(), 20);
}

TEST_F(MessageWindowsTest, OwnThreadIsAnsweredAtOnce) {
  const HWND window = newWindow();
  EXPECT_EQ(::SendMessageW(window, WM_APP, 4, 0), 40);
}

TEST_F(MessageWindowsTest, MessagesOfADestroyedWindowComeToNothing) {
  const HWND window = newWindow();
  ::PostMessageW(window, WM_APP, 1, 0);
  auto answer = sendElsewhere(window, 2);
  ASSERT_TRUE(windows.awaitSent(1));

  EXPECT_EQ(std::async(std::launch::async, [=] { return ::DestroyWindow(window); }).get(), FALSE) << "another thread's";
  EXPECT_EQ(::DestroyWindow(window), TRUE);

  EXPECT_EQ(answer.get(), 0);
  EXPECT_EQ(sendElsewhere(window, 3).get(), 0);
  EXPECT_EQ(::PostMessageW(window, WM_APP, 4, 0), FALSE);
  EXPECT_EQ(windows.takePosted(), 0U);
  EXPECT_EQ(windows.takeSent(), 0U);
  EXPECT_EQ(given.size(), 1U);
  EXPECT_EQ(::IsWindow(window), FALSE);
  EXPECT_EQ(windows.count(), 0U);
}

}  // namespace
