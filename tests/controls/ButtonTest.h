#pragma once

#include <memory>
#include <ostream>
#include <span>

#include "Controls.h"
#include "controls/ControlTest.h"

/// One of the button classes.
struct ButtonKind {
  const char* name;
  std::unique_ptr<AppWnd::BtnBase> (*make)(const qzstd::Rect& rect, const qzstd::Text* text);
  bool clickTurnsOver = false;
  bool clickSets = false;
};

void PrintTo(const ButtonKind& kind, std::ostream* out);

class ButtonTest : public ControlTest {
 protected:
  static constexpr std::int32_t kId = 42;

  /// All of them. Each button has the identifier `kId`.
  static std::span<const ButtonKind> kinds();

  Pixels pictureOf(AppWnd::BtnBase& button) { return picture(button.GetWnd()); }

  const qzstd::Rect rect{10, 20, 120, 32};
  const qzstd::Text caption{L"caption"};

 private:
  template <class Button>
  static std::unique_ptr<AppWnd::BtnBase> make(const qzstd::Rect& rect, const qzstd::Text* text) {
    return std::make_unique<Button>(kId, rect, text);
  }
};

/// A button of each kind, with a window.
class EachButton : public ButtonTest, public testing::WithParamInterface<ButtonKind> {
 public:
  using ButtonTest::kinds;

 protected:
  std::unique_ptr<AppWnd::BtnBase> newButton(const qzstd::Text* text) { return GetParam().make(rect, text); }

  void SetUp() override { ASSERT_TRUE(button->Create(parent())); }

  const std::unique_ptr<AppWnd::BtnBase> button = newButton(&caption);
};

/// What some of them do, or all of them together.
class ButtonKinds : public ButtonTest {};
