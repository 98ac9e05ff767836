/// Every operation from outside, on simulated printers: what the records held in the end, how often the windows were told, and
/// what the log says of it. The scenario and the order of the operations are those of operations_client_main.cpp.
///
/// Of the log each line of a handler is compared, in the log's order: its function, its text, and its level where that is not
/// debug. Of the other lines only the result is, which the worker tells at the end of each run ("= 0"). The rest is left out:
/// - time stamps, and the worker's waits, whose number and durations differ from run to run with the speed of the machine;
/// - the handlers' line numbers, which nobody may rely on;
/// - the lines of the entry point, of the control functions, and of the worker's cycle, which are the same for every
///   operation: they are compared, with their numbers, where the log of the whole module is tested.

#include <string>
#include <string_view>

#include "module/ClientTest.h"

namespace {

std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }  // all texts are ASCII

// What a USB printer's log says when it is idle but its status lets nothing through; an image leaves no line of its own.
constexpr std::string_view kOnlyAsked = R"(
state: get usb printer (push scan) state result: 0
state:  notice caller the state information has been captured.
= 0
setSleepTime:  notice caller the result of set device sleep time.
= 0
printAdjust:  notice caller the result of send adjust cmd.
= 0
setAdjust:  notice caller the result of set adjust cmd.
= 0
printQRcode:  notice caller the result of print qrcode.
= 0
setNetwork:  notice caller the result of set device network.
= 0
getNetwork:  notice caller the result of get device network.
= 0
)";

class OperationsTest : public ClientTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(ClientTest::SetUp());
    configure("Error=1\r\nDebug=1\r\n");
  }

  /// What the client writes, with a line end before the first line too.
  static std::string run(const std::wstring& printer) {
    auto output = "\n" + ClientTest::run(L"module_operations.exe", {printer});
    std::erase(output, '\r');
    return output;
  }

  /// What the log says of the runs, in the same form: the handlers' lines, and after each run its result.
  std::string steps() const {
    constexpr std::string_view kResult = "result: ";
    constexpr std::string_view kHandler = "comm_thread_";
    std::string steps = "\n";
    for (const auto& line : log()) {
      const auto message = narrow(line.message);
      if (line.function.starts_with(kHandler)) {
        steps += (line.tag == "DBG" ? "" : line.tag + ' ') + line.function.substr(kHandler.size()) + ": " + message + '\n';
      } else if (message.starts_with("Communication end")) {
        steps += "= " + message.substr(message.rfind(kResult) + kResult.size()) + '\n';
      }
    }
    return steps;
  }
};

