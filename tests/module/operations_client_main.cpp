/// An application that runs operations on simulated printers, each when the one before has ended, and writes a line for each:
/// what it did, how often its window was told, and what its record held in the end. The simulation's clock stands still but for
/// what the windows move it on, so each run does the same.
///   module_operations ready|printing|waiting|alarmed|failing|updating|wireless
///   module_operations stuck     one printer is in the middle of an operation while another one does others
/// Exit code 0, or 1 when something did not happen in time.

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "module/OperationRun.h"
#include "simulator/SimulatedPrinters.h"
#include "support/ThreadCount.h"

namespace {

using namespace std::chrono_literals;
using AppComm::Type;
using application::Answer;
using application::OperationRun;
using application::printer;

void require(bool happened, const std::string& what) {
  if (happened) return;
  std::fprintf(stderr, "did not happen in time: %s\n", what.c_str());
  std::_Exit(1);
}

std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }  // all texts are ASCII
std::string text(const wchar_t* zeroEnded) { return narrow(zeroEnded); }
std::string text(bool flag) { return flag ? "yes" : "no"; }

// How each record shows in a line.
std::string shown(const AppComm::State& record) {
  return "queried " + text(record.queried) + ", jobs " + std::to_string(record.jobs) + ", result " +
         std::to_string(record.result) + ", push scan " + text(record.pushScanRegistered) + ", upgrade " +
         text(record.upgradeRegistered);
}
std::string availability(bool busy, bool statusOne) { return ", busy " + text(busy) + ", status one " + text(statusOne); }
std::string shown(const AppComm::DevParam& record) {
  const auto parameter = [](bool ok, int value) { return (ok ? " " : " !") + std::to_string(value); };
  return "sleep" + parameter(record.sleepTimeOk, record.sleepTime) + ", supplies" +
         parameter(record.supplyAlarmOk, record.supplyAlarm) + ", paper" + parameter(record.paperAlarmOk, record.paperAlarm) +
         ", clear" + parameter(record.timedClearOk, record.timedClear) + ", silent" +
         parameter(record.silentModeOk, record.silentMode) + availability(record.busy, record.statusOne);
}
std::string shown(const AppComm::Maintain& record) {
  return "result " + std::to_string(record.result) + availability(record.busy, record.statusOne);
}
std::string shown(const AppComm::SetAdjust& record) {
  return "result " + std::to_string(record.result) + availability(record.busy, record.statusOne);
}
std::string shown(const AppComm::QRCode& record) {
  return "failed " + std::to_string(record.printFailed) + availability(record.busy, record.statusOne);
}
std::string shown(const AppComm::NetWork& record) {
  std::string address;
  for (const int part : record.settings.address) address += (address.empty() ? "" : ".") + std::to_string(part);
  return "result " + std::to_string(record.result) + ", address " + address + availability(record.busy, record.statusOne);
}
std::string shown(const AppPrinterSdk::PushScanPara& record) { return "resolution " + std::to_string(record.resolution); }
std::string shown(const AppComm::FirmUp& record) {
  return "done " + text(record.done) + ", ok " + text(record.ok) + ", new " + text(record.newFirmware) + ", percent " +
         std::to_string(record.percent) + ", versions '" + narrow(record.versionText1) + "' '" + narrow(record.versionText2) +
         "'";
}
std::string shown(const AppComm::WIFI& record) {
  std::string networks;
  for (const auto& network : record.networks) networks += ' ' + text(network.name.data());
  return "connected " + text(record.connected) + ", finished " + text(record.finished) + ", succeeded " +
         text(record.succeeded) + ", networks" + networks;
}
struct NoRecord {};  // of the operation that takes none
std::string shown(const NoRecord& /*record*/) { return "-"; }

/// The application: a description per printer, kept from one operation to the next, as the state in it is.
class Application {
 public:
  template <class Record>
  void run(const std::wstring& uid, Type type, const char* what, Record request, Answer<Record> answer = nullptr,
           bool repeating = false) {
    if (!answer) answer = [](Record&) { return true; };
    OperationRun<Record> operation(description(uid), type, std::move(request), std::move(answer));
    if (repeating) operation.repeating();
    operation.start();
    tellOutcome(uid, what, operation);
  }

