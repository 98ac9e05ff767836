#include "simulator/Garbage.h"

#include <algorithm>
#include <array>

namespace simulator::garbage {
namespace {

constexpr std::array percentages{std::numeric_limits<std::int32_t>::min(), -1, 101, std::numeric_limits<std::int32_t>::max()};

}  // namespace

void fillState(qzstd::PrinterInfo& printer) {
  printer.model.assign(textLength, L'M');
  printer.serialNumber = L"%s%n%ws%d%99999999d%";
  printer.firmwareVersion = std::wstring(L"1\r\n2\t3\0004", 8);
  printer.address = L"\xfffe<&\"'>..\\..\\";
  printer.deviceId.fill(0xff);
  printer.deviceStatus = std::numeric_limits<std::int32_t>::min();
  printer.supplies.clear();
  for (std::size_t i = 0; i < entries; ++i) printer.supplies.push_back({L"%s%n", percentages[i % percentages.size()]});
  printer.alerts.assign(entries, -1);
}

}  // namespace simulator::garbage