TEST_F(OperationsTest, PrinterThatIsReadyDoesAllThatItIsAsked) {
  EXPECT_EQ(run(L"ready"), R"(
ready state: 1, queried yes, jobs 0, result 0, push scan no, upgrade no
ready alarm: 0, -
ready alarm state: 160
ready set supplies alarm: 1, sleep !0, supplies 7, paper !7, clear !7, silent !7, busy no, status one no
ready set sleep time: 1, sleep 30, supplies !0, paper !0, clear !0, silent !0, busy no, status one no
ready set paper alarm: 1, sleep !0, supplies !2, paper 2, clear !2, silent !2, busy no, status one no
ready set silent mode: 1, sleep !0, supplies !3, paper !3, clear !3, silent 3, busy no, status one no
ready set timed clear: 1, sleep !0, supplies !4, paper !4, clear 4, silent !4, busy no, status one no
ready get: 1, sleep 30, supplies 0, paper 2, clear 4, silent 3, busy no, status one no
ready alarm: 0, -
ready alarm state: 165
ready print alignment page: 1, result 0, busy no, status one no
ready clean: 1, result 0, busy no, status one no
ready align: 1, result 0, busy no, status one no
ready print image: 1, failed 0, busy no, status one no
ready set network: 1, result 0, address 192.0.2.77, busy no, status one no
ready get network: 1, result 0, address 192.0.2.77, busy no, status one no
ready register push scan: 0, queried no, jobs 0, result 0, push scan yes, upgrade no
ready get push scan: 1, resolution 600
ready holds: sleep 30, supplies 0, paper 2, silent 3, clear 4, alignment 1 -2 3 -4 5 -6, pages 1, cleanings 1, images code
)");
  EXPECT_EQ(steps(), R"(
state: get usb printer (push scan) state result: 0
state:  notice caller the state information has been captured.
= 0
getAlarm: get supply alarm result: 0, alarm: 1
= 0
setSupplyAlarm: SetSuppliesAlarm ret: 0.
setSupplyAlarm:  notice caller the result of set device supply alarm.
= 0
setSleepTime: SetSleepTime ret: 0.
setSleepTime:  notice caller the result of set device sleep time.
= 0
setPaperAlarm: SetPaperAlarm ret: 0.
setPaperAlarm:  notice caller the result of set device paper alarm.
= 0
setSilentMode: SetSilentMode ret: 0.
setSilentMode:  notice caller the result of set device silent mode.
= 0
setTimedClear: SetTimedClear ret: 0.
setTimedClear:  notice caller the result of set device timed clear.
= 0
getDevParam: GetSleepTime ret: 0, time: 30
getDevParam: GetSuppliesAlarm ret: 0, supply alarm: 0
getDevParam: GetPaperAlarm ret: 0, paper alarm: 2
getDevParam: GetTimedClear ret: 0, clear mode: 4
getDevParam: GetSilentMode ret: 0, silent mode: 3
getDevParam:  notice caller the result of get device parameter.
= 0
getAlarm: get supply alarm result: 0, alarm: 0
= 0
printAdjust:  notice caller the result of send adjust cmd.
= 0
printClean:  notice caller the result of send clean cmd.
= 0
setAdjust:  notice caller the result of set adjust cmd.
= 0
printQRcode:  notice caller the result of print qrcode.
= 0
setNetwork:  notice caller the result of set device network.
= 0
getNetwork:  notice caller the result of get device network.
= 0
regPushscan: register push scan result: 0
= 0
getPushscan: get push scan parameter result: 0
= 0
)");
}

TEST_F(OperationsTest, PrinterThatPrintsIsAskedAndNotChanged) {
  EXPECT_EQ(run(L"printing"), R"(
printing state: 1, queried yes, jobs 2, result 0, push scan no, upgrade no
printing set sleep time: 1, sleep !30, supplies !0, paper !0, clear !0, silent !0, busy yes, status one no
printing print alignment page: 1, result 0, busy yes, status one no
printing align: 1, result 0, busy yes, status one no
printing print image: 1, failed 0, busy yes, status one no
printing set network: 1, result 0, address 0.0.0.0, busy yes, status one no
printing get network: 1, result 0, address 192.0.2.20, busy no, status one no
printing holds: sleep 10, supplies 1, paper 1, silent 0, clear 0, alignment 0 0 0 0 0 0, pages 0, cleanings 0, images
)");
  EXPECT_EQ(steps(), R"(
state: new job: 2, old job: 0
state: get net printer (printing) state result: 0
state:  notice caller the state information has been captured.
= 0
setSleepTime:  notice caller the result of set device sleep time.
= 0
printAdjust:  notice caller the result of send adjust cmd.
= 0
setAdjust:  notice caller the result of set adjust cmd.
= 0
printQRcode:  notice caller the result of print qrcode.
= 0
setNetwork:  notice caller the result of set device network.
= 0
getNetwork:  notice caller the result of get device network.
= 0
)");
}

