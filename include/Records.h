#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The records of the operations: what a task's operation takes and returns.
///
/// The caller makes a record and stores a `std::shared_ptr` to it, not null, in the task (`Node::setResource`). It reads the
/// record inside `Notice`. `GetAlarm`, `RegPushscan`, `RegUpgrade` and a failing `GetPushscan` never notify: they are over when
/// the module has let go of the task, which the deleter of the record can tell. The other operations notify whatever came of
/// them, and the record tells what did; a record of another operation's type is refused without a notice. A result is the
/// printer library's code, 0 success, unless its comment says otherwise.
///
/// An observer's window is told of the same runs, but only its `State` record is written; the other operations write to the
/// record of the task that they run for.
///
/// The setters, the maintenance operations and `SetNetwork` ask the printer first and send nothing while it prints or its
/// device status forbids it: then `busy` or `statusOne` is true, and the members that hold results keep their values.
/// `statusOne`: the device status is 1. `busy`: jobs are in progress (`statusOne` is left as it was), or the status is none of
/// 0, 1 and 11.

/// Blocks that the maker's libraries define; the module hands them on and looks into none of them.
namespace AppPrinterSdk {

/// Corrections that an alignment page shows to be needed.
struct AlignmentValues {
  std::array<std::int32_t, 6> corrections{};  ///< one per line of the page, in the printer's steps
};

using Ipv4Address = std::array<std::uint8_t, 4>;  ///< in the order in which it is written

/// A printer's network settings.
struct NetworkSettings {
  bool dhcp = false;  ///< the addresses below come from the network, not from here
  Ipv4Address address{};
  Ipv4Address subnetMask{};
  Ipv4Address gateway{};
  Ipv4Address dnsServer{};
};

/// Record of `Type::GetPushscan`: how the printer scans when a scan is started at its panel. The task's own window is told, and
/// only of success; observers are dropped.
struct PushScanPara {
  std::int32_t resolution = 0;  ///< dots per inch
  std::int32_t colorMode = 0;   ///< 0 black and white, 1 gray, 2 color
  std::int32_t fileFormat = 0;  ///< 0 PDF, 1 JPEG, 2 TIFF
  std::int32_t paperSize = 0;   ///< 0 A4, 1 Letter
};

}  // namespace AppPrinterSdk

namespace AppMgr {

/// A wireless network: one that a printer can see, or one that it is to join. Texts end at their first zero.
struct WifiNetwork {
  std::array<wchar_t, 128> name{};
  std::array<wchar_t, 256> password{};  ///< for joining
  std::int32_t security = 0;            ///< 0 open, 1 WPA2, 2 WPA3
  std::int32_t signal = 0;              ///< percent
};

}  // namespace AppMgr

