#pragma once

#include <memory>
#include <utility>

#include "operations/Availability.h"
#include "operations/Frame.h"

namespace operations {

/// An operation that sends one command when the printer accepts changes. All that is told of it is its result, in the record;
/// the setters of device parameters, which log theirs and keep a flag, have a frame of their own.
template <class Record>
struct Command {
  const wchar_t* mismatch;
  int (*send)(qzstd::PrinterInfo*, Record&);
  const wchar_t* noticeText;
};

template <class Record>
int sendCommand(std::shared_ptr<comm::CNode> entry, const char* name, const Command<Record>& command) {
  return inFrame<Record>(std::move(entry), name, __LINE__, command.mismatch, [&](const Run<Record>& run) {
    auto& record = run.record;
    if (acceptsChange(run.printer, record.busy, record.statusOne)) record.result = command.send(&run.printer, record);
    return finish(run, __LINE__, command.noticeText);
  });
}

}  // namespace operations