TEST_F(OperationsTest, PrinterInStatusOneIsAskedAndNotChanged) {
  EXPECT_EQ(run(L"waiting"), R"(
waiting state: 1, queried yes, jobs 0, result 0, push scan no, upgrade no
waiting set sleep time: 1, sleep !30, supplies !0, paper !0, clear !0, silent !0, busy no, status one yes
waiting print alignment page: 1, result 0, busy no, status one yes
waiting align: 1, result 0, busy no, status one yes
waiting print image: 1, failed 0, busy no, status one yes
waiting set network: 1, result 0, address 0.0.0.0, busy no, status one yes
waiting get network: 1, result 0, address 192.0.2.10, busy no, status one no
waiting holds: sleep 10, supplies 1, paper 1, silent 0, clear 0, alignment 0 0 0 0 0 0, pages 0, cleanings 0, images
)");
  EXPECT_EQ(steps(), kOnlyAsked);
}

TEST_F(OperationsTest, PrinterInStatusFiveIsAskedAndPrintsImagesOnly) {
  EXPECT_EQ(run(L"alarmed"), R"(
alarmed state: 1, queried yes, jobs 0, result 0, push scan no, upgrade no
alarmed set sleep time: 1, sleep !30, supplies !0, paper !0, clear !0, silent !0, busy yes, status one no
alarmed print alignment page: 1, result 0, busy yes, status one no
alarmed align: 1, result 0, busy yes, status one no
alarmed print image: 1, failed 0, busy no, status one no
alarmed set network: 1, result 0, address 0.0.0.0, busy yes, status one no
alarmed get network: 1, result 0, address 192.0.2.10, busy no, status one no
alarmed holds: sleep 10, supplies 1, paper 1, silent 0, clear 0, alignment 0 0 0 0 0 0, pages 0, cleanings 0, images code
)");
  EXPECT_EQ(steps(), kOnlyAsked);
}

TEST_F(OperationsTest, EveryFailureIsTold) {
  EXPECT_EQ(run(L"failing"), R"(
failing alarm: 0, -
failing set paper alarm: 1, sleep !0, supplies !2, paper !2, clear !2, silent !2, busy no, status one no
failing get: 1, sleep !0, supplies !0, paper !0, clear !0, silent !0, busy no, status one no
failing clean: 1, result -9, busy no, status one no
failing print image: 1, failed 1, busy no, status one no
failing get network: 1, result -9, address 0.0.0.0, busy no, status one no
failing register push scan: 0, queried no, jobs 0, result 0, push scan no, upgrade no
failing get push scan: 0, resolution 0
failing register for upgrades: 0, queried no, jobs 0, result 0, push scan no, upgrade no
failing check firmware: 1, done no, ok no, new no, percent 0, versions '' ''
failing upgrade: 1, done yes, ok no, new no, percent 0, versions '' ''
failing upgrade with another record: 0, result 0, busy no, status one no
)");
  EXPECT_EQ(steps(), R"(
getAlarm: get supply alarm result: -9, alarm: 1
= -9
setPaperAlarm: SetPaperAlarm ret: -9.
setPaperAlarm:  notice caller the result of set device paper alarm.
= 0
getDevParam: GetPaperAlarm ret: -9, paper alarm: 0
getDevParam:  notice caller the result of get device parameter.
= 0
printClean:  notice caller the result of send clean cmd.
= 0
printQRcode:  notice caller the result of print qrcode.
= 0
getNetwork:  notice caller the result of get device network.
= 0
regPushscan: register push scan result: -9
= 1
getPushscan: get push scan parameter result: -9
= -9
regUpgrade: register firmware upgrade (key: ) result: 0
= 1
firmNewCheck:  notice caller the result of check new firmware.
= 0
firmUpgrade: firmware upgrade progress: 0 0
= 0
ERR firmUpgrade: resource type is NOT firmware upgrade
= 2
)");
}

