#include <gtest/gtest.h>

#include <memory>

#include "BaseWindow.h"
#include "wnd/DialogPlatform.h"

namespace {

class Dialog : public BaseWnd::BaseDlgWnd {
 public:
  using BaseDlgWnd::CreateWnd;
  bool Create(HWND parent) override { return CreateWnd(handle<HINSTANCE>(5), parent, 77); }
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override {
    messages.push_back(std::to_string(msg) + ' ' + std::to_string(wParam) + ' ' + std::to_string(lParam));
    return 12;
  }
  Calls messages;
};

TEST(BaseDlgWnd, CreateWndMakesTheDialogOfTheResourceAndKeepsItsHandle) {
  OnWindow<Dialog> on;
  on.platform.answer("CreateDialogParamW", 9);

  EXPECT_TRUE(on.window.Create(handle(6)));

  EXPECT_EQ(on.platform.calls(), Calls{"CreateDialogParamW(5, 77, 6)"});
  EXPECT_EQ(on.window.GetWnd(), handle(9));
  EXPECT_EQ(on.platform.dialogParameter, reinterpret_cast<LPARAM>(static_cast<BaseWnd::BaseDlgWnd*>(&on.window)));
  EXPECT_NE(on.platform.dialogProcedure, nullptr);
}

TEST(BaseDlgWnd, CreateWndIsFalseWithoutAWindow) {
  OnWindow<Dialog> on;
  EXPECT_FALSE(on.window.Create(handle(6)));
  EXPECT_EQ(on.window.GetWnd(), nullptr);
}

TEST(BaseDlgWnd, CreateWndPassesTheHighestResourceIdWhole) {
  OnWindow<Dialog> on;
  on.window.CreateWnd(nullptr, nullptr, 65535);
  EXPECT_EQ(on.platform.calls(), Calls{"CreateDialogParamW(null, 65535, null)"});
}

TEST(BaseDlgWnd, DestroyDestroysTheWindowAndLetsItGo) {
  OnWindow<Dialog> on;
  on.platform.answer("IsWindow", 1);

  on.window.Destroy();
  on.window.Destroy();

  EXPECT_EQ(on.platform.calls(), (Calls{"IsWindow(1)", "DestroyWindow(1)"}));
  EXPECT_EQ(on.window.GetWnd(), nullptr);
}

TEST(BaseDlgWnd, DestroyLeavesWhatIsNoWindow) {
  OnWindow<Dialog> on;
  on.window.Destroy();
  EXPECT_EQ(on.platform.calls(), Calls{"IsWindow(1)"});
  EXPECT_EQ(on.window.GetWnd(), handle(1));
}

Calls callsOfDestruction(HWND window, bool isWindow) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", isWindow);
  { Dialog().SetWnd(window); }
  return platform.calls();
}

TEST(BaseDlgWnd, DestructorDestroysTheWindow) {
  EXPECT_EQ(callsOfDestruction(handle(1), true), (Calls{"IsWindow(1)", "DestroyWindow(1)"}));
  EXPECT_EQ(callsOfDestruction(handle(1), false), Calls{"IsWindow(1)"});
  EXPECT_EQ(callsOfDestruction(nullptr, true), Calls{});
}

class SaysItIsNoWindow : public Dialog {
 public:
  bool IsWindow() const override { return false; }
};

TEST(BaseDlgWnd, DestroyAsksTheTableWhetherThereIsAWindow) {
  OnWindow<SaysItIsNoWindow> on;
  on.platform.answer("IsWindow", 1);
  on.window.Destroy();
  EXPECT_TRUE(on.platform.calls().empty());
}

TEST(BaseDlgWnd, DestructorAsksItsOwnClassWhetherThereIsAWindow) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", 1);
  { SaysItIsNoWindow().SetWnd(handle(1)); }
  EXPECT_EQ(platform.calls(), (Calls{"IsWindow(1)", "DestroyWindow(1)"}));
}

class DialogProcedureTest : public testing::Test {
 protected:
  DialogProcedureTest() {
    platform.answer("CreateDialogParamW", 9);
    platform.answer("IsWindow", 1);
    dialog->Create(nullptr);
    procedure = platform.dialogProcedure;
  }

  void initialise() {
    dialog->SetWnd(nullptr);  // the first message comes before the handle is known
    procedure(handle(9), WM_INITDIALOG, 3, platform.dialogParameter);
  }

  DialogPlatform platform;
  const fakes::Installed installed{platform};
  std::unique_ptr<Dialog> dialog = std::make_unique<Dialog>();
  DLGPROC procedure = nullptr;
};

TEST_F(DialogProcedureTest, GivesMessagesToTheDialogOnceItIsInitialised) {
  EXPECT_EQ(procedure(handle(9), 1, 2, 3), FALSE);  // too early
  EXPECT_TRUE(dialog->messages.empty());

  initialise();
  EXPECT_EQ(dialog->GetWnd(), handle(9));
  EXPECT_EQ(procedure(handle(9), 1, 2, -3), 12);

  ASSERT_EQ(dialog->messages.size(), 2U);
  EXPECT_EQ(dialog->messages[0].substr(0, 6), "272 3 ");
  EXPECT_EQ(dialog->messages[1], "1 2 -3");
}

TEST_F(DialogProcedureTest, DestroyStillGivesTheLastMessagesToTheDialog) {
  initialise();
  dialog->Destroy();
  EXPECT_EQ(dialog->messages.back(), "2 0 0");
  EXPECT_EQ(dialog->GetWnd(), nullptr);
}

TEST_F(DialogProcedureTest, DestructorGivesTheLastMessagesToNobody) {
  initialise();
  dialog.reset();  // the class that has a RunProc is gone by the time the window is destroyed
  EXPECT_EQ(platform.whileEnding, FALSE);
}

}  // namespace
