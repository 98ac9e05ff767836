#include "controls/ButtonTest.h"

void PrintTo(const ButtonKind& kind, std::ostream* out) { *out << kind.name; }

std::span<const ButtonKind> ButtonTest::kinds() {
#define KIND(Name) #Name, make < AppWnd::Name>
  static constexpr ButtonKind kKinds[] = {
      {KIND(BtnBase)},
      {KIND(BtnAddPrinter)},
      {KIND(BtnBorder)},
      {KIND(BtnCfg)},
      {KIND(BtnCls)},
      {KIND(BtnExpand)},
      {KIND(BtnGradual)},
      {KIND(BtnLabel)},
      {KIND(BtnMin)},
      {KIND(BtnNew)},
      {KIND(BtnRefresh)},
      {KIND(BtnRefreshState)},
      {KIND(BtnReturn)},
      {KIND(BtnRoundArrow)},
      {KIND(BtnSet)},
      {KIND(BtnSetWifi)},
      {KIND(BtnCheck), true},
      {KIND(BtnRadio), false, true},
      {KIND(BtnRadioRound), false, true},
  };
#undef KIND
  static_assert(std::size(kKinds) == 19);
  return kKinds;
}

// Once for the tests of all files.
INSTANTIATE_TEST_SUITE_P(Buttons, EachButton, testing::ValuesIn(EachButton::kinds().begin(), EachButton::kinds().end()),
                         [](const auto& kind) { return kind.param.name; });
