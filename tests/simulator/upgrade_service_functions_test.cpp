#include "Support.h"

namespace simulator::test {
namespace {

/// What a result call answered.
struct Result {
  bool available = false;
  bool ok = false;
  std::array<std::wstring, 4> texts;
};

class UpgradeServiceFunctions : public SimulatorTest {
 protected:
  void load(const std::string& service, const std::string& children = "") {
    holdTime();
    loadScenarioText(onePrinter("firmware='1.0' upgrade-key='key'", "<upgrade-service " + service + "/>" + children));
    info = newPrinterInfo(L"a");
  }

  /// Whether the check has finished, as the process call tells it.
  bool finished() {
    bool done = false;
    EXPECT_TRUE(AppSdk_TriggerFwUpgradeProcess(&done));
    return done;
  }

  Result result(bool okBefore = false) {
    Result read{false, okBefore, {}};
    read.available = AppSdk_TriggerFwUpgradeResult(&read.ok, read.texts.data());
    return read;
  }

  qzstd::PrinterInfo info;
};

using Texts = std::array<std::wstring, 4>;

TEST_F(UpgradeServiceFunctions, RegistrationIsKeptWithItsKey) {
  load("");
  EXPECT_FALSE(contents(L"a").upgradeRegistered);
  info.upgradeKey = L"another key";
  EXPECT_TRUE(AppSdk_SetPrinterUpgradeInfo(&info));
  EXPECT_TRUE(contents(L"a").upgradeRegistered);
  EXPECT_EQ(contents(L"a").upgradeKey, L"another key");
}

TEST_F(UpgradeServiceFunctions, RegistrationMayBeRefused) {
  load("registers='no'");
  EXPECT_FALSE(AppSdk_SetPrinterUpgradeInfo(&info));
  EXPECT_FALSE(contents(L"a").upgradeRegistered);
}

TEST_F(UpgradeServiceFunctions, GarbageRegistersAndDeniesIt) {
  load("", callOf("AppSdk_SetPrinterUpgradeInfo", "<garbage/>"));
  EXPECT_FALSE(AppSdk_SetPrinterUpgradeInfo(&info));
  EXPECT_TRUE(contents(L"a").upgradeRegistered);
}

TEST_F(UpgradeServiceFunctions, CheckFinishesAtItsTimeAndTellsTheVersions) {
  load("check-time='2000' new-version='2.0' notes='faster'");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  EXPECT_FALSE(finished());
  advanceTime(1999ms);
  EXPECT_FALSE(finished());
  EXPECT_FALSE(result().available);
  advanceTime(1ms);
  EXPECT_TRUE(finished());
  const Result told = result();
  EXPECT_TRUE(told.available);
  EXPECT_TRUE(told.ok);
  EXPECT_EQ(told.texts, (Texts{L"1.0", L"2.0", L"faster", L"key"}));
}

TEST_F(UpgradeServiceFunctions, CheckTakes1500MsByDefault) {
  load("");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  advanceTime(1499ms);
  EXPECT_FALSE(finished());
  advanceTime(1ms);
  EXPECT_TRUE(finished());
}

TEST_F(UpgradeServiceFunctions, ProcessLeavesDoneAloneUntilThen) {
  load("");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  bool done = true;
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeProcess(&done));
  EXPECT_TRUE(done);
}

TEST_F(UpgradeServiceFunctions, WithoutNewFirmwareTheCheckIsGoodAndThereIsNoResult) {
  for (const std::string service : {"check-time='0'", "check-time='0' new-version='1.0'"}) {
    load(service);
    EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
    EXPECT_TRUE(finished());
    const Result told = result();
    EXPECT_FALSE(told.available) << service;
    EXPECT_TRUE(told.ok) << service;
    EXPECT_EQ(told.texts, Texts{}) << service;
  }
}

TEST_F(UpgradeServiceFunctions, CheckThatGoesWrongHasNoResult) {
  load("check-time='0' new-version='2.0' result='no'");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  const Result told = result(true);
  EXPECT_FALSE(told.available);
  EXPECT_FALSE(told.ok);
  EXPECT_EQ(told.texts, Texts{});
}

TEST_F(UpgradeServiceFunctions, ResultTooEarlyTouchesNothing) {
  load("new-version='2.0'");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  for (const bool before : {false, true}) {
    const Result told = result(before);
    EXPECT_FALSE(told.available);
    EXPECT_EQ(told.ok, before);
    EXPECT_EQ(told.texts, Texts{});
  }
}

TEST_F(UpgradeServiceFunctions, CheckMayNotStart) {
  load("starts='no'");
  EXPECT_FALSE(AppSdk_TriggerFwUpgradeStart(&info));
  bool done = false;
  EXPECT_FALSE(AppSdk_TriggerFwUpgradeProcess(&done));
  EXPECT_FALSE(result().available);
  EXPECT_EQ(calls().back().printer, L"");
}

TEST_F(UpgradeServiceFunctions, AfterTheUpgradeThereIsNothingNew) {
  load("check-time='0' new-version='2.0'", "<firmware size='1' rate='1000' restart='0' version='2.0'/>");
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  EXPECT_TRUE(result().available);
  std::wstring firmware = L"f";
  EXPECT_EQ(AppPrinterSdk_UpgradeFwStart(&info, &firmware), success);
  advanceTime(1ms);
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_FALSE(result().available);
}

TEST_F(UpgradeServiceFunctions, EachThreadHasItsOwnCheck) {
  holdTime();
  loadScenarioText(twoPrinters("<upgrade-service check-time='1000'/>"));
  OtherThread one;
  OtherThread other;
  const auto startOn = [](std::wstring_view uid) {
    auto printer = newPrinterInfo(uid);
    EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&printer));
  };
  one.does([&] { startOn(L"a"); });
  advanceTime(600ms);
  other.does([&] { startOn(L"b"); });
  advanceTime(400ms);
  one.does([this] { EXPECT_TRUE(finished()); });
  other.does([this] { EXPECT_FALSE(finished()); });
}

TEST_F(UpgradeServiceFunctions, GarbageStartsAndDeniesIt) {
  load("check-time='0'", callOf("AppSdk_TriggerFwUpgradeStart", "<garbage/>"));
  EXPECT_FALSE(AppSdk_TriggerFwUpgradeStart(&info));
  EXPECT_TRUE(finished());
}

TEST_F(UpgradeServiceFunctions, GarbageTellsTheEndTooEarlyAndDeniesIt) {
  load("", callOf("AppSdk_TriggerFwUpgradeProcess", "<garbage/>"));
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  EXPECT_TRUE(finished());
  advanceTime(1500ms);
  bool done = true;
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeProcess(&done));
  EXPECT_FALSE(done);
}

TEST_F(UpgradeServiceFunctions, GarbageResultHasHostileTexts) {
  load("", callOf("AppSdk_TriggerFwUpgradeResult", "<garbage/>"));
  EXPECT_TRUE(AppSdk_TriggerFwUpgradeStart(&info));
  const Result told = result();
  EXPECT_TRUE(told.available);
  EXPECT_TRUE(told.ok);
  EXPECT_EQ(told.texts[0].size(), 100'000u);
  EXPECT_NE(told.texts[1].find(L"%s%n"), std::wstring::npos);
  EXPECT_NE(told.texts[2].find(L'\0'), std::wstring::npos);
  EXPECT_NE(told.texts[3], L"");
}

}  // namespace
}  // namespace simulator::test
