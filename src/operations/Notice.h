#pragma once

#include "Node.h"
#include "comm/CNode.h"

/// Tells the windows of the entry's current task and of every observer, in queue order, that a result is there: each task is
/// marked updated, its window is called with its own code, and a task whose window answers false is marked deleted. An observer
/// that joins during the walk is told too. No lock is held while a window is called. Every task must have a window.
void notice_caller(comm::CNode& entry);

namespace operations {

/// The same for one task alone.
void tellWindow(AppComm::Node& task);

}  // namespace operations