namespace AppComm {

/// Record of `Type::State`: how the run went. What the printer said is in the printer description. `Type::RegPushscan` and
/// `Type::RegUpgrade` take this record too; they never notify.
///
/// The state is read in a run of
/// - a network printer when it has jobs, or when `StartNPA` asked for it;
/// - a USB printer without jobs when it supports push scanning, or when `StartNPA` asked for it;
/// - a USB printer with jobs when it has a control port.
///
/// Every run notifies, whether it read or not; `queried` tells. But while the caller has set `busy` nothing is read and nobody
/// is told; it may do so at any time, through `std::atomic_ref`.
struct State {
  bool queried = false;             ///< the printer's state was read in this run
  bool busy = false;                ///< set by the caller: no state is read and no notice is sent
  bool pushScanRegistered = false;  ///< the last push-scan registration succeeded
  bool upgradeRegistered = false;   ///< the last registration with the upgrade service succeeded
  bool ipChanged = false;           ///< the address of a network printer changed
  std::int32_t jobs = 0;            ///< jobs in progress, as of this run
  std::int32_t result = 0;          ///< result of the last state read; kept in runs that read nothing
};

/// Record of `Type::GetDevParam` and the five setters `Type::SetSupplyAlarm` to `Type::SetTimedClear`. A setter sends its own
/// value and writes its own flag; the supplies alarm is always set to 0. Units and ranges are the printer library's.
struct DevParam {
  bool busy = false;
  bool statusOne = false;
  bool sleepTimeOk = false;  ///< get: set by the caller, read the sleep time; get and set: whether that succeeded
  bool supplyAlarmOk = false;
  bool paperAlarmOk = false;
  bool timedClearOk = false;
  bool silentModeOk = false;
  std::int32_t sleepTime = 0;
  std::uint8_t supplyAlarm = 0;
  std::uint8_t paperAlarm = 0;
  std::uint8_t silentMode = 0;
  std::uint8_t timedClear = 0;
};

/// Record of `Type::PrintAdjust` (print an alignment page) and `Type::PrintClean` (clean the heads).
struct Maintain {
  bool busy = false;
  bool statusOne = false;
  std::int32_t result = 0;
};

/// Record of `Type::SetAdjust`.
struct SetAdjust {
  AppPrinterSdk::AlignmentValues values{};
  bool busy = false;
  bool statusOne = false;
  std::int32_t result = 0;
};

/// Record of `Type::PrintQRcode`. A device status other than 1 does not keep the image from being printed.
struct QRCode {
  std::wstring image{};  ///< what to print, in the terms of the SDK library
  bool busy = false;
  bool statusOne = false;
  std::int32_t printFailed = 0;  ///< 1 when the image was sent and not printed
};

/// Record of `Type::GetNetwork` and `Type::SetNetwork`. Getting asks nothing first and leaves `busy` and `statusOne` alone.
struct NetWork {
  std::int32_t result = 0;
  bool busy = false;
  bool statusOne = false;
  AppPrinterSdk::NetworkSettings settings{};
};

/// Record of `Type::FirmNewCheck`, `Type::FirmUpgrade` and `Type::FirmUpCheck`; a fresh one for each.
///
/// - `FirmNewCheck`, a repeating task, goes one step in each run, and every run notifies. The first run starts the check, later
///   ones ask whether it is done and then fetch the versions: `newFirmware` tells whether there are any. Once a notice finds
///   `done` true or `ok` false there is nothing more to learn: the caller ends the task.
/// - `FirmUpgrade` sends the firmware and notifies after each progress call that succeeded, and at the end.
/// - `FirmUpCheck` asks the printer for its state again and again, and notifies each time, until the caller sets `done`
///   (through `std::atomic_ref`).
///
/// The last two hold the printer's worker until then. Deleting the task ends them as well, without a last notice.
struct FirmUp {
  bool triggered = false;    ///< check: started
  bool done = false;         ///< check: finished; upgrade: ended, sent or failed; watch: set by the caller to end it
  bool ok = false;           ///< check, upgrade: the last call succeeded; watch: the printer answered
  bool newFirmware = false;  ///< check: the versions were fetched
  std::int32_t percent = 0;  ///< upgrade: 0 to 100; a complete transfer is 85, the rest is the printer's restart
  std::wstring firmware{};   ///< upgrade: what to send, in the terms of the printer library
  std::wstring versionText1{};
  std::wstring versionText2{};
};

/// Record of `Type::GetWifiList` and `Type::SetWifiList`. Both notify twice a second while they run, with `finished` false, and
/// once at the end. They hold the printer's worker until then; deleting the task ends them without a last notice. A printer
/// that is in the network already is not asked for a list: one notice, with `connected`.
struct WIFI {
  bool connected = false;  ///< get: the printer is in the network already, and no list was fetched
  bool finished = false;
  bool succeeded = false;                       ///< get: there is a list, with at least one network; set: the printer joined
  std::vector<AppMgr::WifiNetwork> networks{};  ///< get: the result; set: the first is the one to join
};

}  // namespace AppComm

#if defined(_WIN32)
// Applications were built against these layouts.
static_assert(sizeof(AppPrinterSdk::AlignmentValues) == 24);
static_assert(sizeof(AppPrinterSdk::Ipv4Address) == 4);
static_assert(offsetof(AppPrinterSdk::NetworkSettings, dhcp) == 0 && offsetof(AppPrinterSdk::NetworkSettings, address) == 1 &&
              offsetof(AppPrinterSdk::NetworkSettings, subnetMask) == 5 &&
              offsetof(AppPrinterSdk::NetworkSettings, gateway) == 9 &&
              offsetof(AppPrinterSdk::NetworkSettings, dnsServer) == 13 && sizeof(AppPrinterSdk::NetworkSettings) == 17);
