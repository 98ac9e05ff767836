#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace qzstd {

/// The fill level of one supply.
struct Supply {
  std::wstring color;
  std::int32_t percent = 0;  ///< 0 (empty) to 100 (full)

  friend bool operator==(const Supply&, const Supply&) = default;
};

/// What the application, the module and the printer libraries know about one printer.
///
/// Made by the application and shared by `std::shared_ptr`; the module hands it whole to the printer libraries, which fill the
/// state members. While a task that uses it is in a list, the state members belong to that list's worker: the application reads
/// them inside `Notice` only. Two lists never share one description: after `Stop`, a new `Add` takes a new one.
struct PrinterInfo {
  std::wstring name;                ///< which device the state below belongs to; not itself part of that state
  std::wstring uid;                 ///< names the printer's communication list
  std::int32_t interval = 0;        ///< pacing of the printer's list, milliseconds; 0 or less: no pause between runs
  std::int32_t connectionKind = 0;  ///< 0 USB, 1 network
  bool hasCtrlPort = false;         ///< a USB printer that can be read while it prints
  std::wstring managerId;           ///< how the manager library names the printer

  /// State: filled by a state read. The id is the printer's own, 16 bytes.
  std::wstring model;
  std::wstring serialNumber;
  std::wstring firmwareVersion;
  std::wstring address;
  std::array<std::uint8_t, 16> deviceId{};
  /// 0 ready; 1 refuses changes; 11 accepts them; any other value counts as busy, but not for an image.
  std::int32_t deviceStatus = 0;
  std::vector<Supply> supplies;
  std::vector<std::int32_t> alerts;  ///< codes of the printer's active alerts

  std::int32_t suppliesAlarmState = 0;  ///< 160 (on, or no such alarm) or 165 (off), after a `GetAlarm` that succeeded
  std::wstring upgradeKey;              ///< registration key of the upgrade service
};

}  // namespace qzstd
