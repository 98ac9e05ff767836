#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "PrinterInfo.h"
#include "Records.h"

namespace examples {

/// What the last notice of one printer said: copies, made inside the notice.
struct Reading {
  AppComm::State state;
  std::int32_t deviceStatus = 0;
  std::wstring address;
  std::vector<qzstd::Supply> supplies;
};

/// One printer as the table shows it.
struct Row {
  std::wstring uid;
  std::wstring name;
  std::int32_t connectionKind = 0;
  std::optional<Reading> last;  ///< none before the first notice
  std::uint64_t notices = 0;
  std::uint64_t reads = 0;     ///< notices of runs in which the printer was read
  std::uint64_t failures = 0;  ///< of these, with a result other than 0
  std::chrono::milliseconds sinceLast{0};
};

/// The table's lines, the headings first, none with a line end or longer than `width` characters (at least 1): what does not
/// fit ends in "~". At most `height` lines (at least 2), the last of which tells how many printers have no room.
std::vector<std::wstring> renderTable(const std::vector<Row>& rows, std::size_t width, std::size_t height);

/// One line that says the same of one printer, for output that is not a terminal.
std::wstring renderLine(const Row& row, std::chrono::milliseconds sinceStart);

/// A line per printer and one for all: notices, reads, failures.
std::vector<std::wstring> renderSummary(const std::vector<Row>& rows);

}  // namespace examples
