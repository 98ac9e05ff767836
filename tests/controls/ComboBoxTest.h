#pragma once

#include <memory>

#include "Controls.h"
#include "controls/ControlTest.h"

/// A box with four entries, and the keyboard in it.
class Box : public ControlTest {
 protected:
  static constexpr int kItemHeight = 20;

  void SetUp() override {
    append({L"Plain", L"Thick", L"Thin", L"Envelope"});
    box->SetWndItem(kItemHeight);
    ASSERT_TRUE(box->Create(parent()));
    window = box->GetWnd();
    ::SetFocus(window);
  }

  void append(const std::vector<std::wstring>& entries) {
    for (const auto& entry : entries) box->Append({entry});
  }
  void appendNumbers(int last) {
    for (int number = 1; number <= last; ++number) box->Append({std::to_wstring(number)});
  }

  /// The dropped list; null when it is shut.
  HWND list() const {
    static HWND found;
    found = nullptr;
    const auto see = [](HWND each, LPARAM owner) -> BOOL {
      if (::GetWindow(each, GW_OWNER) != reinterpret_cast<HWND>(owner)) return TRUE;
      found = each;
      return FALSE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), see, reinterpret_cast<LPARAM>(parent()));
    return found;
  }
  HWND drop() {
    press(window, 5, 5);
    release(window, 5, 5);
    return list();
  }
  void clickEntry(int entry) { click(list(), 10, entry * kItemHeight + 5); }
  /// What the parent is told of one choice.
  std::vector<Command> once() const { return {{9, CBN_SELCHANGE, window}}; }

  const qzstd::Rect rect{10, 20, 160, 32};
  std::unique_ptr<AppWnd::ComBox> box = std::make_unique<AppWnd::ComBox>(9, rect);
  HWND window = nullptr;
};
