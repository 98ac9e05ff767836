#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Records.h"

namespace simulator {

/// The settings that the parameter functions read and write, in the printer library's units.
struct DeviceParameters {
  std::int32_t sleepTime = 10;
  std::uint8_t suppliesAlarm = 1;
  std::uint8_t paperAlarm = 1;
  std::uint8_t silentMode = 0;
  std::uint8_t timedClear = 0;

  friend bool operator==(const DeviceParameters&, const DeviceParameters&) = default;
};

/// How many printed images are kept; older ones leave.
inline constexpr std::size_t imageCapacity = 1'000;

/// What a printer has been told and holds, beside what it shows (its jobs, status, supplies ...).
struct PrinterContents {
  DeviceParameters parameters;
  AppPrinterSdk::NetworkSettings network;
  bool netConnected = false;  ///< can be reached over the network
  AppPrinterSdk::AlignmentValues alignment;
  std::size_t alignmentPages = 0;  ///< printed
  std::size_t cleanings = 0;
  std::vector<std::wstring> images;  ///< printed, in order
  std::wstring firmwareVersion;
  bool pushScanRegistered = false;
  bool upgradeRegistered = false;
  std::wstring upgradeKey;     ///< under which it was registered
  std::wstring joinedNetwork;  ///< the wireless network, empty when it joined none
};

}  // namespace simulator