  /// Waits for the end.
  template <class Record>
  static void tellOutcome(const std::wstring& uid, const char* what, OperationRun<Record>& operation) {
    const auto outcome = operation.waitForEnd();
    require(outcome.has_value(), narrow(uid) + ", " + what);
    std::printf("%s %s: %d, %s\n", narrow(uid).c_str(), what, outcome->notices, shown(outcome->record).c_str());
  }

  const std::shared_ptr<qzstd::PrinterInfo>& description(const std::wstring& uid) {
    auto& kept = m_descriptions[uid];
    if (!kept) kept = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid));
    return kept;
  }

 private:
  std::map<std::wstring, std::shared_ptr<qzstd::PrinterInfo>> m_descriptions;
};

constexpr auto kStep = 500ms;

/// A window that lets the simulated printers go on.
template <class Record>
Answer<Record> letTimePass() {
  return [](Record&) {
    simulator::advanceTime(kStep);
    return true;
  };
}

AppComm::DevParam selectingAll() {
  AppComm::DevParam record;
  record.sleepTimeOk = record.supplyAlarmOk = record.paperAlarmOk = record.timedClearOk = record.silentModeOk = true;
  return record;
}

AppComm::DevParam parameters(std::int32_t sleepTime, std::uint8_t others) {
  AppComm::DevParam record;
  record.sleepTime = sleepTime;
  record.supplyAlarm = record.paperAlarm = record.timedClear = record.silentMode = others;
  return record;
}

void tellWhatItHolds(const std::wstring& uid) {
  const auto held = simulator::contents(uid);
  const auto& set = held.parameters;
  std::printf("%s holds: sleep %d, supplies %d, paper %d, silent %d, clear %d, alignment", narrow(uid).c_str(), set.sleepTime,
              set.suppliesAlarm, set.paperAlarm, set.silentMode, set.timedClear);
  for (const int correction : held.alignment.corrections) std::printf(" %d", correction);
  std::printf(", pages %zu, cleanings %zu, images", held.alignmentPages, held.cleanings);
  for (const auto& image : held.images) std::printf(" %s", narrow(image).c_str());
  std::printf("\n");
}

void changeEverything(Application& application) {
  const std::wstring uid = L"ready";
  application.run(uid, Type::State, "state", AppComm::State{});
  application.run(uid, Type::GetAlarm, "alarm", NoRecord{});
  std::printf("%s alarm state: %d\n", "ready", application.description(uid)->suppliesAlarmState);
  application.run(uid, Type::SetSupplyAlarm, "set supplies alarm", parameters(0, 7));
  application.run(uid, Type::SetSleepTime, "set sleep time", parameters(30, 0));
  application.run(uid, Type::SetPaperAlarm, "set paper alarm", parameters(0, 2));
  application.run(uid, Type::SetSilentMode, "set silent mode", parameters(0, 3));
  application.run(uid, Type::SetTimedClear, "set timed clear", parameters(0, 4));
  application.run(uid, Type::GetDevParam, "get", selectingAll());
  application.run(uid, Type::GetAlarm, "alarm", NoRecord{});
  std::printf("%s alarm state: %d\n", "ready", application.description(uid)->suppliesAlarmState);
  application.run(uid, Type::PrintAdjust, "print alignment page", AppComm::Maintain{});
  application.run(uid, Type::PrintClean, "clean", AppComm::Maintain{});
  application.run(uid, Type::SetAdjust, "align", AppComm::SetAdjust{.values = {{1, -2, 3, -4, 5, -6}}});
  application.run(uid, Type::PrintQRcode, "print image", AppComm::QRCode{.image = L"code"});
  application.run(uid, Type::SetNetwork, "set network", AppComm::NetWork{.settings = {.address = {192, 0, 2, 77}}});
  application.run(uid, Type::GetNetwork, "get network", AppComm::NetWork{});
  application.run(uid, Type::RegPushscan, "register push scan", AppComm::State{});
  application.run(uid, Type::GetPushscan, "get push scan", AppPrinterSdk::PushScanPara{});
  tellWhatItHolds(uid);
}

