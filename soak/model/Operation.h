#pragma once

#include <array>
#include <chrono>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/Event.h"

/// What one run of an operation may show: which library calls, in which order, and when the windows are told.
namespace soak {

/// What a task's record says, as far as later steps go by it, also those of later runs.
struct RecordFields {
  Selection selected{};    ///< of a `GetDevParam`: a read that fails takes its parameter out
  bool triggered = false;  ///< of a `FirmNewCheck`, as the next
  bool ok = false;
  bool done = false;  ///< the check or the transfer is over

  friend auto operator<=>(const RecordFields&, const RecordFields&) = default;
};

/// As the application made it.
RecordFields newRecord(const TaskTraits& task);

/// How far a run has come.
struct Progress {
  std::string_view function{};  ///< the last library function, empty before the first
  std::int32_t result = 0;      ///< of that call
  std::int32_t jobs = 0;        ///< as the printer told in this run
  bool afterRound = false;      ///< the windows have been told since that call
  bool exited = false;          ///< the job is over; one more round of notices at most
  bool refused = false;         ///< the record was of another type
  enum class Npa : std::uint8_t { unread, no, yes } npa = Npa::unread;
  RecordFields record{};
  std::int32_t total = 0;  ///< segments of a job
  bool over = false;       ///< it has done them all

  friend auto operator<=>(const Progress&, const Progress&) = default;
};

/// What a run depends on beside its own progress.
struct Surroundings {
  PrinterTraits printer;
  TaskTraits task;
  bool mayBeDeleted = false;  ///< the task may be marked by now
  bool isDeleted = false;     ///< it is
};

/// What may come next. Several at once, where only the module knows.
struct Next {
  std::array<std::string_view, 5> calls{};
  bool round = false;      ///< the task's window and all observers' are told
  bool ownNotice = false;  ///< the task's window alone is told; then the observers are dropped
  bool done = false;       ///< the run is over
  bool readsNpa = false;   ///< the task's NPA request is looked at
  bool ownRecord = false;  ///< the record is found to be of another type
  /// Before a call the operation sleeps so long, from what was seen last.
  std::chrono::milliseconds pause{};

  bool calling(std::string_view function) const;
};

Next nextOf(const Progress& at, const Surroundings& in);

/// The library function has returned.
void noteReturn(Progress& at, Type type, const Event& event);

/// Whether the operation also looks at the observers' records.
bool sharesRecords(Type type);

/// How many types of tasks there are, from 0.
inline constexpr std::size_t kTypes = 22;

/// The type's name as in `AppComm::Type`.
std::string_view nameOf(Type type);

}  // namespace soak
