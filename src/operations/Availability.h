#pragma once

#include "PrinterInfo.h"

namespace operations {

/// Whether an operation that changes the printer may be sent now; `busy` and `statusOne` tell why not.
///
/// With jobs in progress `busy` is true and `statusOne` is left alone. Without, `statusOne` is true at device status 1, and
/// `busy` at any other status but 0 and 11. A negative count means no jobs.
bool acceptsChange(const qzstd::PrinterInfo& printer, bool& busy, bool& statusOne);

/// The same for an image to print, which any status but 1 lets through: `busy` tells of jobs alone.
bool acceptsImage(const qzstd::PrinterInfo& printer, bool& busy, bool& statusOne);

}  // namespace operations
