#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/LogLines.h"

/// Journal entries, or parts of them.
using Texts = std::vector<std::string>;

/// What one run did, in order: its log lines as `DBG text`, between them what the test adds (library calls, notices). A line
/// that names another function than the operation shows that name: `DBG thread_list: text`. One thread.
class Journal {
 public:
  /// Begins after the lines written so far.
  Journal(const support::LogLines& lines, std::string function);

  void add(std::string entry);
  Texts entries();

 private:
  void takeLines();

  const support::LogLines& m_lines;
  const std::string m_function;
  std::size_t m_taken;
  Texts m_entries;
};
