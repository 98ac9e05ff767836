/// Every control class through the module's import library. What the controls do is tested in `controls/`; here each must be
/// there to link, and be the module's own.

#include <gtest/gtest.h>

#include <memory>

#include "AppCommunication.h"
#include "module/InModule.h"

namespace {

constexpr std::int32_t kId = 42;
const qzstd::Rect kRect{10, 10, 120, 200};
const qzstd::Text kText{L"caption"};

/// Ended through the base, so that the deleting destructor is the module's.
void expectModulesOwn(std::unique_ptr<AppWnd::CtrlWnd> control) {
  EXPECT_TRUE(isInModule(*reinterpret_cast<const void* const*>(control.get()))) << "the virtual table";
  EXPECT_FALSE(control->IsWindow());
}

template <class Button>
class ExportedButton : public testing::Test {};

using Buttons =
    testing::Types<AppWnd::BtnBase, AppWnd::BtnAddPrinter, AppWnd::BtnBorder, AppWnd::BtnCfg, AppWnd::BtnCheck, AppWnd::BtnCls,
                   AppWnd::BtnExpand, AppWnd::BtnGradual, AppWnd::BtnLabel, AppWnd::BtnMin, AppWnd::BtnNew, AppWnd::BtnRadio,
                   AppWnd::BtnRadioRound, AppWnd::BtnRefresh, AppWnd::BtnRefreshState, AppWnd::BtnReturn, AppWnd::BtnRoundArrow,
                   AppWnd::BtnSet, AppWnd::BtnSetWifi>;
TYPED_TEST_SUITE(ExportedButton, Buttons);

TYPED_TEST(ExportedButton, KeepsWhatItIsTold) {
  auto button = std::make_unique<TypeParam>(kId, kRect, &kText);
  button->SetClick(true);
  EXPECT_TRUE(button->GetClick());
  button->SetEnable(false);
  EXPECT_FALSE(button->GetEnable());
  button->SetBgColor(RGB(1, 2, 3));
  button->SetText(kText);
  button->SetTop(5);
  expectModulesOwn(std::move(button));
}

template <class Button>
class ExportedGrayButton : public testing::Test {};

using GrayButtons = testing::Types<AppWnd::BtnRefreshState, AppWnd::BtnSetWifi>;
TYPED_TEST_SUITE(ExportedGrayButton, GrayButtons);

TYPED_TEST(ExportedGrayButton, CanBeGray) {
  TypeParam button(kId, kRect, &kText);
  EXPECT_FALSE(button.GetGray());
  button.SetGray(true);
  EXPECT_TRUE(button.GetGray());
}

TEST(ExportedColoredButtons, TakeTheirColorAndText) {
  AppWnd::BtnLabel label(kId, kRect, &kText);
  label.SetColor(RGB(1, 2, 3));
  label.Settx(kText);
  AppWnd::BtnSet set(kId, kRect, &kText);
  set.SetColor(RGB(1, 2, 3));
  set.SetClick(true);
  EXPECT_TRUE(set.GetClick());
  EXPECT_FALSE(label.GetClick());
}

TEST(ExportedComBox, KeepsItsEntriesAndTheChoice) {
  auto box = std::make_unique<AppWnd::ComBox>(kId, kRect);
  box->Append(kText);
  box->Append(kText);
  EXPECT_EQ(box->GetCurSel(), -1);
  box->SetCurSel(1);
  EXPECT_EQ(box->GetCurSel(), 1);
  box->Clear();
  EXPECT_EQ(box->GetCurSel(), -1);
  box->SetColor(RGB(1, 2, 3));
  box->SetScrollRect(kRect);
  box->SetWndItem(20);
  box->SetWndRect(kRect);
  expectModulesOwn(std::move(box));
}

template <class Edit>
class ExportedEdit : public testing::Test {};

using Edits = testing::Types<AppWnd::EditBase, AppWnd::EditAlarm, AppWnd::EditCIP, AppWnd::EditCPwd>;
TYPED_TEST_SUITE(ExportedEdit, Edits);

TYPED_TEST(ExportedEdit, KeepsItsText) {
  auto edit = std::make_unique<TypeParam>(kRect, &kText);
  EXPECT_EQ(edit->GetWstr(), L"caption");
  edit->SetWstr(L"other");
  EXPECT_EQ(edit->GetWstr(), L"other");
  edit->SetColor(RGB(1, 2, 3));
  edit->SetDisable();
  edit->SetEnable();
  edit->SetCaretPos(2);
  edit->CreateCaret();
  edit->ShowCaret();
  edit->HideCaret();
  edit->DestroyCaret();
  edit->SetFocus();
  expectModulesOwn(std::move(edit));
}

TEST(ExportedEditCIP, JudgesItsAddress) {
  AppWnd::EditCIP edit(kRect, nullptr);
  edit.SetWstr(L"192.168.1.20");
  EXPECT_TRUE(edit.GetIpValid());
  edit.SetIpValid(false);
  EXPECT_FALSE(edit.GetIpValid());
}

TEST(ExportedEditCPwd, IsEmptied) {
  AppWnd::EditCPwd edit(kRect, &kText);
  edit.Clear();
  EXPECT_EQ(edit.GetWstr(), L"");
}

TEST(ExportedLabels, AreEndedThroughTheirBase) {
  expectModulesOwn(std::make_unique<AppWnd::Label>(kRect, &kText));
  expectModulesOwn(std::make_unique<AppWnd::LabelNum>(kRect, &kText));
  expectModulesOwn(std::make_unique<AppWnd::LabelPath>(kRect, &kText));
}

TEST(ExportedLabels, ALabelHasNoWindowWithoutAParent) {
  AppWnd::Label label(kRect, &kText);
  EXPECT_FALSE(label.Create(nullptr));
  EXPECT_EQ(label.RunProc(WM_NULL, 0, 0), 0);
  EXPECT_EQ(label.GetWnd(), nullptr);
}

TEST(ExportedLabels, ANumberTakesItsColorsAndItsValue) {
  AppWnd::LabelNum number(kRect, &kText);
  number.SetBgColor(RGB(1, 2, 3));
  number.SetEnable(false);
  number.SetNum(7);
  EXPECT_FALSE(number.IsWindow());
}

TEST(ExportedLabels, APathKeepsItsText) {
  AppWnd::LabelPath path(kRect, nullptr);
  path.SetBgColor(RGB(1, 2, 3));
  path.SetBrdColor(RGB(1, 2, 3));
  path.SetPath(L"C:\\log");
  EXPECT_EQ(path.GetPath(), L"C:\\log");
}

TEST(ExportedScroll, HasItsFirstRangeAndThumb) {
  auto scroll = std::make_unique<AppWnd::Scroll>(kRect);
  EXPECT_EQ(scroll->GetMax(), 100);
  EXPECT_EQ(scroll->GetPage(), 10);
  EXPECT_EQ(scroll->GetPos(), 0);
  EXPECT_EQ(scroll->GetThumbPos(), 0);
  EXPECT_GT(scroll->GetThumbSize(), 0);
  scroll->SetBgColor(RGB(1, 2, 3));
  scroll->SetMouseDownColor(RGB(1, 2, 3));
  scroll->SetMouseMoveColor(RGB(1, 2, 3));
  scroll->SetMouseUpColor(RGB(1, 2, 3));
  expectModulesOwn(std::move(scroll));
}

TEST(ExportedSlider, KeepsItsPosition) {
  auto slider = std::make_unique<AppWnd::Slider>(kId, kRect);
  slider->SetPos(200);
  EXPECT_EQ(slider->GetPos(), 100);
  EXPECT_TRUE(slider->GetEnable());
  EXPECT_FALSE(slider->GetMove());
  expectModulesOwn(std::move(slider));
}

}  // namespace
