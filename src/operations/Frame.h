#pragma once

#include <any>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "Node.h"
#include "PrinterInfo.h"
#include "comm/CNode.h"
#include "log/Log.h"
#include "operations/Notice.h"

namespace operations {

constexpr int kDone = 0;         ///< the operation ran, and whom it tells was told
constexpr int kWrongRecord = 2;  ///< the task's resource is not a shared pointer to the operation's record

/// What an operation works on. All of it is kept alive by the frame while the operation runs.
template <class Record>
struct Run {
  comm::CNode& entry;
  AppComm::Node& task;  ///< the entry's current task
  qzstd::PrinterInfo& printer;
  Record& record;    ///< shared with the caller
  const char* name;  ///< the handler's, for the log
};

/// Runs `work` on `entry`'s current task, its printer and its record, and returns its result. A resource that does not hold
/// exactly `std::shared_ptr<Record>` is refused: `mismatch` is logged as an error of the handler `name` at `line`.
template <class Record, class Work>
int inFrame(std::shared_ptr<comm::CNode> entry, const char* name, std::int32_t line, const wchar_t* mismatch, Work&& work) {
  const auto task = entry->current();
  const auto printer = task->getInfo();
  const std::any resource = task->getResource();
  const auto* record = std::any_cast<std::shared_ptr<Record>>(&resource);
  if (record == nullptr) {
    WriteLog(LOG_ERROR, name, line, mismatch);
    return kWrongRecord;
  }
  return std::forward<Work>(work)(Run<Record>{*entry, *task, *printer, **record, name});
}

/// How most operations end: logs the notice `text`, tells every window and returns `kDone`.
template <class Record>
int finish(const Run<Record>& run, std::int32_t line, const wchar_t* text) {
  WriteLog(LOG_DEBUG, run.name, line, text);
  notice_caller(run.entry);
  return kDone;
}

/// Calls `work` with each observer whose resource holds a `Record`, and with that record, in order; the others are passed over.
/// An observer that joins meanwhile is served too.
template <class Record, class Work>
void forEachObserver(comm::CNode& entry, Work&& work) {
  for (std::size_t index = 0; const auto observer = entry.observer(index); ++index) {
    const std::any resource = observer->getResource();
    if (const auto* record = std::any_cast<std::shared_ptr<Record>>(&resource)) work(*observer, **record);
  }
}

}  // namespace operations