static_assert(offsetof(AppPrinterSdk::PushScanPara, resolution) == 0 && offsetof(AppPrinterSdk::PushScanPara, colorMode) == 4 &&
              offsetof(AppPrinterSdk::PushScanPara, fileFormat) == 8 &&
              offsetof(AppPrinterSdk::PushScanPara, paperSize) == 12 && sizeof(AppPrinterSdk::PushScanPara) == 16);
static_assert(offsetof(AppMgr::WifiNetwork, name) == 0 && offsetof(AppMgr::WifiNetwork, password) == 256 &&
              offsetof(AppMgr::WifiNetwork, security) == 768 && offsetof(AppMgr::WifiNetwork, signal) == 772 &&
              sizeof(AppMgr::WifiNetwork) == 776);

namespace AppComm {

static_assert(offsetof(State, queried) == 0 && offsetof(State, busy) == 1 && offsetof(State, pushScanRegistered) == 2 &&
              offsetof(State, upgradeRegistered) == 3 && offsetof(State, ipChanged) == 4 && offsetof(State, jobs) == 8 &&
              offsetof(State, result) == 12 && sizeof(State) == 16);
static_assert(offsetof(DevParam, busy) == 0 && offsetof(DevParam, statusOne) == 1 && offsetof(DevParam, sleepTimeOk) == 2 &&
              offsetof(DevParam, supplyAlarmOk) == 3 && offsetof(DevParam, paperAlarmOk) == 4 &&
              offsetof(DevParam, timedClearOk) == 5 && offsetof(DevParam, silentModeOk) == 6 &&
              offsetof(DevParam, sleepTime) == 8 && offsetof(DevParam, supplyAlarm) == 12 &&
              offsetof(DevParam, paperAlarm) == 13 && offsetof(DevParam, silentMode) == 14 &&
              offsetof(DevParam, timedClear) == 15 && sizeof(DevParam) == 16);
static_assert(offsetof(Maintain, busy) == 0 && offsetof(Maintain, statusOne) == 1 && offsetof(Maintain, result) == 4 &&
              sizeof(Maintain) == 8);
static_assert(offsetof(SetAdjust, values) == 0 && offsetof(SetAdjust, busy) == 24 && offsetof(SetAdjust, statusOne) == 25 &&
              offsetof(SetAdjust, result) == 28 && sizeof(SetAdjust) == 32);
static_assert(offsetof(NetWork, result) == 0 && offsetof(NetWork, busy) == 4 && offsetof(NetWork, statusOne) == 5 &&
              offsetof(NetWork, settings) == 6 && sizeof(NetWork) == 24);
static_assert(offsetof(QRCode, image) == 0 && offsetof(QRCode, busy) == sizeof(std::wstring) &&
              offsetof(QRCode, statusOne) == sizeof(std::wstring) + 1 &&
              offsetof(QRCode, printFailed) == sizeof(std::wstring) + 4 && sizeof(QRCode) == sizeof(std::wstring) + 8);
static_assert(offsetof(FirmUp, triggered) == 0 && offsetof(FirmUp, done) == 1 && offsetof(FirmUp, ok) == 2 &&
              offsetof(FirmUp, newFirmware) == 3 && offsetof(FirmUp, percent) == 4 && offsetof(FirmUp, firmware) == 8 &&
              offsetof(FirmUp, versionText1) == 8 + sizeof(std::wstring) &&
              offsetof(FirmUp, versionText2) == 8 + 2 * sizeof(std::wstring) && sizeof(FirmUp) == 8 + 3 * sizeof(std::wstring));
static_assert(offsetof(WIFI, connected) == 0 && offsetof(WIFI, finished) == 1 && offsetof(WIFI, succeeded) == 2 &&
              offsetof(WIFI, networks) == 8 && sizeof(WIFI) == 8 + sizeof(std::vector<AppMgr::WifiNetwork>));

}  // namespace AppComm
#endif