// Its status is known to the module once the state was read.
void askAndTryToChange(Application& application, const std::wstring& uid) {
  application.run(uid, Type::State, "state", AppComm::State{});
  application.run(uid, Type::SetSleepTime, "set sleep time", parameters(30, 0));
  application.run(uid, Type::PrintAdjust, "print alignment page", AppComm::Maintain{});
  application.run(uid, Type::SetAdjust, "align", AppComm::SetAdjust{});
  application.run(uid, Type::PrintQRcode, "print image", AppComm::QRCode{.image = L"code"});
  application.run(uid, Type::SetNetwork, "set network", AppComm::NetWork{});
  application.run(uid, Type::GetNetwork, "get network", AppComm::NetWork{});
  tellWhatItHolds(uid);
}

void refuseWhilePrinting(Application& application) { askAndTryToChange(application, L"printing"); }
void refuseWhileWaiting(Application& application) { askAndTryToChange(application, L"waiting"); }
void refuseWhileAlarmed(Application& application) { askAndTryToChange(application, L"alarmed"); }

void failAtEverything(Application& application) {
  const std::wstring uid = L"failing";
  application.run(uid, Type::GetAlarm, "alarm", NoRecord{});
  application.run(uid, Type::SetPaperAlarm, "set paper alarm", parameters(0, 2));
  application.run(uid, Type::GetDevParam, "get", AppComm::DevParam{.paperAlarmOk = true});
  application.run(uid, Type::PrintClean, "clean", AppComm::Maintain{});
  application.run(uid, Type::PrintQRcode, "print image", AppComm::QRCode{});
  application.run(uid, Type::GetNetwork, "get network", AppComm::NetWork{});
  application.run(uid, Type::RegPushscan, "register push scan", AppComm::State{});
  application.run(uid, Type::GetPushscan, "get push scan", AppPrinterSdk::PushScanPara{});
  application.run(uid, Type::RegUpgrade, "register for upgrades", AppComm::State{});
  application.run(uid, Type::FirmNewCheck, "check firmware", AppComm::FirmUp{});
  application.run(uid, Type::FirmUpgrade, "upgrade", AppComm::FirmUp{.firmware = L"new.bin"});
  application.run(uid, Type::FirmUpgrade, "upgrade with another record", AppComm::Maintain{});
}

void upgradeFirmware(Application& application) {
  const std::wstring uid = L"updating";
  application.run(uid, Type::RegUpgrade, "register for upgrades", AppComm::State{});
  application.run<AppComm::FirmUp>(
      uid, Type::FirmNewCheck, "check firmware", {},
      [](AppComm::FirmUp& record) {
        simulator::advanceTime(kStep);
        return record.ok && !record.newFirmware;
      },
      true);
  application.run<AppComm::FirmUp>(uid, Type::FirmUpgrade, "upgrade", {.firmware = L"new.bin"}, letTimePass<AppComm::FirmUp>());
  application.run<AppComm::FirmUp>(uid, Type::FirmUpCheck, "watch", {}, [](AppComm::FirmUp& record) {
    simulator::advanceTime(kStep);
    std::atomic_ref(record.done).store(record.ok);
    return true;
  });
  application.run(uid, Type::State, "state", AppComm::State{});
  std::printf("updating version: %s\n", narrow(application.description(uid)->firmwareVersion).c_str());
}

AppComm::WIFI joining(std::wstring_view name, std::wstring_view password) {
  AppComm::WIFI record;
  auto& network = record.networks.emplace_back();
  name.copy(network.name.data(), network.name.size() - 1);
  password.copy(network.password.data(), network.password.size() - 1);
  network.security = 1;
  return record;
}

void joinNetwork(Application& application) {
  const std::wstring uid = L"wireless";
  const auto passing = letTimePass<AppComm::WIFI>();
  application.run<AppComm::WIFI>(uid, Type::GetWifiList, "list networks", {}, passing);
  application.run<AppComm::WIFI>(uid, Type::SetWifiList, "join without a network", {}, passing);
  application.run<AppComm::WIFI>(uid, Type::SetWifiList, "join with a wrong password", joining(L"Office", L"guess"), passing);
  application.run<AppComm::WIFI>(uid, Type::SetWifiList, "join", joining(L"Office", L"canary-secret"), passing);
  application.run<AppComm::WIFI>(uid, Type::GetWifiList, "list networks when joined", {}, passing);
}

