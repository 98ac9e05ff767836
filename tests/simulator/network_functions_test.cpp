#include "Support.h"

namespace simulator::test {
namespace {

using NetworkFunctions = SimulatorTest;
using AppPrinterSdk::NetworkSettings;

/// All that the settings hold, to compare.
std::string shown(const NetworkSettings& settings) {
  std::string text = settings.dhcp ? "dhcp" : "fixed";
  for (const auto& address : {settings.address, settings.subnetMask, settings.gateway, settings.dnsServer}) {
    text += ' ';
    for (const int part : address) text += std::to_string(part) + '.';
  }
  return text;
}

std::string read(std::wstring_view uid) {
  auto info = newPrinterInfo(uid);
  NetworkSettings settings;
  EXPECT_EQ(AppPrinterSdk_GetNetWork(&info, &settings), success);
  EXPECT_TRUE(shown(settings) == shown(contents(uid).network)) << shown(contents(uid).network);
  return shown(settings);
}

bool connected(std::wstring_view uid) {
  auto info = newPrinterInfo(uid);
  const bool answer = AppPrinterSdk_IsNetConnected(&info, 0);
  EXPECT_EQ(answer, contents(uid).netConnected);
  return answer;
}

constexpr char defaults[] = "fixed 192.0.2.10. 255.255.255.0. 192.0.2.1. 192.0.2.1.";

TEST_F(NetworkFunctions, DefaultsAreAsDocumented) {
  loadScenarioText(onePrinter(""));
  EXPECT_EQ(read(L"a"), defaults);
}

TEST_F(NetworkFunctions, SettingsAreAsTheScenarioSays) {
  loadScenarioText(onePrinter("",
                              "<network dhcp='yes' address='1.2.3.4' subnet-mask='255.254.0.0' gateway='0.0.0.0' "
                              "dns-server='255.255.255.255'/>"));
  EXPECT_EQ(read(L"a"), "dhcp 1.2.3.4. 255.254.0.0. 0.0.0.0. 255.255.255.255.");
}

TEST_F(NetworkFunctions, WhatIsSetIsKeptPerPrinter) {
  loadScenarioText(twoPrinters(""));
  auto info = newPrinterInfo(L"b");
  NetworkSettings settings{true, {1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
  EXPECT_EQ(AppPrinterSdk_SetNetWork(&info, &settings), success);
  EXPECT_EQ(read(L"b"), "dhcp 1.2.3.4. 5.6.7.8. 9.10.11.12. 13.14.15.16.");
  EXPECT_EQ(read(L"a"), defaults);
}

TEST_F(NetworkFunctions, FailedCallsChangeNothing) {
  loadScenarioText(onePrinter("", callOf("AppPrinterSdk_SetNetWork", "<fail code='5'/>") +
                                      callOf("AppPrinterSdk_GetNetWork", "<fail code='6' call='1'/>")));
  auto info = newPrinterInfo(L"a");
  NetworkSettings settings;
  EXPECT_EQ(AppPrinterSdk_SetNetWork(&info, &settings), 5);
  EXPECT_EQ(AppPrinterSdk_GetNetWork(&info, &settings), 6);
  EXPECT_EQ(shown(settings), shown({}));
  EXPECT_EQ(read(L"a"), defaults);
}

TEST_F(NetworkFunctions, GarbageIsReadAndNothingIsKept) {
  loadScenarioText(onePrinter(
      "", callOf("AppPrinterSdk_SetNetWork", "<garbage/>") + callOf("AppPrinterSdk_GetNetWork", "<garbage call='1'/>")));
  auto info = newPrinterInfo(L"a");
  NetworkSettings settings;
  EXPECT_EQ(AppPrinterSdk_SetNetWork(&info, &settings), success);
  EXPECT_EQ(AppPrinterSdk_GetNetWork(&info, &settings), success);
  EXPECT_EQ(shown(settings), "dhcp 255.255.255.255. 0.255.0.255. 0.0.0.0. 127.0.0.1.");
  EXPECT_EQ(read(L"a"), defaults);
}

TEST_F(NetworkFunctions, NetworkPrintersAreConnectedUnlessTheScenarioSaysOtherwise) {
  struct Case {
    std::string connection;
    std::string network;
    bool connected;
  };
  for (const Case& c : std::vector<Case>{{"network", "", true},
                                         {"usb", "", false},
                                         {"network", "<network reachable='no'/>", false},
                                         {"usb", "<network reachable='yes'/>", true},
                                         {"network", "<network dhcp='yes'/>", true},
                                         {"usb", "<network dhcp='yes'/>", false}}) {
    loadScenarioText("<scenario><printer uid='a' manager-id='ma' connection='" + c.connection + "'>" + c.network +
                     "</printer></scenario>");
    EXPECT_EQ(connected(L"a"), c.connected) << c.connection << c.network;
  }
}

TEST_F(NetworkFunctions, GarbageTellsTheOpposite) {
  loadScenarioText(withCall("AppPrinterSdk_IsNetConnected", "<garbage call='1'/>"));
  auto info = newPrinterInfo(L"a");
  EXPECT_FALSE(AppPrinterSdk_IsNetConnected(&info, 0));
  EXPECT_TRUE(AppPrinterSdk_IsNetConnected(&info, 0));
}

}  // namespace
}  // namespace simulator::test
