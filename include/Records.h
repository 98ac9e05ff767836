#pragma once

#include <cstddef>
#include <cstdint>

namespace AppComm {

/// Record of `Type::State`: how the run went. What the printer said is in the printer description.
///
/// The state is read in a run of
/// - a network printer when it has jobs, or when `StartNPA` asked for it;
/// - a USB printer without jobs when it supports push scanning, or when `StartNPA` asked for it;
/// - a USB printer with jobs when it has a control port.
///
/// Every run notifies, whether it read or not; `queried` tells.
///
/// The caller makes it, stores a `std::shared_ptr` to it in the task and reads it inside `Notice`. `busy` alone may be written
/// by the caller at any time, through `std::atomic_ref`.
struct State {
  bool queried = false;             ///< the printer's state was read in this run
  bool busy = false;                ///< set by the caller: no state is read and no notice is sent
  bool pushScanRegistered = false;  ///< the last push-scan registration succeeded
  bool upgradeRegistered = false;   ///< the last registration with the upgrade service succeeded
  bool ipChanged = false;           ///< the address of a network printer changed
  std::int32_t jobs = 0;            ///< jobs in progress, as of this run
  std::int32_t result = 0;          ///< result of the last state read, 0 success; kept in runs that read nothing
};

#if defined(_WIN32)
static_assert(offsetof(State, queried) == 0 && offsetof(State, busy) == 1 && offsetof(State, pushScanRegistered) == 2 &&
              offsetof(State, upgradeRegistered) == 3 && offsetof(State, ipChanged) == 4 && offsetof(State, jobs) == 8 &&
              offsetof(State, result) == 12 && sizeof(State) == 16);
#endif

}  // namespace AppComm
