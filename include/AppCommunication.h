#pragma once

/// Everything of its own that `AppCommunication.dll` exports (it exports the classes of tinyxml2 as well). An application
/// includes this one header.

#include <memory>

#include "AppWindow.h"
#include "BaseWindow.h"
#include "Command.h"
#include "Controls.h"
#include "Export.h"
#include "Geometry.h"
#include "Node.h"
#include "PrinterInfo.h"
#include "Records.h"

/// The four control functions. Any thread may call them, several at once; they do no printer input or output and wait for
/// nothing but short locks (and, in `Add`, the start of a thread). `node` must not be null. What the standard facilities throw
/// (memory, locks, threads) leaves them as it is. A task is passed as a shared pointer, by value: application and module share
/// one C++ runtime.
extern "C" {

/// Puts the task into its printer's list, which is made, together with its worker thread, when the printer has none. A task
/// whose type is already queued for the printer becomes an observer of that entry and is told of the same runs (Records.h says
/// what of them it learns). Returns 0, always: the task was placed. A list that is just ending takes a task as well, and drops
/// it with all that it held: no notice comes then, and the task's last reference goes. When the list's thread cannot be
/// started, `std::system_error` leaves this function and the list stays registered without a worker.
APPCOMM_API int Add(std::shared_ptr<AppComm::Node> node);

/// Tells every list to end and forgets them all; what is queued is dropped without a notice. Waits for nothing: a handler in
/// the middle of a printer call finishes it and may still notify. A later `Add` starts anew. Returns 0.
APPCOMM_API int Stop();

/// Asks for the NPA exchange, the one that reads the printer's state, also where a run would do without it: marks all tasks
/// with the printer and the type of `node`, which need not have been added itself, and wakes the printer's worker, which goes
/// on waiting if the last exchange is less than an interval old. Returns 0.
APPCOMM_API int StartNPA(std::shared_ptr<AppComm::Node> node);

/// Takes the request of `StartNPA` back. Wakes nobody. Returns 0.
APPCOMM_API int PauseNPA(std::shared_ptr<AppComm::Node> node);
}
