#pragma once

#include <optional>
#include <string>

namespace fakes {

/// The value of `key` in the first section named `section` of an ini file's text, as the profile functions hand it out: without
/// the blanks around it and without one pair of quotes. None when section or key is missing. Names are the same in any case.
std::optional<std::wstring> iniValue(const std::string& text, const std::wstring& section, const std::wstring& key);

/// `name` in lower case.
std::wstring withoutCase(std::wstring name);

}  // namespace fakes
