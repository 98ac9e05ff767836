#include <gtest/gtest.h>

#include <memory>

#include "BaseWindow.h"
#include "wnd/DialogPlatform.h"

namespace {

class Box : public BaseWnd::BaseDlgBox {
 public:
  explicit Box(long first = 0, long second = 0) : BaseDlgBox(first, second) {}
  using BaseDlgBox::EndDialog;
  bool Create(HWND parent) override { return BaseDlgBox::Create(handle<HINSTANCE>(5), parent, 77); }
  __int64 RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override {
    messages.push_back(msg);
    return 12;
  }
  std::vector<unsigned> messages;

  long first() const { return m_first; }
  long second() const { return m_second; }
};

TEST(BaseDlgBox, KeepsItsTwoValues) {
  const Box box(-4, 2147483647);
  EXPECT_EQ(box.first(), -4);
  EXPECT_EQ(box.second(), 2147483647);
  EXPECT_EQ(box.GetWnd(), nullptr);
}

TEST(BaseDlgBox, CreateRunsTheDialogOfTheResource) {
  OnWindow<Box> on;
  on.window.Create(handle(6));
  EXPECT_EQ(on.platform.calls(), Calls{"DialogBoxParamW(5, 77, 6)"});
  EXPECT_EQ(on.platform.dialogParameter, reinterpret_cast<LPARAM>(static_cast<BaseWnd::BaseDlgBox*>(&on.window)));
  EXPECT_NE(on.platform.dialogProcedure, nullptr);
}

TEST(BaseDlgBox, CreateIsTrueOnlyWhenTheDialogEndsWithOne) {
  for (const long long result : {1LL, 0LL, 2LL, -1LL, 0x100000001LL}) {
    SCOPED_TRACE(result);
    OnWindow<Box> on;
    on.platform.answer("DialogBoxParamW", result);
    EXPECT_EQ(on.window.Create(nullptr), result == 1);
  }
}

TEST(BaseDlgBox, EndDialogEndsWithTheResultAndLetsTheWindowGo) {
  OnWindow<Box> on;
  on.platform.answer("IsWindow", 1);
  on.window.EndDialog(0x100000002LL);
  on.window.EndDialog(3);
  EXPECT_EQ(on.platform.calls(), (Calls{"IsWindow(1)", "EndDialog(1, 4294967298)"}));
  EXPECT_EQ(on.window.GetWnd(), nullptr);
}

TEST(BaseDlgBox, EndDialogLeavesWhatIsNoWindow) {
  OnWindow<Box> on;
  on.window.EndDialog(2);
  EXPECT_EQ(on.platform.calls(), Calls{"IsWindow(1)"});
  EXPECT_EQ(on.window.GetWnd(), handle(1));
}

class SaysItIsAWindow : public Box {
 public:
  bool IsWindow() const override { return true; }
};

TEST(BaseDlgBox, EndDialogAsksTheTableWhetherThereIsAWindow) {
  OnWindow<SaysItIsAWindow> on;
  on.window.EndDialog(2);
  EXPECT_EQ(on.platform.calls(), Calls{"EndDialog(1, 2)"});
}

TEST(BaseDlgBox, DestroyEndsTheDialogWithOne) {
  OnWindow<Box> on;
  on.platform.answer("IsWindow", 1);
  on.window.Destroy();
  EXPECT_EQ(on.platform.calls(), (Calls{"IsWindow(1)", "EndDialog(1, 1)"}));
  EXPECT_EQ(on.window.GetWnd(), nullptr);
}

TEST(BaseDlgBox, DestructorEndsTheDialogWithOne) {
  WindowCalls platform;
  const fakes::Installed installed(platform);
  platform.answer("IsWindow", 1);
  { Box().SetWnd(handle(1)); }
  EXPECT_EQ(platform.calls(), (Calls{"IsWindow(1)", "EndDialog(1, 1)"}));
}

class BoxProcedureTest : public testing::Test {
 protected:
  BoxProcedureTest() {
    platform.answer("IsWindow", 1);
    box->Create(nullptr);
    procedure = platform.dialogProcedure;
    procedure(handle(9), WM_INITDIALOG, 0, platform.dialogParameter);
  }

  DialogPlatform platform;
  const fakes::Installed installed{platform};
  std::unique_ptr<Box> box = std::make_unique<Box>();
  DLGPROC procedure = nullptr;
};

TEST_F(BoxProcedureTest, GivesMessagesToTheBoxAlsoAfterItWasToldToEnd) {
  EXPECT_EQ(box->GetWnd(), handle(9));
  box->EndDialog(2);
  EXPECT_EQ(box->GetWnd(), nullptr);
  EXPECT_EQ(procedure(handle(9), DialogPlatform::kDestroyed, 0, 0), 12);
  EXPECT_EQ(box->messages, (std::vector<unsigned>{WM_INITDIALOG, DialogPlatform::kHidden, DialogPlatform::kDestroyed}));
}

TEST_F(BoxProcedureTest, DestructorGivesTheLastMessagesToNobody) {
  box.reset();  // the class that has a RunProc is gone by the time the dialog is ended
  EXPECT_EQ(platform.whileEnding, FALSE);
  EXPECT_EQ(procedure(handle(9), DialogPlatform::kDestroyed, 0, 0), FALSE);
}

}  // namespace
