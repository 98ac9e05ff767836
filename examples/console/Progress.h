#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace examples {

/// How far an operation is, for one that tells; of others only the time is known.
using Percent = std::optional<std::int32_t>;

/// One line, for output that is not a terminal.
std::wstring renderProgress(const std::wstring& command, Percent percent, std::chrono::milliseconds elapsed);

/// The same for a terminal: at most `width` characters, with a bar where the percentage is known and there is room.
std::wstring renderBar(const std::wstring& command, Percent percent, std::chrono::milliseconds elapsed, std::size_t width);

}  // namespace examples
