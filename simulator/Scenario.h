#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "PrinterInfo.h"
#include "Records.h"
#include "simulator/Functions.h"
#include "simulator/PrinterContents.h"

/// A scenario as it was read: plain data that never changes afterwards, and the questions that are answered from it alone.
/// Times count from the moment the scenario was loaded.
namespace simulator {

using std::chrono::milliseconds;

/// What a printer shows at one moment.
struct Readings {
  std::int32_t jobs = 0;
  std::int32_t status = 0;
  std::wstring address;
  std::vector<qzstd::Supply> supplies;
  std::vector<std::int32_t> alerts;
};

struct Change {
  milliseconds at{};
  std::function<void(Readings&)> apply;
};

struct Latency {
  milliseconds min{};
  milliseconds max{};
};

enum class FaultKind { fail, hang, garbage };

struct Fault {
  FaultKind kind = FaultKind::fail;
  std::int32_t code = 0;               ///< fail: what the call answers
  std::optional<milliseconds> length;  ///< hang: none hangs until it is released

  // The calls that it hits: both must hold.
  std::uint32_t fromCall = 1;  ///< counted from 1, per printer and function
  std::uint32_t calls = std::numeric_limits<std::uint32_t>::max();
  milliseconds from{};                       ///< when the call begins
  milliseconds until = milliseconds::max();  ///< exclusive
};

/// How calls of one function to one printer behave.
struct Behaviour {
  Latency latency;
  std::vector<Fault> faults;  ///< of each kind the first that hits a call applies
};

/// How a firmware transfer goes.
struct Firmware {
  std::int32_t size = 1'000'000;        ///< bytes
  std::int32_t rate = 250'000;          ///< bytes per second
  std::optional<std::int32_t> failAt;   ///< bytes
  milliseconds restart{3'000};          ///< after a complete transfer
  std::optional<std::wstring> version;  ///< afterwards; without one, the text that was sent
};

/// What the upgrade service says about the printer.
struct UpgradeService {
  bool registers = true;
  bool starts = true;
  milliseconds checkTime{1'500};
  bool result = true;
  std::optional<std::wstring> newVersion;
  std::wstring notes;
};

struct AccessPoint {
  std::wstring name;
  std::wstring password;
  std::int32_t security = 0;  ///< as in `AppMgr::WifiNetwork`
  std::int32_t signal = 0;
  std::int32_t segment = 1;  ///< found once so many are done
};

/// The printer's wireless surroundings.
struct Wifi {
  std::int32_t segments = 4;
  milliseconds segmentTime{300};
  std::int32_t joinSegments = 3;
  milliseconds joinTime{300};  ///< of one segment
  std::vector<AccessPoint> accessPoints;
};

struct Printer {
  qzstd::PrinterInfo description;  ///< its state members are empty
  std::wstring model;
  std::wstring serialNumber;
  std::wstring firmwareVersion;
  std::array<std::uint8_t, 16> deviceId{};
  bool pushScan = false;
  AppPrinterSdk::PushScanPara pushScanParameters{300, 2, 0, 0};
  bool suppliesAlarm = true;
  DeviceParameters parameters;
  AppPrinterSdk::NetworkSettings network{false, {192, 0, 2, 10}, {255, 255, 255, 0}, {192, 0, 2, 1}, {192, 0, 2, 1}};
  bool netConnected = false;
  AppPrinterSdk::AlignmentValues alignment;
  milliseconds pageTime{};   ///< how long a page or an image is a job in progress
  milliseconds cleanTime{};  ///< how long the device status tells of a cleaning
  Firmware firmware;
  UpgradeService upgradeService;
  Wifi wifi;
  Readings initial;
  std::vector<Change> timeline;  ///< never goes back
  std::array<Behaviour, functionCount> behaviour;
};

struct Scenario {
  std::uint64_t seed = 1;
  std::vector<Printer> printers;
};

Readings readingsAt(const Printer& printer, milliseconds at);

/// What happens to one call.
struct Effects {
  milliseconds latency{};
  std::optional<Fault> hang;
  std::optional<Fault> failure;
  bool garbage = false;
};

/// How long the call waits before it does anything; nothing when it hangs until it is released.
std::optional<milliseconds> waitOf(const Effects& effects);

/// `number` counts the printer's calls of the function from 1. The same scenario and number give the same latency on every
/// system and in every order of threads.
Effects effectsOf(const Scenario& scenario, std::size_t printer, Function function, std::uint32_t number, milliseconds at);

}  // namespace simulator
