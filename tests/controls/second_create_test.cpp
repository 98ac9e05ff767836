/// `Create` on a control that has a window already.

#include <functional>
#include <memory>

#include "Controls.h"
#include "controls/ControlTest.h"

namespace {

struct Kind {
  const char* name;
  std::function<std::unique_ptr<AppWnd::CtrlWnd>(const qzstd::Rect& rect)> make;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

const Kind kKinds[] = {
    {"Button", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::BtnNew>(1, rect, nullptr); }},
    {"Label", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::Label>(rect, nullptr); }},
    {"Edit", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::EditBase>(rect, nullptr); }},
    {"Box", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::ComBox>(1, rect); }},
    {"Scroll", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::Scroll>(rect); }},
    {"Slider", [](const qzstd::Rect& rect) { return std::make_unique<AppWnd::Slider>(1, rect); }},
};

class SecondCreate : public ControlTest, public testing::WithParamInterface<Kind> {};

TEST_P(SecondCreate, KeepsTheWindowAndThatItIsDisabled) {
  const qzstd::Rect rect{10, 10, 120, 30};
  const auto control = GetParam().make(rect);
  ASSERT_TRUE(control->Create(parent()));
  control->Disable();
  const HWND window = control->GetWnd();
  const auto before = picture(window);

  EXPECT_TRUE(control->Create(parent()));

  EXPECT_EQ(control->GetWnd(), window);
  EXPECT_FALSE(control->IsEnable());
  EXPECT_EQ(picture(window), before);
}

INSTANTIATE_TEST_SUITE_P(Controls, SecondCreate, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