TEST_F(OperationsTest, FirmwareIsFoundSentAndRunning) {
  EXPECT_EQ(run(L"updating"), R"(
updating register for upgrades: 0, queried no, jobs 0, result 0, push scan no, upgrade yes
updating check firmware: 3, done yes, ok yes, new yes, percent 0, versions '1.0' '2.0'
updating upgrade: 4, done yes, ok yes, new no, percent 85, versions '' ''
updating watch: 2, done yes, ok yes, new no, percent 0, versions '' ''
updating state: 1, queried yes, jobs 0, result 0, push scan no, upgrade no
updating version: 2.0
)");
  EXPECT_EQ(steps(), R"(
regUpgrade: register firmware upgrade (key: key-7) result: 1
= 0
firmNewCheck:  notice caller the result of check new firmware.
= 0
firmNewCheck:  notice caller the result of check new firmware.
= 0
firmNewCheck: get firmware version result: 1, succeed: 1
firmNewCheck:  notice caller the result of check new firmware.
= 0
firmUpgrade: firmware upgrade progress: 0 1000
firmUpgrade: firmware upgrade progress: 500 1000
firmUpgrade: firmware upgrade progress: 1000 1000
= 0
= 0
state: get usb printer (push scan) state result: 0
state:  notice caller the state information has been captured.
= 0
)");
}

TEST_F(OperationsTest, NetworksAreListedAndJoinedAndNoPasswordIsLogged) {
  EXPECT_EQ(run(L"wireless"), R"(
wireless list networks: 3, connected no, finished yes, succeeded yes, networks Office Guest
wireless join without a network: 1, connected no, finished yes, succeeded no, networks
wireless join with a wrong password: 2, connected no, finished yes, succeeded no, networks Office
wireless join: 2, connected no, finished yes, succeeded yes, networks Office
wireless list networks when joined: 1, connected yes, finished no, succeeded no, networks
)");
  EXPECT_EQ(steps(), R"(
getWifiList: Get printer wifi start, ret: 0, total: 2
getWifiList: Get Wifi progress, ret: 0, segment: 0
getWifiList: Get Wifi progress, ret: 0, segment: 1
getWifiList: Get Wifi progress, ret: 0, segment: 2
getWifiList: Get Wifi List result: 0, wifi size: 2
= 0
setWifiList: Set wifi by start, ret: 0, total: 0.
setWifiList: Set wifi progress, ret: -1007, segment: 0.
= 0
setWifiList: Set wifi by start, ret: 0, total: 1.
setWifiList: Set wifi progress, ret: 0, segment: 0.
setWifiList: Set wifi progress, ret: -1007, segment: 1.
= 0
setWifiList: Set wifi by start, ret: 0, total: 1.
setWifiList: Set wifi progress, ret: 0, segment: 0.
setWifiList: Set wifi progress, ret: 0, segment: 1.
= 0
= 0
)");
  for (const auto& line : log()) EXPECT_EQ(line.message.find(L"canary"), std::wstring::npos);
}

TEST_F(OperationsTest, PrinterInTheMiddleOfATransferDoesNotKeepAnotherFromItsOperations) {
  EXPECT_EQ(run(L"stuck"), R"(
ready state: 1, queried yes, jobs 0, result 0, push scan no, upgrade no
ready set sleep time: 1, sleep 30, supplies !0, paper !0, clear !0, silent !0, busy no, status one no
ready clean: 1, result 0, busy no, status one no
ready holds: sleep 30, supplies 1, paper 1, silent 0, clear 0, alignment 0 0 0 0 0 0, pages 0, cleanings 1, images
stuck upgrade is over: no
stuck upgrade: 4, done yes, ok yes, new no, percent 85, versions '' ''
)");
  EXPECT_EQ(steps(), R"(
firmUpgrade: firmware upgrade progress: 0 1000
state: get usb printer (push scan) state result: 0
state:  notice caller the state information has been captured.
= 0
setSleepTime: SetSleepTime ret: 0.
setSleepTime:  notice caller the result of set device sleep time.
= 0
printClean:  notice caller the result of send clean cmd.
= 0
firmUpgrade: firmware upgrade progress: 500 1000
firmUpgrade: firmware upgrade progress: 1000 1000
= 0
)");
}

}  // namespace
