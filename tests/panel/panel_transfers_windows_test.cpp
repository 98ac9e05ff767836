/// printer-panel.exe: firmware transfers and wireless networks, which take long and can be cancelled.

#include <set>

#include "PanelTest.h"

namespace {

using paneltest::contains;
using paneltest::Page;
using paneltest::PanelTest;
using paneltest::printer;

constexpr const char* kSlowTransfer = "<firmware size='1000000' rate='100000'/>";
constexpr const char* kNetworks =
    "<wifi segments='2' segment-time='50' join-segments='2' join-time='50'>"
    "<access-point name='Office' password='secret' signal='80'/><access-point name='Guests' security='open' "
    "signal='35'/></wifi>";
constexpr const char* kSlowSearch = "<wifi segments='100' segment-time='500'><access-point name='Office'/></wifi>";

TEST_F(PanelTest, CompleteTransferEndsAt85Percent) {
  start({printer("Desk", "", "<firmware size='300000' rate='300000' restart='200'/>")});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  awaitMessage(L"Transfer firmware, Desk: done; percent: 85");
  EXPECT_EQ(text(ID_FIRMWARE_BAR), L"85 %");
}

TEST_F(PanelTest, TransferMovesTheBarAndCanBeCancelled) {
  start({printer("Desk", "", kSlowTransfer)});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  std::set<std::wstring> seen;
  EXPECT_TRUE(eventually([&] { return seen.insert(text(ID_FIRMWARE_BAR)), seen.size() >= 3; }));
  click(ID_FIRMWARE_CANCEL);
  awaitMessage(L"Transfer firmware, Desk: cancelled");
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Desk: done");
}

TEST_F(PanelTest, RefusedSecondTransferLeavesTheFirstToBeCancelled) {
  start({printer("Desk", "", kSlowTransfer)});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  click(ID_FIRMWARE_SEND);
  awaitMessage(L"Transfer firmware, Desk: one of its kind is under way already");
  click(ID_FIRMWARE_CANCEL);
  awaitMessage(L"Transfer firmware, Desk: cancelled");
}

TEST_F(PanelTest, TransferCanBeCancelledAfterALookAtAnotherPrinter) {
  start({printer("Desk", "", kSlowTransfer), printer("Hall")});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  awaitMessage(L"Transfer firmware, Desk ...");
  choose(1);
  click(ID_FIRMWARE_CANCEL);
  awaitMessage(L"There is nothing to cancel");
  choose(0);
  EXPECT_TRUE(eventually([this] { return text(ID_FIRMWARE_BAR) != L"0 %"; }));
  click(ID_FIRMWARE_CANCEL);
  awaitMessage(L"Transfer firmware, Desk: cancelled");
}

TEST_F(PanelTest, TransferThatBreaksOffIsSaid) {
  start({printer("Desk", "", "<firmware size='300000' rate='300000' fail-at='200000'/>")});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  awaitMessage(L"Transfer firmware, Desk: failed: the transfer broke off");
}

TEST_F(PanelTest, TransferWithoutAFileIsSaidAndNotBegun) {
  start({printer("Desk")});
  show(Page::Firmware);
  type(ID_FIRMWARE_FILE, L"");
  click(ID_FIRMWARE_SEND);
  awaitMessage(L"Transfer firmware: name the firmware to transfer");
}

TEST_F(PanelTest, NewFirmwareIsShown) {
  start({printer("Desk", "firmware='1.0' upgrade-key='k'", "<upgrade-service check-time='100' new-version='2.0'/>")});
  show(Page::Firmware);
  click(ID_FIRMWARE_CHECK);
  awaitMessage(L"Look for new firmware, Desk: done");
  EXPECT_TRUE(contains(text(ID_FIELDS), L"new firmware: yes")) << testing::PrintToString(text(ID_FIELDS));
  EXPECT_TRUE(contains(text(ID_FIELDS), L"2.0")) << testing::PrintToString(text(ID_FIELDS));
}

TEST_F(PanelTest, NetworksAreFoundChosenByKeyAndJoined) {
  start({printer("Desk", "", kNetworks)});
  show(Page::Wifi);
  click(ID_WIFI_FIND);
  awaitMessage(L"Find networks, Desk: done");
  awaitText(ID_WIFI_NAMES, L"Office");
  key(control(ID_WIFI_NAMES), VK_DOWN);
  awaitText(ID_WIFI_NAMES, L"Guests");
  key(control(ID_WIFI_NAMES), VK_UP);
  awaitText(ID_WIFI_NAMES, L"Office   wpa2, signal 80 %");
  type(ID_WIFI_PASSWORD, L"secret");
  EXPECT_EQ(text(ID_WIFI_PASSWORD), L"");
  click(ID_WIFI_JOIN);
  awaitMessage(L"Join network, Desk: done; network: Office");
}

TEST_F(PanelTest, OpenNetworkNeedsNoPassword) {
  start({printer("Desk", "", kNetworks)});
  show(Page::Wifi);
  click(ID_WIFI_FIND);
  awaitText(ID_WIFI_NAMES, L"Office");
  key(control(ID_WIFI_NAMES), VK_END);
  awaitText(ID_WIFI_NAMES, L"Guests");
  click(ID_WIFI_JOIN);
  awaitMessage(L"Join network, Desk: done; network: Guests");
}

TEST_F(PanelTest, WrongAndMissingPasswordsAreSaid) {
  start({printer("Desk", "", kNetworks)});
  show(Page::Wifi);
  click(ID_WIFI_JOIN);
  awaitMessage(L"Join network: choose a network first");
  click(ID_WIFI_FIND);
  awaitText(ID_WIFI_NAMES, L"Office");
  click(ID_WIFI_JOIN);
  awaitMessage(L"Join network: enter the network's password first");
  type(ID_WIFI_PASSWORD, L"guess");
  click(ID_WIFI_JOIN);
  awaitMessage(L"Join network, Desk: failed: the printer did not join; are name and password right?");
}

TEST_F(PanelTest, SearchForNetworksCanBeCancelled) {
  start({printer("Desk", "", kSlowSearch)});
  show(Page::Wifi);
  click(ID_WIFI_FIND);
  awaitMessage(L"Find networks, Desk ... for ");
  click(ID_WIFI_CANCEL);
  awaitMessage(L"Find networks, Desk: cancelled");
}

}  // namespace
