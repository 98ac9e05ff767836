#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

/// Text as the platform's wide strings hold it (UTF-16 on Windows, UTF-32 elsewhere); nothing when `utf8` is not valid UTF-8.
std::optional<std::wstring> wideFromUtf8(std::string_view utf8);

}  // namespace simulator
