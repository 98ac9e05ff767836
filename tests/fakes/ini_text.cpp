#include "fakes/IniText.h"

#include <algorithm>
#include <cwctype>
#include <sstream>

namespace fakes {
namespace {

std::wstring wide(const std::string& text) {
  std::wstring result;
  for (const char unit : text) result += static_cast<wchar_t>(static_cast<unsigned char>(unit));
  return result;
}

std::wstring trimmed(const std::wstring& text) {
  const auto first = text.find_first_not_of(L" \t\r");
  if (first == std::wstring::npos) return L"";
  return text.substr(first, text.find_last_not_of(L" \t\r") - first + 1);
}

std::wstring unquoted(const std::wstring& text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() && (text.front() == L'"' || text.front() == L'\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

bool same(const std::wstring& one, const std::wstring& other) { return withoutCase(one) == withoutCase(other); }

}  // namespace

std::wstring withoutCase(std::wstring name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](wchar_t unit) { return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit))); });
  return name;
}

std::optional<std::wstring> iniValue(const std::string& text, const std::wstring& section, const std::wstring& key) {
  std::wistringstream lines(wide(text));
  bool inSection = false;
  for (std::wstring raw; std::getline(lines, raw);) {
    const std::wstring line = trimmed(raw);
    if (line.empty() || line.front() == L';') continue;
    if (line.front() == L'[') {
      if (inSection) return std::nullopt;
      inSection = same(line, L'[' + section + L']');
      continue;
    }
    const auto equals = line.find(L'=');
    if (!inSection || equals == std::wstring::npos || !same(trimmed(line.substr(0, equals)), key)) continue;
    return unquoted(trimmed(line.substr(equals + 1)));
  }
  return std::nullopt;
}

}  // namespace fakes
