#include "simulator/Garbage.h"

#include <algorithm>
#include <array>

namespace simulator::garbage {
namespace {

using Int32 = std::numeric_limits<std::int32_t>;

constexpr std::array percentages{Int32::min(), -1, 101, Int32::max()};

std::wstring longText() { return std::wstring(textLength, L'M'); }
std::wstring formatText() { return L"%s%n%ws%d%99999999d%"; }
std::wstring brokenText() { return {L"1\r\n2\t3\0004", 8}; }
std::wstring strangeText() { return L"\xfffe<&\"'>..\\..\\"; }

template <typename Value, std::size_t count>
Value inTurn(const std::array<Value, count>& values, std::uint32_t number) {
  return values[(number - 1) % count];
}

}  // namespace

void fillState(qzstd::PrinterInfo& printer) {
  printer.model = longText();
  printer.serialNumber = formatText();
  printer.firmwareVersion = brokenText();
  printer.address = strangeText();
  printer.deviceId.fill(0xff);
  printer.deviceStatus = Int32::min();
  printer.supplies.clear();
  for (std::size_t i = 0; i < entries; ++i) printer.supplies.push_back({L"%s%n", percentages[i % percentages.size()]});
  printer.alerts.assign(entries, -1);
}

AppPrinterSdk::NetworkSettings networkSettings() {
  return {true, {255, 255, 255, 255}, {0, 255, 0, 255}, {0, 0, 0, 0}, {127, 0, 0, 1}};
}

AppPrinterSdk::PushScanPara pushScanParameters() { return {Int32::min(), Int32::max(), -1, Int32::min()}; }

TransferProgress transferProgress(std::uint32_t number) {
  static constexpr std::array<TransferProgress, 8> all{{{-1, 100},
                                                        {Int32::min(), Int32::max()},
                                                        {Int32::max() - 1, Int32::max()},
                                                        {Int32::min(), 0},
                                                        {Int32::min(), Int32::min() + 1},
                                                        {0, 0},
                                                        {200, 100},
                                                        {Int32::max(), Int32::min()}}};
  return inTurn(all, number);
}

std::int32_t segmentTotal(std::uint32_t number) { return inTurn(std::array{Int32::min(), Int32::max()}, number); }

std::int32_t segment(std::uint32_t number) { return inTurn(std::array{-1, Int32::min(), Int32::max()}, number); }

void fillNetworks(std::vector<AppMgr::WifiNetwork>& networks) {
  AppMgr::WifiNetwork one;
  one.name.fill(L'%');
  one.password.fill(L'n');
  one.security = Int32::min();
  one.signal = Int32::max();
  networks.assign(entries, one);
}

void fillTexts(std::wstring* fourTexts) {
  fourTexts[0] = longText();
  fourTexts[1] = formatText();
  fourTexts[2] = brokenText();
  fourTexts[3] = strangeText();
}

}  // namespace simulator::garbage
