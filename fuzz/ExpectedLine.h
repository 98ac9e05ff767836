#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/WindowsApi.h"

namespace fuzz {

/// One call of `WriteLog`. The format takes the texts and the numbers in their order.
struct LogCall {
  std::uint32_t mask = 0;  ///< the enabled levels
  std::uint32_t level = 0;
  SYSTEMTIME time{};
  std::string function;
  std::wstring wideFunction;  ///< as the platform converts it, whole
  std::int32_t line = 0;
  const wchar_t* format = L"";
  std::array<std::wstring, 2> texts;
  std::array<std::int64_t, 4> numbers{};
};

/// The kinds of the arguments that `format` takes, in their order: 's' for `%ws`, 'd' for `%d`, 'l' for `%ld`; '?' for anything
/// else, which the module's formats do not have.
std::string argumentsOf(const wchar_t* format);

/// The line that the call must write, its end included; nothing when it must be dropped. Made without the runtime's formatting.
std::optional<std::wstring> expectedLine(const LogCall& call);

}  // namespace fuzz
