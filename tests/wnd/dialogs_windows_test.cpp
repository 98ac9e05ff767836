/// Real dialogs from a resource, on a display: what the host's tests see as calls, seen in the system.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "AppWindow.h"
#include "BaseWindow.h"
#include "wnd/ControlFields.h"

namespace {

constexpr unsigned short kDialog = 101;
constexpr unsigned short kNoDialog = 102;
constexpr int kEdit = 11;

HINSTANCE ownInstance() { return ::GetModuleHandleW(nullptr); }

std::wstring textOf(HWND window) {
  wchar_t text[100]{};
  ::GetWindowTextW(window, text, 100);
  return text;
}

/// Placed by `Move`, and told of all its messages.
class Window : public AppWnd::CWnd {
 public:
  using CWnd::CWnd;
  bool Create(HWND parent) override { return CreateWnd(ownInstance(), parent, kDialog); }
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override {
    messages.push_back(msg);
    if (msg != WM_APP) return FALSE;
    ::SetWindowLongPtrW(GetWnd(), DWLP_MSGRESULT, static_cast<LONG_PTR>(wParam) + lParam);
    return TRUE;
  }
  bool createFrom(unsigned short resource) { return CreateWnd(ownInstance(), nullptr, resource); }

  std::vector<unsigned> messages;
};

class RealDialog : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(window->Create(nullptr)) << "is there a display? error " << ::GetLastError(); }

  RECT place() const {
    RECT corners{};
    ::GetWindowRect(window->GetWnd(), &corners);
    return corners;
  }

  qzstd::Rect rect{20, 30, 300, 200};
  std::unique_ptr<Window> window = std::make_unique<Window>(rect);
};

TEST_F(RealDialog, IsMadeFromItsResourceAndInitialisedThroughRunProc) {
  EXPECT_TRUE(window->IsWindow());
  EXPECT_EQ(textOf(window->GetWnd()), L"dialog of a test");
  ASSERT_FALSE(window->messages.empty());
  EXPECT_EQ(window->messages.front(), unsigned{WM_INITDIALOG});
}

TEST_F(RealDialog, WithoutItsResourceThereIsNone) {
  Window other(rect);
  EXPECT_FALSE(other.createFrom(kNoDialog));
  EXPECT_FALSE(other.IsWindow());
}

TEST_F(RealDialog, IsShownAndHidden) {
  EXPECT_FALSE(window->IsVisible());
  window->Show();
  EXPECT_TRUE(window->IsVisible());
  window->Hide();
  EXPECT_FALSE(window->IsVisible());
  window->Show(SW_SHOWNA);
  EXPECT_TRUE(window->IsVisible());
}

TEST_F(RealDialog, IsEnabledAndDisabled) {
  EXPECT_TRUE(window->IsEnable());
  window->Disable();
  EXPECT_FALSE(window->IsEnable());
  window->Enable();
  EXPECT_TRUE(window->IsEnable());
}

TEST_F(RealDialog, MovesToTheKeptRectangleAsItIsNow) {
  window->Move();
  EXPECT_EQ(place().left, 20);
  EXPECT_EQ(place().bottom, 230);
  rect.width = 400;
  window->Move();
  EXPECT_EQ(place().right, 420);
}

TEST_F(RealDialog, TakesRightAndBottomAsWidthAndHeight) {
  window->Move(RECT{10, 20, 300, 400});
  EXPECT_EQ(place().left, 10);
  EXPECT_EQ(place().top, 20);
  EXPECT_EQ(place().right, 310);
  EXPECT_EQ(place().bottom, 420);
}

TEST_F(RealDialog, TellsItsClientArea) {
  window->Move();
  RECT area{9, 9, 9, 9};
  SIZE size{};
  window->GetClientRect(area);
  window->GetClientSize(size);
  EXPECT_EQ(area.left, 0);
  EXPECT_EQ(area.top, 0);
  EXPECT_EQ(size.cx, area.right);
  EXPECT_EQ(size.cy, area.bottom);
  EXPECT_GT(size.cx, 0);
  EXPECT_LE(size.cx, 300);
}

TEST_F(RealDialog, ReDrawAsksForAPainting) {
  window->Show();
  ::UpdateWindow(window->GetWnd());
  EXPECT_FALSE(::GetUpdateRect(window->GetWnd(), nullptr, FALSE));
  window->ReDraw(false);
  EXPECT_TRUE(::GetUpdateRect(window->GetWnd(), nullptr, FALSE));
}

TEST_F(RealDialog, SendersReturnTheAnswer) {
  EXPECT_EQ(window->SendSelfMsg(WM_APP, 40, 2), 42);
  Window child(rect);
  ASSERT_TRUE(child.Create(window->GetWnd()));
  EXPECT_EQ(child.GetParentWnd(), window->GetWnd());
  EXPECT_EQ(child.SendParentMsg(WM_APP, 1, 2), 3);
}

TEST_F(RealDialog, DestroyEndsItAndTheObjectCanMakeAnother) {
  const HWND former = window->GetWnd();
  window->Destroy();
  EXPECT_FALSE(::IsWindow(former));
  EXPECT_EQ(window->GetWnd(), nullptr);
  EXPECT_TRUE(window->Create(nullptr));
}

TEST_F(RealDialog, GoesWithItsObjectAndItsLastMessagesMeetNobody) {
  const HWND former = window->GetWnd();
  window.reset();
  EXPECT_FALSE(::IsWindow(former));
}

/// Ends itself as soon as it runs.
class Box : public BaseWnd::BaseDlgBox {
 public:
  explicit Box(__int64 result) : BaseDlgBox(7, 8), m_result(result) {}
  bool Create(HWND parent) override { return BaseDlgBox::Create(ownInstance(), parent, kDialog); }
  __int64 RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override {
    if (msg != WM_INITDIALOG) return FALSE;
    wasWindow = IsWindow();
    m_result == kByDestroy ? Destroy() : EndDialog(m_result);
    return TRUE;
  }

