#pragma once

#include "PrinterInfo.h"
#include "simulator/Export.h"

/// What the maker's functions do when their printers are simulated. The stand-in libraries only give these the maker's names.
/// A null pointer or a printer that the scenario does not know is answered with a code (SimulatedPrinters.h), never with a
/// crash.
namespace simulator {

SIMULATOR_API int getState(qzstd::PrinterInfo* printer);
SIMULATOR_API bool isSupportPushScan(const qzstd::PrinterInfo* printer);

SIMULATOR_API int getPrintingJob(const wchar_t* managerId);
/// True once for each change: when the address is another than when this printer was last asked, or, the first time, than when
/// the scenario was loaded. Failing calls answer false and leave the change to the next one.
SIMULATOR_API int checkIpChange(const qzstd::PrinterInfo* printer, bool* changed);

}  // namespace simulator
