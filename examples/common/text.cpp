#include "common/Text.h"

namespace examples {
namespace {

struct Range {
  wchar_t first;
  wchar_t last;
};

// Controls, and what is invisible, turns the direction of the line or breaks it.
constexpr std::array<Range, 8> kUnprintable{{
    {0x00, 0x1f},
    {0x7f, 0x9f},
    {0x061c, 0x061c},
    {0x200b, 0x200f},
    {0x2028, 0x202e},
    {0x2060, 0x206f},
    {0xfeff, 0xfeff},
    {0xfff9, 0xfffb},
}};

bool isFirstOfPair(wchar_t unit) { return unit >= 0xd800 && unit < 0xdc00; }

}  // namespace

bool isPrintable(wchar_t unit) {
  return std::ranges::none_of(kUnprintable, [unit](const Range& range) { return unit >= range.first && unit <= range.last; });
}

std::wstring printable(const std::wstring& text) {
  auto result = text;
  std::ranges::replace_if(
      result, [](wchar_t unit) { return !isPrintable(unit); }, L'?');
  return result;
}

std::wstring cut(const std::wstring& text, std::size_t width) {
  if (text.size() <= width) return text;
  auto start = text.substr(0, width - 1);
  if (!start.empty() && isFirstOfPair(start.back())) start.pop_back();
  return start + L'~';
}

std::wstring shown(const std::wstring& text, std::size_t width) { return printable(cut(text, width)); }

std::wstring secondsText(std::chrono::milliseconds time) {
  return std::to_wstring(time.count() / 1000) + L'.' + std::to_wstring(time.count() % 1000 / 100) + L" s";
}

std::string plain(const std::wstring& text) {
  std::string result;
  for (const wchar_t unit : text) result += unit >= L' ' && unit < 0x7f ? static_cast<char>(unit) : '?';
  return result;
}

}  // namespace examples
