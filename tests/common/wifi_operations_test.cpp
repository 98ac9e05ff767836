#include <gtest/gtest.h>

#include "OperationRun.h"
#include "Records.h"
#include "common/Text.h"

namespace {

using AppComm::Type;
using AppComm::WIFI;
using AppMgr::WifiNetwork;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;

TEST(WifiListTest, TellsTheNetworksButNoPassword) {
  const OperationRun<WIFI> run({L"wifi", L"list"});
  EXPECT_EQ(run.operation->type(), Type::GetWifiList);
  WifiNetwork network;
  network.name.fill(L'x');  // without a zero
  network.password.fill(L'p');
  network.security = 2;
  network.signal = 80;
  run.record->finished = true;
  run.record->succeeded = true;
  run.record->networks = {network, WifiNetwork{}};
  run.record->networks[1].security = -1;
  const auto report = run.afterNotice();
  EXPECT_EQ(linesOf(report), (Lines{L"networks:", L"  name " + std::wstring(128, L'x') + L", security wpa3, signal 80",
                                    L"  name , security kind -1, signal 0", L"c, p: done"}));
  EXPECT_EQ(examples::renderJson(L"c", L"p", report).find(L"ppp"), std::wstring::npos);
}

TEST(WifiListTest, WithoutAListItFailed) {
  const OperationRun<WIFI> run({L"wifi", L"list"});
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer found no network, or its list could not be read"}));
  run.record->networks.resize(1);
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer's list could not be read"}));
  run.record->connected = true;
  EXPECT_EQ(linesOf(run.afterNotice()),
            (Lines{L"c, p: refused: the printer is in a network already and was not asked for a list"}));
}

TEST(WifiJoinTest, SendsNamePasswordAndSecurity) {
  const OperationRun<WIFI> run({L"wifi", L"join", L"Office", L"--password", L"secret word", L"--security", L"wpa3"});
  EXPECT_EQ(run.operation->type(), Type::SetWifiList);
  ASSERT_EQ(run.record->networks.size(), 1U);
  const auto& network = run.record->networks[0];
  EXPECT_EQ(examples::textOf(network.name), L"Office");
  EXPECT_EQ(examples::textOf(network.password), L"secret word");
  EXPECT_EQ(network.security, 2);
}

TEST(WifiJoinTest, SecurityFollowsThePasswordUnlessItIsNamed) {
  EXPECT_EQ(OperationRun<WIFI>({L"wifi", L"join", L"n"}).record->networks[0].security, 0);
  EXPECT_EQ(OperationRun<WIFI>({L"wifi", L"join", L"n", L"--password", L"p"}).record->networks[0].security, 1);
  EXPECT_EQ(OperationRun<WIFI>({L"wifi", L"join", L"n", L"--security", L"wpa2"}).record->networks[0].security, 1);
}

TEST(WifiJoinTest, PasswordIsInNoReport) {
  const OperationRun<WIFI> run({L"wifi", L"join", L"Office", L"--password", L"secret"});
  run.record->succeeded = true;
  EXPECT_EQ(examples::renderJson(L"wifi join", L"p", run.afterNotice()),
            LR"({"command":"wifi join","printer":"p","outcome":"succeeded","results":{"network":"Office"}})");
  run.record->succeeded = false;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer did not join; are name and password right?"}));
}

TEST(WifiJoinTest, WhatDoesNotFitIsAMistakeThatDoesNotShowThePassword) {
  EXPECT_NO_THROW(examples::parseOptions({L"wifi", L"join", std::wstring(127, L'n'), L"--password", std::wstring(255, L'p')}));
  const auto mistakeOf = [](const std::wstring& name, const std::wstring& password) -> std::string {
    try {
      examples::parseOptions({L"wifi", L"join", name, L"--password", password});
      return "taken";
    } catch (const examples::OptionsError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(mistakeOf(std::wstring(128, L'n'), L"p"), "NAME is too long; it takes at most 127 characters");
  EXPECT_EQ(mistakeOf(L"n", std::wstring(256, L'p')), "the password is too long; it takes at most 255 characters");
}

TEST(WifiJoinTest, UnknownSecurityIsAMistake) {
  EXPECT_THROW(examples::parseOptions({L"wifi", L"join", L"n", L"--security", L"wep"}), examples::OptionsError);
}

}  // namespace
