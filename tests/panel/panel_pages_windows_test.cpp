/// printer-panel.exe: the pages of short operations, and what it says when they go wrong.

#include <array>

#include "PanelTest.h"

namespace {

using paneltest::contains;
using paneltest::Page;
using paneltest::PanelTest;
using paneltest::printer;

constexpr const char* kParameters =
    "<parameters sleep-time='15' supplies-alarm='1' paper-alarm='3' silent-mode='4' timed-clear='5'/>";

TEST_F(PanelTest, SettingsAreReadIntoTheirFields) {
  start({printer("Desk", "", kParameters)});
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
  EXPECT_EQ(text(ID_SLEEP_TIME), L"15");
  EXPECT_EQ(text(ID_SUPPLIES_ALARM), L"1");
  EXPECT_EQ(text(ID_PAPER_ALARM), L"3");
  EXPECT_EQ(text(ID_SILENT_MODE), L"4");
  EXPECT_EQ(text(ID_TIMED_CLEAR), L"5");
}

TEST_F(PanelTest, SettingThatWasTypedReachesThePrinter) {
  start({printer("Desk", "", kParameters)});
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
  type(ID_SLEEP_TIME, L"42");
  click(ID_SLEEP_TIME_SET);
  awaitMessage(L"Set sleep time, Desk: done");
  type(ID_SLEEP_TIME, L"");
  click(ID_SUPPLIES_ALARM_OFF);
  awaitMessage(L"Set supplies alarm, Desk: done");
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
  EXPECT_EQ(text(ID_SLEEP_TIME), L"42");
  EXPECT_EQ(text(ID_SUPPLIES_ALARM), L"0");
}

TEST_F(PanelTest, ValuesOfAnotherPrinterAreNotShown) {
  start({printer("Desk", "", kParameters), printer("Hall")});
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitText(ID_SLEEP_TIME, L"15");
  choose(1);
  EXPECT_TRUE(eventually([this] { return text(ID_SLEEP_TIME).empty(); }));
  EXPECT_EQ(text(ID_SUPPLIES_ALARM), L"");
}

TEST_F(PanelTest, MistakeInASettingIsSaidAndSendsNothing) {
  start({printer("Desk", "", kParameters)});
  show(Page::Settings);
  click(ID_PAPER_ALARM_SET);
  awaitMessage(L"Set paper alarm: enter a number first");
  type(ID_PAPER_ALARM, L"999");
  click(ID_PAPER_ALARM_SET);
  awaitMessage(L"paper-alarm is \"999\"; it takes a whole number from 0 to 255");
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
  EXPECT_EQ(text(ID_PAPER_ALARM), L"3");
}

TEST_F(PanelTest, NetworkSettingsAreReadChangedAndSent) {
  start({printer("Desk", "", "<network dhcp='no' address='192.0.2.77' dns-server='192.0.2.9'/>")});
  show(Page::Network);
  click(ID_NETWORK_READ);
  awaitMessage(L"Read network settings, Desk: done");
  EXPECT_EQ(text(ID_ADDRESS_FIRST), L"192.0.2.77");
  EXPECT_EQ(text(ID_ADDRESS_FIRST + 3), L"192.0.2.9");
  type(ID_ADDRESS_FIRST, L"192.0.2.78");
  click(ID_NETWORK_SET);
  awaitMessage(L"Send network settings, Desk: done");
  type(ID_ADDRESS_FIRST, L"");
  click(ID_NETWORK_READ);
  awaitMessage(L"Read network settings, Desk: done");
  EXPECT_EQ(text(ID_ADDRESS_FIRST), L"192.0.2.78");
}

TEST_F(PanelTest, WrongAddressIsSaidByTheNameOfItsFieldAndSendsNothing) {
  start({printer("Desk", "", "<network address='192.0.2.77'/>")});
  show(Page::Network);
  click(ID_NETWORK_READ);
  awaitMessage(L"Read network settings, Desk: done");
  type(ID_ADDRESS_FIRST + 1, L"255.255.300.0");
  click(ID_NETWORK_SET);
  awaitMessage(L"Send network settings: Subnet mask is \"255.255.300.0\"; it takes four numbers from 0 to 255, as 192.0.2.10");
  click(ID_NETWORK_READ);
  awaitMessage(L"Read network settings, Desk: done");
  EXPECT_EQ(text(ID_ADDRESS_FIRST + 1), L"255.255.255.0");
}

TEST_F(PanelTest, MaintenanceIsDone) {
  start({printer("Desk")});
  show(Page::Maintenance);
  struct Row {
    int button;
    const wchar_t* said;
  };
  constexpr std::array rows{
      Row{ID_CLEAN, L"Clean the heads, Desk: done"},
      Row{ID_ALIGN_PRINT, L"Alignment page, Desk: done"},
      Row{ID_ALIGN_SET, L"Send corrections, Desk: done"},
      Row{ID_QR_PRINT, L"Print image, Desk: done"},
  };
  for (const auto& row : rows) {
    click(row.button);
    awaitMessage(row.said);
  }
}

TEST_F(PanelTest, MistakesOnTheMaintenancePageAreSaid) {
  start({printer("Desk")});
  show(Page::Maintenance);
  type(ID_CORRECTION_FIRST + 2, L"up");
  click(ID_ALIGN_SET);
  awaitMessage(L"Send corrections: Correction 3 is \"up\"; it takes a whole number");
  type(ID_QR_TEXT, L"");
  click(ID_QR_PRINT);
  awaitMessage(L"Print image: name the image to print");
}

TEST_F(PanelTest, PushScanAndSuppliesAlarmAreTold) {
  start({printer("Desk", "push-scan='yes'", "<push-scan resolution='600'/>")});
  click(ID_STATE_REGISTER);
  awaitMessage(L"Push-scan registration, Desk: done");
  click(ID_STATE_PUSHSCAN);
  awaitMessage(L"Scan settings, Desk: done");
  click(ID_STATE_ALARM);
  awaitMessage(L"Supplies alarm, Desk: done; supplies alarm state: 16");
}

TEST_F(PanelTest, PrinterThatPrintsRefusesChangesInWords) {
  start({printer("Desk", "jobs='1'")});
  awaitCard(0, L"Desk: prints");
  show(Page::Maintenance);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk: refused: the printer is printing");
}

TEST_F(PanelTest, FailureIsSaidWithTheLibrarysCode) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_SetClean'><fail code='-31'/></call>")});
  show(Page::Maintenance);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk: failed: the printer library answered -31");
}

TEST_F(PanelTest, OperationThatHangsIsSaidToTakeLongAndEndsWithWords) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_SetClean'><hang ms='4000'/></call>")});
  show(Page::Maintenance);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk ... for ");
  awaitMessage(L"Clean the heads, Desk: done");
}

TEST_F(PanelTest, SecondStartOfAKindIsRefusedInWordsOnItsPrinterOnly) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_SetClean'><hang/></call>"), printer("Hall")});
  show(Page::Maintenance);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk ...");
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk: one of its kind is under way already");
  choose(1);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Hall: done");
}

TEST_F(PanelTest, LogPageShowsWhatWasSaid) {
  start({printer("Desk")});
  show(Page::Maintenance);
  click(ID_CLEAN);
  awaitMessage(L"Clean the heads, Desk: done");
  show(Page::Log);
  awaitText(ID_LOG_LINES, L"Clean the heads, Desk: done");
  awaitText(ID_FIELDS, L"C:\\log\\Corvane.log");
}

}  // namespace
