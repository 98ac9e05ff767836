#pragma once

#include <memory>

#include "comm/CNode.h"

/// One function per task type, run by the printer's worker with the entry whose turn it is. Each releases every reference it
/// took on every way out. The result is only logged: 0 when the operation ran and was notified, 2 when the task's record is of
/// another type (nobody is notified); others are said at the function.

/// Polls the printer's state. Also 1: the caller forbids it now; nothing was called, nobody is notified.
int comm_thread_state(std::shared_ptr<comm::CNode> entry);