  static constexpr __int64 kByDestroy = -100;
  bool wasWindow = false;

 private:
  const __int64 m_result;
};

TEST(RealDialogBox, RunsUntilItEndsAndIsTrueForOneOnly) {
  for (const __int64 result : {0LL, 1LL, 2LL, -1LL}) {
    Box box(result);
    EXPECT_EQ(box.Create(nullptr), result == 1) << result;
    EXPECT_TRUE(box.wasWindow);
    EXPECT_EQ(box.GetWnd(), nullptr);
  }
}

TEST(RealDialogBox, DestroyEndsItWithOne) { EXPECT_TRUE(Box(Box::kByDestroy).Create(nullptr)); }

/// Tells what it heard at its end, and lets a test do something once it runs.
class Talkative : public BaseWnd::BaseDlgBox {
 public:
  Talkative(std::function<void()> onceItRuns, std::vector<unsigned>& messages)
      : BaseDlgBox(0, 0), m_onceItRuns(std::move(onceItRuns)), m_messages(messages) {}
  bool Create(HWND parent) override { return BaseDlgBox::Create(ownInstance(), parent, kDialog); }
  __int64 RunProc(unsigned msg, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override {
    m_messages.push_back(msg);
    if (msg == WM_INITDIALOG) ::PostMessageW(GetWnd(), WM_APP, 0, 0);
    if (msg == WM_APP) std::exchange(m_onceItRuns, nullptr)();
    return FALSE;
  }

 private:
  std::function<void()> m_onceItRuns;
  std::vector<unsigned>& m_messages;
};

/// Counts what a window procedure does to memory that is not there: the system may go on after that as if nothing had been.
class AccessViolations {
 public:
  AccessViolations() : m_handler(::AddVectoredExceptionHandler(1, note)) { s_count = 0; }
  ~AccessViolations() { ::RemoveVectoredExceptionHandler(m_handler); }
  AccessViolations(const AccessViolations&) = delete;
  AccessViolations& operator=(const AccessViolations&) = delete;

  int count() const { return s_count; }

 private:
  static LONG CALLBACK note(EXCEPTION_POINTERS* exception) {
    if (exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) ++s_count;
    return EXCEPTION_CONTINUE_SEARCH;
  }

  inline static int s_count = 0;
  void* const m_handler;
};

TEST(RealDialogBox, HearsItsLastMessagesAfterItWasToldToEnd) {
  std::vector<unsigned> messages;
  std::unique_ptr<Talkative> box;
  box = std::make_unique<Talkative>([&box] { box->Destroy(); }, messages);
  EXPECT_TRUE(box->Create(nullptr));
  EXPECT_EQ(std::ranges::count(messages, unsigned{WM_DESTROY}), 1);
}

TEST(RealDialogBox, EndsWithItsObjectAndItsLastMessagesMeetNobody) {
  const AccessViolations violations;
  std::vector<unsigned> messages;
  std::unique_ptr<Talkative> box;
  box = std::make_unique<Talkative>([&box] { box.reset(); }, messages);
  EXPECT_TRUE(box->Create(nullptr));
  EXPECT_EQ(messages.back(), unsigned{WM_APP});
  EXPECT_EQ(violations.count(), 0);
}

/// An edit of the system, which writes in capitals what is typed.
class Capitals : public BaseWnd::BaseCtrlStd {
 public:
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override {
    if (msg == WM_CHAR && wParam >= L'a' && wParam <= L'z') wParam = wParam - L'a' + L'A';
    return BaseCtrlStd::RunProc(msg, wParam, lParam);
  }
};

TEST_F(RealDialog, ControlIsTakenOverAndDoesTheRestAsBefore) {
  Capitals edit;
  ASSERT_TRUE(edit.GetDlgItem(window->GetWnd(), kEdit));
  EXPECT_EQ(edit.GetWnd(), ::GetDlgItem(window->GetWnd(), kEdit));
  for (const wchar_t unit : std::wstring(L"aB1")) edit.SendSelfMsg(WM_CHAR, unit, 1);
  EXPECT_EQ(textOf(edit.GetWnd()), L"AB1");
  window->Destroy();  // before the object that its messages go to
}

TEST_F(RealDialog, TakenOverControlKeepsItsIdentifierAndItsOwnProcedure) {
  const auto own = ::GetWindowLongPtrW(::GetDlgItem(window->GetWnd(), kEdit), GWLP_WNDPROC);
  Capitals edit;
  ASSERT_TRUE(edit.GetDlgItem(window->GetWnd(), kEdit));
  EXPECT_EQ(idOf(edit), kEdit);
  EXPECT_EQ(reinterpret_cast<LONG_PTR>(previousProcOf(edit)), own);
  EXPECT_EQ(dataOf(edit), nullptr);
  EXPECT_NE(::GetWindowLongPtrW(edit.GetWnd(), GWLP_WNDPROC), own);
  EXPECT_EQ(::GetWindowLongPtrW(edit.GetWnd(), GWLP_USERDATA), reinterpret_cast<LONG_PTR>(&edit));
  window->Destroy();  // before the object that its messages go to
}

TEST_F(RealDialog, ControlThatIsNotThereIsNotTakenOver) {
  Capitals edit;
  EXPECT_FALSE(edit.GetDlgItem(window->GetWnd(), kEdit + 1));
  EXPECT_EQ(edit.GetWnd(), nullptr);
  EXPECT_EQ(previousProcOf(edit), nullptr);
}

}  // namespace
