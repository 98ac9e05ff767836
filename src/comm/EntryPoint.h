#pragma once

#include "platform/WindowsApi.h"

/// What the module does when it is loaded and unloaded: it brings the log up and down, nothing else. No thread is started, and
/// workers are not waited for: the application calls `Stop` before it unloads the module. Both functions run under the lock of
/// the platform's loader, while no thread of the module logs. Nothing is thrown.
namespace comm {

/// Resets the log's state, also what an earlier life has left, and starts the log.
void attachProcess(HINSTANCE module);

/// Logs a last line, then switches the log off.
void detachProcess();

}  // namespace comm
