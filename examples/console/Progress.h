#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace console {

/// How far an operation is, as of its last notice.
struct Stage {
  std::optional<std::int32_t> percent = std::nullopt;  ///< for an operation that tells; others only notify
  std::uint64_t notices = 0;
};

/// One line, for output that is not a terminal.
std::wstring renderProgress(const std::wstring& command, const Stage& stage, std::chrono::milliseconds elapsed);

/// The same for a terminal: at most `width` characters, with a bar where the percentage is known and there is room.
std::wstring renderBar(const std::wstring& command, const Stage& stage, std::chrono::milliseconds elapsed, std::size_t width);

}  // namespace console
