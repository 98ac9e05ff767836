#include <limits>

#include "Support.h"

namespace simulator::test {
namespace {

/// What a progress call answered.
struct Progress {
  int code = 0;
  std::int32_t current = -7;
  std::int32_t total = -7;

  friend bool operator==(const Progress&, const Progress&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Progress& progress) {
    return out << progress.code << ": " << progress.current << " of " << progress.total;
  }
};

Progress progress() {
  Progress now;
  now.code = AppPrinterSdk_UpgradeFwProgress(&now.current, &now.total);
  return now;
}

Progress failed(int code) { return {code, -7, -7}; }

class FirmwareFunctions : public SimulatorTest {
 protected:
  void load(const std::string& firmware, const std::string& calls = "") {
    holdTime();
    loadScenarioText(onePrinter("firmware='1.0' model='M'", "<firmware " + firmware + "/>" + calls));
    info = newPrinterInfo(L"a");
  }

  int start(std::wstring firmware = L"new.bin") { return AppPrinterSdk_UpgradeFwStart(&info, &firmware); }

  qzstd::PrinterInfo info;
};

TEST_F(FirmwareFunctions, TransferRunsRestartsAndComesBackWithTheNewVersion) {
  load("size='1000' rate='250' restart='3000' version='2.0'");
  EXPECT_EQ(start(), success);
  EXPECT_EQ(progress(), (Progress{success, 0, 1000}));
  advanceTime(2000ms);
  EXPECT_EQ(progress(), (Progress{success, 500, 1000}));
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"1.0");
  advanceTime(1999ms);
  EXPECT_EQ(progress(), (Progress{success, 999, 1000}));
  advanceTime(1ms);
  EXPECT_EQ(progress(), (Progress{success, 1000, 1000}));
  advanceTime(1h);
  EXPECT_EQ(progress(), (Progress{success, 1000, 1000}));
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"1.0");
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(AppPrinterSdk_GetState(&info), unreachable);
  EXPECT_EQ(AppMgr_GetPrintingJob(L"ma"), unreachable);
  EXPECT_FALSE(AppPrinterSdk_IsSuppportSuppliesAlarm(&info));
  advanceTime(2999ms);
  EXPECT_EQ(AppPrinterSdk_GetState(&info), unreachable);
  EXPECT_EQ(info.model, L"");
  advanceTime(1ms);
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"2.0");
  EXPECT_EQ(contents(L"a").firmwareVersion, L"2.0");
}

TEST_F(FirmwareFunctions, WithoutAVersionItIsTheTextThatWasSent) {
  load("restart='0'");
  EXPECT_EQ(start(L"image 7"), success);
  advanceTime(4s);
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"image 7");
}

