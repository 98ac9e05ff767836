#include <charconv>

#include "simulator/PrinterParts.h"

namespace simulator {
namespace {

struct ByteParameter {
  std::string_view name;
  std::uint8_t DeviceParameters::*member;
};
constexpr std::array byteParameters{ByteParameter{"supplies-alarm", &DeviceParameters::suppliesAlarm},
                                    ByteParameter{"paper-alarm", &DeviceParameters::paperAlarm},
                                    ByteParameter{"silent-mode", &DeviceParameters::silentMode},
                                    ByteParameter{"timed-clear", &DeviceParameters::timedClear}};

struct AddressRow {
  std::string_view name;
  AppPrinterSdk::Ipv4Address AppPrinterSdk::NetworkSettings::*member;
};
constexpr std::array addresses{AddressRow{"address", &AppPrinterSdk::NetworkSettings::address},
                               AddressRow{"subnet-mask", &AppPrinterSdk::NetworkSettings::subnetMask},
                               AddressRow{"gateway", &AppPrinterSdk::NetworkSettings::gateway},
                               AddressRow{"dns-server", &AppPrinterSdk::NetworkSettings::dnsServer}};

struct PushScanRow {
  std::string_view name;
  std::int32_t AppPrinterSdk::PushScanPara::*member;
};
constexpr std::array pushScanTable{PushScanRow{"resolution", &AppPrinterSdk::PushScanPara::resolution},
                                   PushScanRow{"color-mode", &AppPrinterSdk::PushScanPara::colorMode},
                                   PushScanRow{"file-format", &AppPrinterSdk::PushScanPara::fileFormat},
                                   PushScanRow{"paper-size", &AppPrinterSdk::PushScanPara::paperSize}};

/// Reads numbers with `separator` between them; false unless `text` is exactly so many.
template <typename Number, std::size_t count>
bool readNumbers(std::string_view text, char separator, std::array<Number, count>& numbers) {
  const char* place = text.data();
  const char* const end = place + text.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) {
      if (place == end || *place != separator) return false;
      ++place;
    }
    const auto parsed = std::from_chars(place, end, numbers[i]);
    if (parsed.ec != std::errc()) return false;
    if (*place == '0' && parsed.ptr - place > 1) return false;  // some would read it as octal
    place = parsed.ptr;
  }
  return place == end;
}

}  // namespace

void readParameters(const StrictElement& element, Printer& printer) {
  std::vector<std::string_view> known{"sleep-time"};
  for (const ByteParameter& parameter : byteParameters) known.push_back(parameter.name);
  element.allow(known);
  DeviceParameters& parameters = printer.parameters;
  parameters.sleepTime = element.int32("sleep-time", parameters.sleepTime);
  for (const auto& [name, member] : byteParameters) {
    parameters.*member = static_cast<std::uint8_t>(element.number(name, 0, 255, parameters.*member));
  }
}

void readNetwork(const StrictElement& element, Printer& printer) {
  std::vector<std::string_view> known{"dhcp", "reachable"};
  for (const AddressRow& address : addresses) known.push_back(address.name);
  element.allow(known);
  printer.network.dhcp = element.yesNo("dhcp", printer.network.dhcp);
  printer.netConnected = element.yesNo("reachable", printer.netConnected);
  for (const auto& [name, member] : addresses) {
    if (!element.has(name) || readNumbers(element.raw(name), '.', printer.network.*member)) continue;
    element.wrong(name, "four numbers from 0 to 255 with dots between them");
  }
}

void readAlignment(const StrictElement& element, Printer& printer) {
  element.allow({"values"});
  if (readNumbers(element.raw("values"), ' ', printer.alignment.corrections)) return;
  element.wrong("values", "six whole numbers from -2147483648 to 2147483647 with one blank between them");
}

void readPushScan(const StrictElement& element, Printer& printer) {
  element.allow(namesOf(pushScanTable));
  for (const auto& [name, member] : pushScanTable) {
    printer.pushScanParameters.*member = element.int32(name, printer.pushScanParameters.*member);
  }
}

}  // namespace simulator