// The second progress call does not come back before it is let go; the first notice has moved the transfer on to its half.
void leaveOneInACall(Application& application) {
  const std::wstring uid = L"stuck";
  OperationRun<AppComm::FirmUp> transfer(application.description(uid), Type::FirmUpgrade, {.firmware = L"new.bin"},
                                         letTimePass<AppComm::FirmUp>());
  transfer.start();
  require(simulator::waitUntilBegun("AppPrinterSdk_UpgradeFwProgress", 2, application::kPatience, uid), "the call that hangs");
  application.run(L"ready", Type::State, "state", AppComm::State{});
  application.run(L"ready", Type::SetSleepTime, "set sleep time", parameters(30, 0));
  application.run(L"ready", Type::PrintClean, "clean", AppComm::Maintain{});
  tellWhatItHolds(L"ready");
  std::printf("stuck upgrade is over: %s\n", text(transfer.isOver()).c_str());
  simulator::releaseCalls();
  application.tellOutcome(uid, "upgrade", transfer);
}

std::string failingCalls() {
  std::string calls;
  for (const char* function : {"AppPrinterSdk_GetSuppliesAlarm", "AppPrinterSdk_SetPaperAlarm", "AppPrinterSdk_GetPaperAlarm",
                               "AppPrinterSdk_SetClean", "AppPrinterSdk_GetNetWork", "AppPrinterSdk_RegisterPushScanUSB",
                               "AppPrinterSdk_GetPushScanPara", "AppPrinterSdk_UpgradeFwProgress"}) {
    calls += std::string("<call function='") + function + "'><fail code='-9'/></call>";
  }
  for (const char* function : {"AppSdk_PrintBmp", "AppSdk_SetPrinterUpgradeInfo", "AppSdk_TriggerFwUpgradeStart"}) {
    calls += std::string("<call function='") + function + "'><fail/></call>";
  }
  return calls;
}

void loadAllPrinters() {
  constexpr const char* kUsb = "connection='usb' interval='20' ";
  application::loadPrinters(
      printer("ready", std::string(kUsb) + "push-scan='yes'",
              "<parameters sleep-time='10' supplies-alarm='1' paper-alarm='1' silent-mode='0' timed-clear='0'/>"
              "<network address='192.0.2.10'/><push-scan resolution='600'/>") +
      printer("printing", "connection='network' interval='20' jobs='2' status='3'", "<network address='192.0.2.20'/>") +
      printer("waiting", std::string(kUsb) + "push-scan='yes' status='1'") +
      printer("alarmed", std::string(kUsb) + "push-scan='yes' status='5'") +
      printer("failing", std::string(kUsb) + "push-scan='yes'", failingCalls()) +
      printer("updating", std::string(kUsb) + "push-scan='yes' firmware='1.0' upgrade-key='key-7'",
              "<firmware size='1000' rate='1000' restart='900' version='2.0'/>"
              "<upgrade-service check-time='900' new-version='2.0'/>") +
      printer("stuck", kUsb,
              "<firmware size='1000' rate='1000'/>"
              "<call function='AppPrinterSdk_UpgradeFwProgress'><hang call='2'/></call>") +
      printer("wireless", kUsb,
              "<wifi segments='2' segment-time='500' join-segments='1' join-time='500'>"
              "<access-point name='Office' password='canary-secret' security='wpa2' signal='80' segment='1'/>"
              "<access-point name='Guest' security='open' signal='40' segment='2'/></wifi>"));
  simulator::holdTime();
}

}  // namespace

int main(int count, char** values) {
  const std::map<std::string, void (*)(Application&)> actions{
      {"ready", changeEverything},     {"printing", refuseWhilePrinting}, {"waiting", refuseWhileWaiting},
      {"alarmed", refuseWhileAlarmed}, {"stuck", leaveOneInACall},        {"failing", failAtEverything},
      {"updating", upgradeFirmware},   {"wireless", joinNetwork}};
  const auto action = actions.find(count == 2 ? values[1] : "");
  if (action == actions.end()) {
    std::fputs("module_operations: unknown printer\n", stderr);
    return 1;
  }
  const int threadsBefore = support::threadCount();
  loadAllPrinters();
  Application application;
  action->second(application);
  Stop();
  require(support::waitForThreadCount(threadsBefore, std::chrono::steady_clock::now() + application::kPatience),
          "the end of the threads");
  return 0;
}
