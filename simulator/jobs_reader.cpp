#include <algorithm>

#include "simulator/Limits.h"
#include "simulator/PrinterParts.h"

namespace simulator {
namespace {

// The arrays of a network entry, without a last zero.
constexpr std::size_t longestName = std::tuple_size_v<decltype(AppMgr::WifiNetwork::name)> - 1;
constexpr std::size_t longestPassword = std::tuple_size_v<decltype(AppMgr::WifiNetwork::password)> - 1;

constexpr std::array<std::string_view, 3> securities{"open", "wpa2", "wpa3"};  // in the order of the entry's values
constexpr std::size_t usualSecurity = 1;

AccessPoint readAccessPoint(const StrictElement& element, const Wifi& wifi) {
  element.allow({"name", "password", "security", "signal", "segment"});
  AccessPoint point;
  point.name = element.identifier("name", longestName);
  if (std::ranges::find(wifi.accessPoints, point.name, &AccessPoint::name) != wifi.accessPoints.end()) {
    element.wrong("name", "a name that no other <access-point> of the printer has");
  }
  point.password = element.secret("password", longestPassword);
  point.security = static_cast<std::int32_t>(element.choice("security", securities, usualSecurity));
  point.signal = element.int32("signal", 50, 0, 100);
  point.segment = element.int32("segment", 1, 1, wifi.segments);
  return point;
}

}  // namespace

void readFirmware(const StrictElement& element, Printer& printer) {
  element.allow({"size", "rate", "fail-at", "restart", "version"});
  Firmware& firmware = printer.firmware;
  firmware.size = element.int32("size", firmware.size, 1);
  firmware.rate = element.int32("rate", firmware.rate, 1);
  if (element.has("fail-at")) firmware.failAt = element.int32("fail-at", {}, 0, firmware.size);
  firmware.restart = element.time("restart", longestWork, firmware.restart);
  firmware.version = element.optionalText("version");
}

void readUpgradeService(const StrictElement& element, Printer& printer) {
  element.allow({"registers", "starts", "check-time", "result", "new-version", "notes"});
  UpgradeService& service = printer.upgradeService;
  service.registers = element.yesNo("registers", service.registers);
  service.starts = element.yesNo("starts", service.starts);
  service.checkTime = element.time("check-time", longestWork, service.checkTime);
  service.result = element.yesNo("result", service.result);
  service.newVersion = element.optionalText("new-version");
  service.notes = element.text("notes");
}

void readWifi(const StrictElement& element, Printer& printer) {
  element.allow({"segments", "segment-time", "join-segments", "join-time"}, {"access-point"});
  Wifi& wifi = printer.wifi;
  wifi.segments = element.int32("segments", wifi.segments, 1, mostSegments);
  wifi.segmentTime = element.time("segment-time", longestWork, wifi.segmentTime);
  wifi.joinSegments = element.int32("join-segments", wifi.joinSegments, 1, mostSegments);
  wifi.joinTime = element.time("join-time", longestWork, wifi.joinTime);
  for (const StrictElement& child : element.children()) {
    child.refuseMoreThan(mostAccessPoints, wifi.accessPoints.size());
    wifi.accessPoints.push_back(readAccessPoint(child, wifi));
  }
}

}  // namespace simulator
