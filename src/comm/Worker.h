#pragma once

#include <memory>

#include "comm/CList.h"

/// The worker of one list, for the list's whole working life: waits out the interval, tidies, picks the next entry, runs its
/// handler, and requeues or drops the entry. Ends after `Stop` or after ten idle cycles; then it clears the list and takes
/// every list with its uid out of the registry. Runs on a detached thread that `Add` starts. What a handler throws leaves this
/// function, and so ends the process. Returns 0.
int thread_list(std::shared_ptr<comm::CList> list);
