#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "PrinterInfo.h"
#include "Records.h"

/// Answers that no printer should give and that nobody may fall over: valid objects, hostile contents. Where several are worth
/// giving, `number`, the call's among the printer's calls of the function, picks one of them in turn.
namespace simulator::garbage {

inline constexpr std::size_t textLength = 100'000;  // wide characters
inline constexpr std::size_t entries = 10'000;
inline constexpr std::int32_t jobs = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t sleepTime = std::numeric_limits<std::int32_t>::min();
inline constexpr std::uint8_t byteParameter = 255;

/// Fills every state member: a very long text, one that a printf-like function would take for a format, one with line breaks
/// and a zero character, percentages out of range, more entries than any printer has.
void fillState(qzstd::PrinterInfo& printer);

AppPrinterSdk::NetworkSettings networkSettings();
AppPrinterSdk::PushScanPara pushScanParameters();

struct TransferProgress {
  std::int32_t current = 0;
  std::int32_t total = 0;
};
/// Five that go on, then three that are complete: of negative numbers, of nothing, beyond the end.
TransferProgress transferProgress(std::uint32_t number);

/// Below zero, then above all.
std::int32_t segmentTotal(std::uint32_t number);
/// Twice below zero, then above all.
std::int32_t segment(std::uint32_t number);

/// Entries without a zero in their texts.
void fillNetworks(std::vector<AppMgr::WifiNetwork>& networks);

/// Four hostile texts, as in the state.
void fillTexts(std::wstring* fourTexts);

}  // namespace simulator::garbage
