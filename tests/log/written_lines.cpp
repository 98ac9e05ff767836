#include "log/WrittenLines.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <optional>
#include <utility>

#include "log/WriterLedger.h"

namespace {

constexpr std::wstring_view kTime = L"dddd-dd-dd dd:dd:dd.ddd ";
constexpr std::wstring_view kHead = L"[DBG] [write] [";
constexpr std::size_t kMostUnits = 1024;  // of a line

struct Found {
  std::wstring writer;
  std::uint32_t number = 0;
  std::size_t bytes = 0;
};

std::wstring unitsOf(std::string_view bytes) {
  std::wstring units(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * sizeof(wchar_t));
  return units;
}

bool beginsLikeATime(std::wstring_view units) {
  for (std::size_t i = 0; i < kTime.size() && i < units.size(); ++i) {
    const bool isDigit = units[i] >= L'0' && units[i] <= L'9';
    if (kTime[i] == L'd' ? !isDigit : units[i] != kTime[i]) return false;
  }
  return true;
}

// Without the time.
std::wstring lineOf(const std::wstring& writer, std::uint32_t number) {
  return std::wstring(kHead) + std::to_wstring(number) + L"] " + logwriter::message(writer, number) + L"\r\n";
}

// A whole line at the very beginning.
std::optional<Found> lineAt(std::string_view bytes) {
  const std::wstring units = unitsOf(bytes.substr(0, kMostUnits * sizeof(wchar_t)));
  if (!beginsLikeATime(units) || units.compare(std::min(kTime.size(), units.size()), kHead.size(), kHead) != 0) return {};
  Found found;
  const std::size_t numberAt = kTime.size() + kHead.size();
  found.number = static_cast<std::uint32_t>(std::wcstoul(units.c_str() + numberAt, nullptr, 10));
  const std::size_t writerAt = std::min(units.find(L"] ", numberAt), units.size() - 2) + 2;
  found.writer = units.substr(writerAt, units.find(L' ', writerAt) - writerAt);
  const std::wstring line = lineOf(found.writer, found.number);
  if (units.compare(kTime.size(), line.size(), line) != 0) return {};
  found.bytes = (kTime.size() + line.size()) * sizeof(wchar_t);
  return found;
}

}  // namespace

void WrittenLines::add(std::string_view bytes) {
  std::string skipped;
  const auto endStretch = [&] {
    if (!skipped.empty()) damaged.push_back(std::exchange(skipped, {}));
  };
  while (!bytes.empty()) {
    const auto found = lineAt(bytes);
    if (found) {
      endStretch();
      numbers[found->writer].push_back(found->number);
    } else {
      skipped += bytes.front();
    }
    bytes.remove_prefix(found ? found->bytes : 1);
  }
  endStretch();
}

bool WrittenLines::isBeginning(std::string_view bytes, const std::wstring& writer, std::uint32_t number) {
  const std::wstring units = unitsOf(bytes);
  const std::wstring line = lineOf(writer, number);
  if (!beginsLikeATime(units)) return false;
  if (units.size() <= kTime.size()) return true;
  const std::wstring rest = units.substr(kTime.size());
  if (rest.size() >= line.size() || line.compare(0, rest.size(), rest) != 0) return false;
  if (bytes.size() % sizeof(wchar_t) == 0) return true;
  return bytes.back() == static_cast<char>(line[rest.size()] & 0xFF);
}