TEST_F(FirmwareFunctions, DefaultsAreAsDocumented) {
  load("");
  EXPECT_EQ(start(), success);
  advanceTime(1s);
  EXPECT_EQ(progress(), (Progress{success, 250'000, 1'000'000}));
  advanceTime(3s);
  AppPrinterSdk_UpgradeFwExit();
  advanceTime(2999ms);
  EXPECT_EQ(AppPrinterSdk_GetState(&info), unreachable);
  advanceTime(1ms);
  EXPECT_EQ(AppPrinterSdk_GetState(&info), success);
}

TEST_F(FirmwareFunctions, ExitBeforeTheEndChangesNothing) {
  load("size='1000' rate='250'");
  EXPECT_EQ(start(), success);
  advanceTime(3999ms);
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(progress(), failed(noJob));
  advanceTime(1h);
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"1.0");
}

TEST_F(FirmwareFunctions, TransferFailsFromItsByteOn) {
  load("size='1000' rate='1000' fail-at='400'");
  EXPECT_EQ(start(), success);
  advanceTime(399ms);
  EXPECT_EQ(progress(), (Progress{success, 399, 1000}));
  advanceTime(1ms);
  EXPECT_EQ(progress(), failed(transferFailed));
  advanceTime(1h);
  EXPECT_EQ(progress(), failed(transferFailed));
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"1.0");
}

TEST_F(FirmwareFunctions, TransferMayFailAtItsLastByteOrItsFirst) {
  load("size='1000' rate='1000' fail-at='1000'");
  EXPECT_EQ(start(), success);
  advanceTime(999ms);
  EXPECT_EQ(progress(), (Progress{success, 999, 1000}));
  advanceTime(1ms);
  EXPECT_EQ(progress(), failed(transferFailed));
  load("fail-at='0'");
  EXPECT_EQ(start(), success);
  EXPECT_EQ(progress(), failed(transferFailed));
}

TEST_F(FirmwareFunctions, SecondStartOnAThreadReplacesTheFirst) {
  load("size='1000' rate='1000' restart='0'");
  EXPECT_EQ(start(L"first"), success);
  advanceTime(600ms);
  EXPECT_EQ(start(L"second"), success);
  EXPECT_EQ(progress(), (Progress{success, 0, 1000}));
  advanceTime(1s);
  AppPrinterSdk_UpgradeFwExit();
  EXPECT_EQ(stateOf(L"a").firmwareVersion, L"second");
}

TEST_F(FirmwareFunctions, FailedStartBeginsNoTransfer) {
  load("", callOf("AppPrinterSdk_UpgradeFwStart", "<fail code='-2'/>"));
  EXPECT_EQ(start(), -2);
  EXPECT_EQ(progress(), failed(noJob));
}

TEST_F(FirmwareFunctions, GarbageStartBeginsNoTransferEither) {
  load("", callOf("AppPrinterSdk_UpgradeFwStart", "<garbage/>"));
  EXPECT_EQ(start(), success);
  EXPECT_EQ(progress(), failed(noJob));
}

TEST_F(FirmwareFunctions, GarbageProgressGoesToTheExtremesAndEnds) {
  using Int32 = std::numeric_limits<std::int32_t>;
  load("size='1000' rate='1000'", callOf("AppPrinterSdk_UpgradeFwProgress", "<garbage calls='9'/>"));
  EXPECT_EQ(start(), success);
  for (const auto& [current, total] : {std::pair{-1, 100},
                                       {Int32::min(), Int32::max()},
                                       {Int32::max() - 1, Int32::max()},
                                       {Int32::min(), 0},
                                       {Int32::min(), Int32::min() + 1},
                                       {0, 0},
                                       {200, 100},
                                       {Int32::max(), Int32::min()},
                                       {-1, 100}}) {
    EXPECT_EQ(progress(), (Progress{success, current, total}));
  }
  EXPECT_EQ(progress(), (Progress{success, 0, 1000}));  // the transfer itself knows nothing of it
}

TEST_F(FirmwareFunctions, HugeTransferIsCountedExactly) {
  load("size='2147483647' rate='1'");
  EXPECT_EQ(start(), success);
  advanceTime(24h);
  EXPECT_EQ(progress(), (Progress{success, 86'400, 2'147'483'647}));
  load("size='2147483647' rate='2147483647'");
  EXPECT_EQ(start(), success);
  advanceTime(999ms);
  EXPECT_EQ(progress(), (Progress{success, 2'145'336'163, 2'147'483'647}));
  advanceTime(24h * 50);  // where bytes per second times milliseconds leaves 64 bits
  EXPECT_EQ(progress(), (Progress{success, 2'147'483'647, 2'147'483'647}));
}

// Jobs and threads.

TEST_F(FirmwareFunctions, EachThreadHasItsOwnTransfer) {
  holdTime();
  loadScenarioText(twoPrinters("<firmware size='1000' rate='1000' restart='0'/>"));
  OtherThread one;
  OtherThread other;
  const auto startOn = [](std::wstring_view uid, std::wstring firmware) {
    auto printer = newPrinterInfo(uid);
    EXPECT_EQ(AppPrinterSdk_UpgradeFwStart(&printer, &firmware), success);
  };
  one.does([&] { startOn(L"a", L"for a"); });
  advanceTime(300ms);
  other.does([&] { startOn(L"b", L"for b"); });
  advanceTime(300ms);
  one.does([] { EXPECT_EQ(progress(), (Progress{success, 600, 1000})); });
  other.does([] { EXPECT_EQ(progress(), (Progress{success, 300, 1000})); });
  EXPECT_EQ(progress(), failed(noJob));
  advanceTime(400ms);
  one.does([] { AppPrinterSdk_UpgradeFwExit(); });
  one.does([] { EXPECT_EQ(progress(), failed(noJob)); });
  other.does([] { EXPECT_EQ(progress(), (Progress{success, 700, 1000})); });
  EXPECT_EQ(contents(L"a").firmwareVersion, L"for a");
  EXPECT_EQ(contents(L"b").firmwareVersion, L"");
  EXPECT_TRUE(waitUntilEnded("AppPrinterSdk_UpgradeFwProgress", 1, 0ms, L"a"));
  EXPECT_TRUE(waitUntilEnded("AppPrinterSdk_UpgradeFwProgress", 2, 0ms, L"b"));
}

TEST_F(FirmwareFunctions, FaultsAreThoseOfTheJobsPrinter) {
  holdTime();
  loadScenarioText("<scenario><printer uid='a' manager-id='ma' connection='usb'>" +
                   callOf("AppPrinterSdk_UpgradeFwProgress", "<fail code='-5' call='2'/>") +
                   "</printer><printer uid='b' manager-id='mb' connection='usb'/></scenario>");
  for (const auto& [uid, codes] : {std::pair{L"a", std::vector{0, -5, 0}}, {L"b", std::vector{0, 0, 0}}}) {
    info = newPrinterInfo(uid);
    EXPECT_EQ(start(), success);
    for (const int code : codes) EXPECT_EQ(progress().code, code);
  }
}

TEST_F(FirmwareFunctions, NewThreadNeverFindsTheJobOfOneThatEnded) {
  load("");
  for (int i = 0; i < 20; ++i) {
    std::thread([this] {
      EXPECT_EQ(progress(), failed(noJob));
      EXPECT_EQ(start(), success);
    }).join();  // the system likes to give its number to the next
  }
}

TEST_F(FirmwareFunctions, JobsEndWithTheScenario) {
  load("");
  EXPECT_EQ(start(), success);
  load("");
  EXPECT_EQ(progress(), failed(noJob));
}

TEST_F(FirmwareFunctions, ExitWithoutATransferDoesNothingAndIsRecorded) {
  load("");
  AppPrinterSdk_UpgradeFwExit();
  ASSERT_EQ(calls().size(), 1u);
  EXPECT_EQ(calls().at(0).printer, L"");
  EXPECT_TRUE(calls().at(0).end);
  EXPECT_FALSE(calls().at(0).result);
}

}  // namespace
}  // namespace simulator::test
