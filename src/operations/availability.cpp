#include "operations/Availability.h"

#include "AppMgr.h"

namespace operations {

bool acceptsImage(const qzstd::PrinterInfo& printer, bool& busy, bool& statusOne) {
  const auto status = printer.deviceStatus;  // before the jobs are asked: that call may refresh the printer information
  busy = AppMgr_GetPrintingJob(printer.managerId.c_str()) > 0;
  if (!busy) statusOne = status == 1;
  return !busy && !statusOne;
}

bool acceptsChange(const qzstd::PrinterInfo& printer, bool& busy, bool& statusOne) {
  const auto status = printer.deviceStatus;
  if (!acceptsImage(printer, busy, statusOne)) return false;
  busy = status != 0 && status != 11;
  return !busy;
}

}  // namespace operations
