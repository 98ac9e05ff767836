#include "support/LogLine.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>

namespace support {
namespace {

constexpr std::wstring_view kLineEnd = L"\r\n";

std::string narrow(const std::wstring& text) {
  std::string result;
  for (const wchar_t unit : text) result += static_cast<char>(unit);
  return result;
}

// "TIME [TAG] [FUNCTION] [NUMBER] MESSAGE"
std::optional<LogLine> parsed(const std::wstring& text) {
  constexpr std::size_t kTimeUnits = 23;
  LogLine line;
  std::size_t position = kTimeUnits;
  const auto field = [&]() -> std::optional<std::wstring> {
    if (text.compare(position, 2, L" [") != 0) return std::nullopt;
    const auto end = text.find(L']', position);
    if (end == std::wstring::npos) return std::nullopt;
    const std::wstring value = text.substr(position + 2, end - position - 2);
    position = end + 1;
    return value;
  };
  if (text.size() <= kTimeUnits) return std::nullopt;
  line.time = narrow(text.substr(0, kTimeUnits));
  const auto tag = field();
  const auto function = tag ? field() : std::nullopt;
  const auto number = function ? field() : std::nullopt;
  if (!number || text.compare(position, 1, L" ") != 0) return std::nullopt;
  line.tag = narrow(*tag);
  line.function = narrow(*function);
  line.number = std::stoi(*number);
  line.message = text.substr(position + 1);
  return line;
}

}  // namespace

std::wstring decodedUnits(const std::string& bytes) {
  EXPECT_EQ(bytes.size() % sizeof(wchar_t), 0U) << "the file ends within a unit";
  std::wstring units(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * sizeof(wchar_t));
  return units;
}

std::vector<LogLine> parsedLog(const std::string& bytes) {
  const std::wstring text = decodedUnits(bytes);
  std::vector<LogLine> lines;
  for (std::size_t start = 0; start < text.size();) {
    const auto end = text.find(kLineEnd, start);
    const std::wstring raw = text.substr(start, end - start);
    auto line = end == std::wstring::npos ? std::nullopt : parsed(raw);
    if (!line) {
      ADD_FAILURE() << "not a whole log line: " << testing::PrintToString(raw);
      return lines;
    }
    lines.push_back(std::move(*line));
    start = end + kLineEnd.size();
  }
  return lines;
}

void PrintTo(const LogLine& line, std::ostream* out) {
  *out << line.time << " [" << line.tag << "] [" << line.function << "] [" << line.number << "] "
       << testing::PrintToString(line.message);
}

}  // namespace support
