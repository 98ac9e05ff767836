#include <gtest/gtest.h>

#include "BaseWindow.h"
#include "wnd/ControlFields.h"
#include "wnd/WindowCalls.h"

namespace {

using BaseWnd::BaseCtrlStd;

// Notes the user data and the procedure that the control is given.
class ControlPlatform : public WindowCalls {
 public:
  ControlPlatform() {
    answer("GetDlgItem", 9);
    answer("SetWindowLongPtrW", 55);  // the former procedure
  }
  LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) override {
    (index == GWLP_USERDATA ? userData : procedure) = value;
    return WindowCalls::SetWindowLongPtrW(window, index, 0);
  }
  LONG_PTR userData = 0;
  LONG_PTR procedure = 0;
};

// The former procedure, as a number of the platform's.
WNDPROC procedure(std::uintptr_t number) { return reinterpret_cast<WNDPROC>(number); }

TEST(BaseCtrlStd, KeepsNothingAtFirst) {
  const BaseCtrlStd control;
  EXPECT_EQ(control.GetWnd(), nullptr);
  EXPECT_EQ(idOf(control), 0);
  EXPECT_EQ(dataOf(control), nullptr);
  EXPECT_EQ(previousProcOf(control), nullptr);
}

TEST(BaseCtrlStd, TakesTheControlOverAndKeepsItsProcedure) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  BaseCtrlStd control;

  EXPECT_TRUE(control.GetDlgItem(handle(4), 1001));
  EXPECT_EQ(platform.calls(), (Calls{"GetDlgItem(4, 1001)", "SetWindowLongPtrW(9, -21, 0)", "SetWindowLongPtrW(9, -4, 0)"}));
  EXPECT_EQ(control.GetWnd(), handle(9));
  EXPECT_EQ(platform.userData, reinterpret_cast<LONG_PTR>(&control));
  EXPECT_NE(platform.procedure, 0);
}

TEST(BaseCtrlStd, KeepsTheIdentifierAndTheFormerProcedure) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  control.GetDlgItem(handle(4), -1001);
  EXPECT_EQ(idOf(control), -1001);
  EXPECT_EQ(previousProcOf(control), procedure(55));
  EXPECT_EQ(dataOf(control), nullptr) << "not this class's to set";
}

TEST(BaseCtrlStd, NextControlTakesTheFormersPlace) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  control.GetDlgItem(handle(4), 1001);
  platform.answer("GetDlgItem", 10);
  platform.answer("SetWindowLongPtrW", 66);
  EXPECT_TRUE(control.GetDlgItem(handle(4), 1002));
  EXPECT_EQ(control.GetWnd(), handle(10));
  EXPECT_EQ(idOf(control), 1002);
  EXPECT_EQ(previousProcOf(control), procedure(66));
  EXPECT_EQ(dataOf(control), nullptr);
}

TEST(BaseCtrlStd, MessagesAndTheEndOfTheControlChangeNothingThatItKeeps) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  control.GetDlgItem(handle(4), 1001);
  control.RunProc(1, 2, 3);
  control.Destroy();
  EXPECT_EQ(idOf(control), 1001);
  EXPECT_EQ(previousProcOf(control), procedure(55));
  EXPECT_EQ(dataOf(control), nullptr);
}

TEST(BaseCtrlStd, RunProcHandsTheMessageToTheFormerProcedure) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  control.GetDlgItem(handle(4), 1001);
  platform.answer("CallWindowProcW", 0x123456789LL);

  EXPECT_EQ(control.RunProc(1, 2, -3), 0x123456789LL);
  EXPECT_EQ(platform.calls().back(), "CallWindowProcW(55, 9, 1, 2, -3)");
}

TEST(BaseCtrlStd, IsFalseWithoutAControl) {
  ControlPlatform platform;
  platform.answer("GetDlgItem", 0);
  platform.answer("SetWindowLongPtrW", 0);
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  EXPECT_FALSE(control.GetDlgItem(handle(4), 1001));
  EXPECT_EQ(control.GetWnd(), nullptr);
  EXPECT_EQ(idOf(control), 1001);
  EXPECT_EQ(previousProcOf(control), nullptr);
}

TEST(BaseCtrlStd, GoesAllTheWayAlsoWithoutAControl) {
  ControlPlatform platform;
  platform.answer("GetDlgItem", 0);
  const fakes::Installed installed(platform);
  BaseCtrlStd control;
  control.GetDlgItem(handle(4), 1001);
  ASSERT_EQ(platform.calls().size(), 3U);
  EXPECT_EQ(platform.calls()[0], "GetDlgItem(4, 1001)");
  EXPECT_EQ(platform.calls()[1].substr(0, 28), "SetWindowLongPtrW(null, -21,");
  EXPECT_EQ(platform.calls()[2].substr(0, 27), "SetWindowLongPtrW(null, -4,");
}

TEST(BaseCtrlStd, RestoresAndDestroysNothing) {
  ControlPlatform platform;
  const fakes::Installed installed(platform);
  {
    BaseCtrlStd control;
    control.GetDlgItem(handle(4), 1001);
    control.Destroy();
    EXPECT_EQ(control.GetWnd(), handle(9));
  }
  EXPECT_EQ(platform.calls().size(), 3U);
}

}  // namespace
