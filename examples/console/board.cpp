#include "console/Board.h"

#include <utility>

namespace examples {

std::size_t Board::addPrinter(const qzstd::PrinterInfo& printer) {
  Entry entry;
  entry.row.uid = printer.uid;
  entry.row.name = printer.name;
  entry.row.connectionKind = printer.connectionKind;
  const std::lock_guard lock(m_mutex);
  m_entries.push_back(std::move(entry));
  return m_entries.size() - 1;
}

void Board::update(std::size_t row, Reading reading) {
  const std::lock_guard lock(m_mutex);
  auto& entry = m_entries.at(row);
  entry.updated = std::chrono::steady_clock::now();
  ++entry.row.notices;
  if (reading.state.queried) ++entry.row.reads;
  if (reading.state.queried && reading.state.result != 0) ++entry.row.failures;
  entry.row.last = std::move(reading);
}

std::vector<Row> Board::rows() const {
  std::vector<Row> rows;
  const auto now = std::chrono::steady_clock::now();
  const std::lock_guard lock(m_mutex);
  for (const auto& entry : m_entries) {
    rows.push_back(entry.row);
    rows.back().sinceLast = std::chrono::duration_cast<std::chrono::milliseconds>(now - entry.updated);
  }
  return rows;
}

}  // namespace examples
