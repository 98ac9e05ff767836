#pragma once

#include <any>
#include <cstdint>
#include <memory>
#include <utility>

#include "Node.h"
#include "PrinterInfo.h"
#include "comm/CNode.h"
#include "log/Log.h"

namespace operations {

constexpr int kDone = 0;         ///< the operation ran and was notified
constexpr int kWrongRecord = 2;  ///< the task's resource is not a shared pointer to the operation's record

/// What an operation works on. All of it is kept alive by the frame while the operation runs.
template <class Record>
struct Run {
  comm::CNode& entry;
  AppComm::Node& task;  ///< the entry's current task
  qzstd::PrinterInfo& printer;
  Record& record;  ///< shared with the caller
};

/// Runs `work` on `entry`'s current task, its printer and its record, and returns its result. A resource that does not hold
/// exactly `std::shared_ptr<Record>` is refused: `mismatch` is logged as an error of `function` at `line`.
template <class Record, class Work>
int inFrame(std::shared_ptr<comm::CNode> entry, const char* function, std::int32_t line, const wchar_t* mismatch, Work&& work) {
  const auto task = entry->current();
  const auto printer = task->getInfo();
  const std::any resource = task->getResource();
  const auto* record = std::any_cast<std::shared_ptr<Record>>(&resource);
  if (record == nullptr) {
    WriteLog(LOG_ERROR, function, line, mismatch);
    return kWrongRecord;
  }
  return std::forward<Work>(work)(Run<Record>{*entry, *task, *printer, **record});
}

}  // namespace operations
