#include "common/Json.h"

#include <string_view>

#include "common/Text.h"

namespace examples {
namespace {

constexpr std::wstring_view kReplacement = L"\\ufffd";

bool isFirstOfPair(wchar_t unit) { return unit >= 0xd800 && unit < 0xdc00; }
bool isSecondOfPair(wchar_t unit) { return unit >= 0xdc00 && unit < 0xe000; }

std::wstring escaped(wchar_t unit) {
  constexpr std::wstring_view kDigits = L"0123456789abcdef";
  std::wstring text = L"\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[(static_cast<unsigned>(unit) >> shift) & 0xfU];
  return text;
}

std::wstring quoted(const std::wstring& text) {
  std::wstring json = L"\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto unit = text[i];
    if (unit == L'"' || unit == L'\\') {
      json += {L'\\', unit};
    } else if (isFirstOfPair(unit) && i + 1 < text.size() && isSecondOfPair(text[i + 1])) {
      json += {unit, text[++i]};
    } else if (isFirstOfPair(unit) || isSecondOfPair(unit)) {
      json += kReplacement;
    } else if (isPrintable(unit)) {
      json += unit;
    } else {
      json += escaped(unit);
    }
  }
  return json + L'"';
}

// "sleep time" becomes "sleepTime", "DHCP" becomes "dhcp" and "DNS server" "dnsServer".
std::wstring camelCase(const std::wstring& name) {
  std::wstring result;
  bool isFirstWord = true;
  bool begins = false;
  for (const auto unit : name) {
    if (unit == L' ') {
      isFirstWord = false;
      begins = true;
      continue;
    }
    if (begins && unit >= L'a' && unit <= L'z') {
      result += static_cast<wchar_t>(unit - L'a' + L'A');
    } else if (isFirstWord && unit >= L'A' && unit <= L'Z') {
      result += static_cast<wchar_t>(unit - L'A' + L'a');
    } else {
      result += unit;
    }
    begins = false;
  }
  return result;
}

struct Writer {
  std::wstring json{};

  void operator()(bool yes) { json += yes ? L"true" : L"false"; }
  void operator()(std::int64_t integer) { json += std::to_wstring(integer); }
  void operator()(const std::wstring& string) { json += quoted(string); }
  void operator()(const Values& values) {
    json += L'[';
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i > 0) json += L',';
      std::visit(*this, values[i].value);
    }
    json += L']';
  }
  void operator()(const Fields& fields) {
    json += L'{';
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) json += L',';
      json += quoted(camelCase(fields[i].name)) + L':';
      std::visit(*this, fields[i].value.value);
    }
    json += L'}';
  }
};

}  // namespace

std::wstring toJson(const Value& value) {
  Writer writer;
  std::visit(writer, value.value);
  return writer.json;
}

}  // namespace examples
