/// printer-panel.exe by the keyboard alone.

#include "PanelTest.h"

namespace {

using paneltest::Page;
using paneltest::PanelTest;
using paneltest::printer;

class PanelKeyboardTest : public PanelTest {
 protected:
  void awaitFocus(int id) const {
    EXPECT_TRUE(eventually([&] { return ::GetDlgCtrlID(focused()) == id; }))
        << "the keyboard is at " << ::GetDlgCtrlID(focused()) << ", not at " << id;
  }
  /// Whatever has the keyboard gets the key.
  void press(unsigned virtualKey) const { key(focused(), virtualKey); }
};

TEST_F(PanelKeyboardTest, FirstPrinterHasTheKeyboardAtFirst) {
  start({printer("Desk"), printer("Hall")});
  awaitFocus(ID_CARD_FIRST);
}

TEST_F(PanelKeyboardTest, TabReachesTheControlsInTheOrderInWhichTheyAreRead) {
  start({printer("Desk"), printer("Hall")});
  awaitFocus(ID_CARD_FIRST);
  for (const int id : {ID_CARD_FIRST + 1, ID_PAGE_FIRST, ID_PAGE_FIRST + 1, ID_PAGE_FIRST + 2, ID_PAGE_FIRST + 3,
                       ID_PAGE_FIRST + 4, ID_PAGE_FIRST + 5, ID_PAGE_FIRST + 6, ID_STATE_READ, ID_STATE_ALARM,
                       ID_STATE_REGISTER, ID_STATE_PUSHSCAN, ID_MINIMIZE, ID_CLOSE, ID_CARD_FIRST}) {
    press(VK_TAB);
    awaitFocus(id);
  }
}

TEST_F(PanelKeyboardTest, CardThatGetsTheKeyboardIsScrolledIntoSight) {
  std::vector<std::string> printers;
  for (int i = 0; i < 12; ++i) printers.push_back(printer("p" + std::to_string(i)));
  start(printers);
  awaitFocus(ID_CARD_FIRST);
  RECT seen{};
  ::GetWindowRect(control(ID_PRINTERS), &seen);
  const auto bottomOf = [this](int id) {
    RECT place{};
    ::GetWindowRect(control(id), &place);
    return place.bottom;
  };
  ASSERT_GT(bottomOf(ID_CARD_FIRST + 11), seen.bottom);
  for (int i = 1; i < 12; ++i) {
    press(VK_TAB);
    awaitFocus(ID_CARD_FIRST + i);
  }
  EXPECT_TRUE(eventually([&] { return bottomOf(ID_CARD_FIRST + 11) <= seen.bottom; }));
}

TEST_F(PanelKeyboardTest, TabLeavesOutTheControlsOfHiddenPages) {
  start({printer("Desk")});
  show(Page::Wifi);
  click(ID_PAGE_FIRST + static_cast<int>(Page::Log));
  awaitFocus(ID_PAGE_FIRST + static_cast<int>(Page::Log));
  press(VK_TAB);
  awaitFocus(ID_LOG_REFRESH);
}

TEST_F(PanelKeyboardTest, SpacePressesWhatHasTheKeyboard) {
  start({printer("Desk"), printer("Hall")});
  awaitFocus(ID_CARD_FIRST);
  press(VK_TAB);
  awaitFocus(ID_CARD_FIRST + 1);
  press(VK_SPACE);  // chooses the second printer
  show(Page::Maintenance);
  awaitFocus(ID_PAGE_FIRST + static_cast<int>(Page::Maintenance));
  for (int id = ID_PAGE_FIRST + 3; id <= ID_PAGE_FIRST + 6; ++id) {
    press(VK_TAB);
    awaitFocus(id);
  }
  press(VK_TAB);
  awaitFocus(ID_CLEAN);
  press(VK_SPACE);
  awaitMessage(L"Clean the heads, Hall: done");
}

TEST_F(PanelKeyboardTest, EnterPressesTheButtonThatHasTheKeyboard) {
  start({printer("Desk")});
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
  type(ID_SLEEP_TIME, L"33");
  awaitFocus(ID_SLEEP_TIME);
  press(VK_TAB);
  awaitFocus(ID_SLEEP_TIME_SET);
  press(VK_RETURN);
  awaitMessage(L"Set sleep time, Desk: done; sleep time: 33");
}

}  // namespace
