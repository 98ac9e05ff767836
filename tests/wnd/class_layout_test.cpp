/// The order of the virtual tables and the places of the members: part of the interface with the application and with the
/// control library.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "AppWindow.h"
#include "BaseWindow.h"

namespace {

using AppWnd::CDlgWnd;
using AppWnd::CtrlWnd;
using AppWnd::CWnd;
using BaseWnd::BaseCtrlStd;
using BaseWnd::BaseDlgBox;
using BaseWnd::BaseDlgWnd;
using BaseWnd::BaseWindow;

static_assert(std::is_same_v<__int64, long long> && sizeof(unsigned __int64) == 8);
static_assert(std::is_polymorphic_v<BaseWindow> && std::has_virtual_destructor_v<BaseWindow>);
static_assert(std::is_abstract_v<BaseDlgWnd> && std::is_abstract_v<BaseDlgBox> && std::is_abstract_v<CWnd>);
static_assert(std::is_base_of_v<BaseWindow, BaseDlgWnd> && std::is_base_of_v<BaseWindow, BaseDlgBox> &&
              std::is_base_of_v<BaseWindow, BaseCtrlStd> && std::is_base_of_v<BaseDlgWnd, CWnd> &&
              std::is_base_of_v<BaseDlgWnd, CDlgWnd> && std::is_base_of_v<BaseDlgWnd, CtrlWnd>);
static_assert(std::is_abstract_v<CDlgWnd> && std::is_abstract_v<CtrlWnd>);

// A pointer to a virtual member holds one more than the offset of its slot; the destructor has the first two slots.
template <class Member>
std::size_t slot(Member member) {
  std::uintptr_t word = 0;
  std::memcpy(&word, &member, sizeof word);
  return (word - 1) / sizeof(void*);
}

template <class Class, class... Arguments>
using Const = void (Class::*)(Arguments...) const;

TEST(BaseWindowTable, HasTheOperationsInTheirOrder) {
  const std::size_t slots[] = {slot(&BaseWindow::Destroy),
                               slot(&BaseWindow::Notice),
                               slot(&BaseWindow::SendParentMsg),
                               slot(&BaseWindow::SendSelfMsg),
                               slot(static_cast<Const<BaseWindow>>(&BaseWindow::Show)),
                               slot(static_cast<Const<BaseWindow, int>>(&BaseWindow::Show)),
                               slot(&BaseWindow::Hide),
                               slot(&BaseWindow::IsVisible),
                               slot(&BaseWindow::Enable),
                               slot(&BaseWindow::Disable),
                               slot(&BaseWindow::IsEnable),
                               slot(&BaseWindow::IsWindow),
                               slot(static_cast<Const<BaseWindow, int, int, int, int>>(&BaseWindow::Move)),
                               slot(static_cast<Const<BaseWindow, const RECT&>>(&BaseWindow::Move)),
                               slot(&BaseWindow::ReDraw),
                               slot(&BaseWindow::GetClientRect),
                               slot(&BaseWindow::GetClientSize)};
  for (std::size_t index = 0; index < std::size(slots); ++index) EXPECT_EQ(slots[index], index + 2) << index;
}

TEST(DerivedTables, AddTheirOperationsAfterThoseOfTheBase) {
  constexpr std::size_t kFirst = 19;
  EXPECT_EQ(slot(&BaseDlgWnd::Create), kFirst);
  EXPECT_EQ(slot(&BaseDlgWnd::RunProc), kFirst + 1);
  EXPECT_EQ(slot(static_cast<bool (BaseDlgBox::*)(HWND)>(&BaseDlgBox::Create)), kFirst);
  EXPECT_EQ(slot(&BaseDlgBox::RunProc), kFirst + 1);
  EXPECT_EQ(slot(&BaseCtrlStd::GetDlgItem), kFirst);
  EXPECT_EQ(slot(&BaseCtrlStd::RunProc), kFirst + 1);
  EXPECT_EQ(slot(&CWnd::ThreadToParent), kFirst + 2);
  EXPECT_EQ(slot(&CWnd::ThreadToSelf), kFirst + 3);
  EXPECT_EQ(slot(&CDlgWnd::ThreadToParent), kFirst + 2);
  EXPECT_EQ(slot(&CDlgWnd::ThreadToSelf), kFirst + 3);
}

#if defined(_WIN32)
// `long` has 32 bits here only.
static_assert(sizeof(long) == 4 && sizeof(HWND) == 8);
static_assert(sizeof(BaseWindow) == 16);   // table, handle
static_assert(sizeof(BaseDlgWnd) == 16);   // nothing of its own
static_assert(sizeof(BaseDlgBox) == 24);   // two values of 32 bits
static_assert(sizeof(BaseCtrlStd) == 40);  // identifier, one pointer-sized field, the former procedure
static_assert(sizeof(CWnd) == 24);         // the rectangle's address
static_assert(sizeof(CDlgWnd) == 24);
static_assert(sizeof(CtrlWnd) == 32);  // two fields of the control library, the rectangle's address

class Values : public BaseDlgBox {
 public:
  Values() : BaseDlgBox(0x11111111, 0x22222222) {}
  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
};

template <class Value>
Value at(const void* object, std::size_t offset) {
  Value value{};
  std::memcpy(&value, static_cast<const char*>(object) + offset, sizeof value);
  return value;
}

TEST(Layout, TheHandleFollowsTheTable) {
  BaseWindow window;
  window.SetWnd(reinterpret_cast<HWND>(0x1234));
  EXPECT_EQ(at<std::uint64_t>(&window, 8), 0x1234U);
}

TEST(Layout, TheTwoValuesOfADialogBoxFollowTheHandle) {
  const Values values;
  EXPECT_EQ(at<std::uint32_t>(&values, 16), 0x11111111U);
  EXPECT_EQ(at<std::uint32_t>(&values, 20), 0x22222222U);
}

template <class Base>
class Window : public Base {
 public:
  using Base::Base;
  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
};

TEST(Layout, TheRectanglesAddressComesLast) {
  const qzstd::Rect rect;
  const Window<CWnd> window(rect);
  const Window<CDlgWnd> dialog(rect);
  const Window<CtrlWnd> control(rect);
  EXPECT_EQ(at<const qzstd::Rect*>(&window, 16), &rect);
  EXPECT_EQ(at<const qzstd::Rect*>(&dialog, 16), &rect);
  EXPECT_EQ(at<const qzstd::Rect*>(&control, 24), &rect);
}

TEST(Layout, AControlIsAllZeroAfterConstruction) {
  alignas(BaseCtrlStd) unsigned char memory[sizeof(BaseCtrlStd)];
  std::memset(memory, 0xAB, sizeof memory);
  auto* control = new (memory) BaseCtrlStd;
  EXPECT_EQ(at<std::uint64_t>(control, 8), 0U);
  EXPECT_EQ(at<std::uint32_t>(control, 16), 0U);
  EXPECT_EQ(at<std::uint64_t>(control, 24), 0U);
  EXPECT_EQ(at<std::uint64_t>(control, 32), 0U);
  control->~BaseCtrlStd();
}
#endif

}  // namespace
