#pragma once

#include "log/WriterLedger.h"

/// Sees what the log asks of the platform and what it gets, and notes it in the ledger of the process. The calls go on to the
/// platform. For `log_writer.exe`, which has one thread.
namespace logwriter {

/// Once, before the first line. Both outlive all lines.
void watchLines(WriterLedger& ledger, HANDLE progress);

/// Calls between these two belong to the line.
void beginLine(std::uint32_t number);
void endLine();

}  // namespace logwriter
