#include "common/Values.h"

#include <algorithm>
#include <optional>

#include "common/Text.h"

namespace examples {
namespace {

constexpr std::size_t kMostDigits = 10;  // of a 32-bit number

bool isDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }

std::optional<std::int64_t> toNumber(const std::wstring& text) {
  const std::size_t sign = text.starts_with(L'-') ? 1 : 0;
  const auto digits = text.substr(sign);
  if (digits.empty() || digits.size() > kMostDigits || !std::ranges::all_of(digits, isDigit)) return std::nullopt;
  return std::stoll(text);
}

// One spelling for each number.
std::optional<std::uint8_t> toAddressPart(const std::wstring& text) {
  const auto number = toNumber(text);
  if (!number || *number < 0 || *number > 255 || text != std::to_wstring(*number)) return std::nullopt;
  return static_cast<std::uint8_t>(*number);
}

}  // namespace

std::string rangeText(std::int64_t least, std::int64_t most) {
  return "a whole number from " + std::to_string(least) + " to " + std::to_string(most);
}

void throwMistake(const std::wstring& what, const std::wstring& text, const std::string& right) {
  throw OptionsError(plain(what) + " is \"" + plain(text) + "\"; it takes " + right);
}

std::int64_t parseNumber(const std::wstring& what, const std::wstring& text, std::int64_t least, std::int64_t most) {
  const auto number = toNumber(text);
  if (!number || *number < least || *number > most) throwMistake(what, text, rangeText(least, most));
  return *number;
}

bool parseYesOrNo(const std::wstring& what, const std::wstring& text) {
  if (text != L"yes" && text != L"no") throwMistake(what, text, "yes or no");
  return text == L"yes";
}

AppPrinterSdk::Ipv4Address parseAddress(const std::wstring& what, const std::wstring& text) {
  AppPrinterSdk::Ipv4Address address{};
  std::size_t begin = 0;
  for (std::size_t i = 0; i < address.size(); ++i) {
    const auto end = i + 1 < address.size() ? text.find(L'.', begin) : text.size();
    const auto part = end == std::wstring::npos ? std::nullopt : toAddressPart(text.substr(begin, end - begin));
    if (!part) throwMistake(what, text, "four numbers from 0 to 255, as 192.0.2.10");
    address[i] = *part;
    begin = end + 1;
  }
  return address;
}

std::wstring toText(const AppPrinterSdk::Ipv4Address& address) {
  std::wstring text;
  for (const auto part : address) text += (text.empty() ? L"" : L".") + std::to_wstring(part);
  return text;
}

}  // namespace examples
