#include "fuzz/ExpectedLine.h"

#include <string_view>

namespace fuzz {
namespace {

constexpr std::size_t kFirstUnitTooFar = 1022;  // of 1024, two are for the line end
constexpr std::size_t kLongestName = 127;
constexpr std::wstring_view kLineEnd = L"\r\n";

std::wstring padded(unsigned number, std::size_t digits) {
  const std::wstring text = std::to_wstring(number);
  return std::wstring(digits - std::min(digits, text.size()), L'0') + text;
}

std::wstring timeText(const SYSTEMTIME& time) {
  return padded(time.wYear, 1) + L"-" + padded(time.wMonth, 2) + L"-" + padded(time.wDay, 2) + L" " + padded(time.wHour, 2) +
         L":" + padded(time.wMinute, 2) + L":" + padded(time.wSecond, 2) + L"." + padded(time.wMilliseconds, 3) + L" ";
}

std::optional<std::wstring> tag(std::uint32_t level) {
  if (level == 1) return L"[ERR] ";
  if (level == 2) return L"[WRN] ";
  if (level == 4) return L"[DBG] ";
  if (level == 8) return L"[INF] ";
  return std::nullopt;
}

/// Takes one conversion off the front of `format`, which begins with a percent sign. '%' for a percent sign, '?' for any other.
wchar_t takeConversion(std::wstring_view& format) {
  constexpr std::array<std::pair<std::wstring_view, wchar_t>, 4> known{
      {{L"%ws", L's'}, {L"%ld", L'l'}, {L"%d", L'd'}, {L"%%", L'%'}}};
  for (const auto& [text, kind] : known) {
    if (!format.starts_with(text)) continue;
    format.remove_prefix(text.size());
    return kind;
  }
  format.remove_prefix(1);
  return L'?';
}

std::wstring message(const LogCall& call) {
  std::wstring text;
  std::size_t texts = 0;
  std::size_t numbers = 0;
  for (std::wstring_view rest = call.format; !rest.empty();) {
    const std::size_t plain = rest.find(L'%');
    text += rest.substr(0, plain);
    if (plain == std::wstring_view::npos) break;
    rest.remove_prefix(plain);
    const wchar_t kind = takeConversion(rest);
    if (kind == L'%') text += L'%';
    if (kind == L's') text += call.texts.at(texts++);
    if (kind == L'd') text += std::to_wstring(static_cast<std::int32_t>(call.numbers.at(numbers++)));
    if (kind == L'l') text += std::to_wstring(call.numbers.at(numbers++));
  }
  return text;
}

}  // namespace

std::string argumentsOf(const wchar_t* format) {
  std::string kinds;
  for (std::wstring_view rest = format; rest.find(L'%') != std::wstring_view::npos;) {
    rest.remove_prefix(rest.find(L'%'));
    const wchar_t kind = takeConversion(rest);
    if (kind != L'%') kinds += static_cast<char>(kind);
  }
  return kinds;
}

std::optional<std::wstring> expectedLine(const LogCall& call) {
  if ((call.mask & call.level) == 0 || !tag(call.level)) return std::nullopt;
  const std::wstring text = message(call);
  std::wstring line = timeText(call.time) + *tag(call.level) + L"[" + call.wideFunction.substr(0, kLongestName) + L"] [" +
                      std::to_wstring(call.line) + L"] " + text;
  if (text.empty() || line.size() >= kFirstUnitTooFar) return std::nullopt;
  if (!line.ends_with(kLineEnd)) line += kLineEnd;
  return line;
}

}  // namespace fuzz
