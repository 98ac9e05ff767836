/// Where the dropped list of a box stands, and which of its entries are in sight.

#include <array>

#include "controls/ComboBoxTest.h"
#include "simulator/controls/Drawing.h"

namespace {

TEST_F(Box, ListIsBelowTheBoxAndAsHighAsItsEntries) {
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.right, 170);
  EXPECT_EQ(place.top, 52);
  EXPECT_EQ(place.bottom - place.top, 4 * kItemHeight + 2);
}

TEST_F(Box, ListShowsAtMostEightEntries) {
  appendNumbers(20);
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ(place.bottom - place.top, 8 * kItemHeight + 2);
}

TEST_F(Box, ListIsAboveABoxAtTheEndOfTheScreen) {
  ::SetWindowPos(parent(), nullptr, 0, ::GetSystemMetrics(SM_CYSCREEN) - 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  drop();
  EXPECT_EQ(placeOf(list()).bottom, rect.y);
}

TEST_F(Box, ListIsWhereItWasTold) {
  box->SetWndRect({200, 30, 120, 70});
  drop();
  const RECT place = placeOf(list());
  EXPECT_EQ((std::array{place.left, place.top, place.right, place.bottom}), (std::array<LONG, 4>{200, 30, 320, 100}));
  box->SetWndRect({});
  EXPECT_EQ(placeOf(list()).left, 10) << "a dropped list moves";
}

TEST_F(Box, DroppedListGrowsWithItsEntries) {
  drop();
  append({L"more"});
  const RECT place = placeOf(list());
  EXPECT_EQ(place.bottom - place.top, 5 * kItemHeight + 2);
  box->SetWndItem(0);
  EXPECT_EQ(placeOf(list()).bottom - placeOf(list()).top, 5 * 1 + 2) << "at least one pixel";
}

class LongBox : public Box {
 protected:
  void SetUp() override {
    Box::SetUp();
    box->Clear();
    appendNumbers(20);
  }

  HWND scroll() const { return ::GetWindow(list(), GW_CHILD); }
  RECT scrollPlace() const { return placeOf(scroll()); }
  int firstShown() const { return static_cast<int>(::SendMessageW(scroll(), SBM_GETPOS, 0, 0)); }
};

TEST_F(Box, ListThatShowsAllHasNoScrollBar) {
  drop();
  EXPECT_EQ(::GetWindow(list(), GW_CHILD), nullptr);
}

TEST_F(LongBox, ScrollBarIsAtTheRightEdgeUnlessToldOtherwise) {
  drop();
  EXPECT_EQ(scrollPlace().right, 160 - 2);
  box->SetScrollRect({5, 10, 12, 100});
  const RECT place = scrollPlace();
  EXPECT_EQ((std::array{place.left, place.top, place.right, place.bottom}), (std::array<LONG, 4>{5, 10, 17, 110}));
}

TEST_F(LongBox, ChoiceIsInSightWhenTheListDrops) {
  box->SetCurSel(15);
  drop();
  EXPECT_EQ(firstShown(), 8);
  EXPECT_TRUE(colors(list()).contains(asPixel(controls::theme::kAccent)));
}

TEST_F(LongBox, KeysKeepTheChoiceInSight) {
  drop();
  key(window, VK_END);
  EXPECT_EQ(firstShown(), 12);
  key(window, VK_HOME);
  EXPECT_EQ(firstShown(), 0);
}

TEST_F(LongBox, EntriesScrollUnderTheMouse) {
  drop();
  ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_EQ(firstShown(), 2);
  clickEntry(1);
  EXPECT_EQ(box->GetCurSel(), 3);
}

TEST_F(LongBox, WheelOverAShutBoxChangesNothing) {
  box->SetCurSel(3);
  ::SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_EQ(box->GetCurSel(), 3);
}

TEST_F(LongBox, ThumbCanBeDraggedThroughTheList) {
  drop();
  const RECT bar = scrollPlace();
  const HWND dropped = list();
  press(dropped, bar.left + 2, bar.top + 5);
  EXPECT_EQ(::GetCapture(), scroll());
  moveMouse(scroll(), 2, 500);
  EXPECT_EQ(firstShown(), 12);
  release(scroll(), 2, 500);
  EXPECT_EQ(list(), dropped);
  EXPECT_EQ(::GetCapture(), dropped) << "the mouse is the list's again";
  press(dropped, bar.left + 2, bar.top + 5);
  release(scroll(), 2, 5);
  EXPECT_EQ(firstShown(), 4) << "a page up";
  EXPECT_EQ(::GetCapture(), dropped);
  EXPECT_EQ(box->GetCurSel(), -1);
}

}  // namespace
