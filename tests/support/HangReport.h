#pragma once

/// What the watchdog needs of the platform. Called on its thread, in a process that hangs: nothing here takes a lock of ours.
namespace support {

/// Does early what must not be done for the first time in a process that hangs. Before `reportHangAndEnd`, once.
void prepareHangReport();

/// Writes `line` to the standard error, then, on Linux, the stack of every thread; ends the process with code 3.
[[noreturn]] void reportHangAndEnd(const char* line);

}  // namespace support
