#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <vector>

#include "console/Table.h"

namespace examples {

/// What all printers last said. Any thread; notices write, the table reads.
class Board {
 public:
  /// Before the first notice. Returns the new row's index.
  std::size_t addPrinter(const qzstd::PrinterInfo& printer);

  void update(std::size_t row, Reading reading);
  std::vector<Row> rows() const;

 private:
  struct Entry {
    Row row;
    std::chrono::steady_clock::time_point updated;
  };

  mutable std::mutex m_mutex;
  std::vector<Entry> m_entries;
};

}  // namespace examples
