#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>

#include "Node.h"

/// What is seen of the module from outside, one thing after another. The model judges nothing else.
namespace soak {

using AppComm::Type;
using Moment = std::chrono::system_clock::time_point;  // the clock that the module paces its lists by

using TaskId = std::uint32_t;     ///< the task's notice code; 0: none
using ThreadId = std::uint32_t;   ///< one of each thread that was ever seen, never used again; 0: none
using PrinterId = std::uint32_t;  ///< the printer's place in the scenario

inline constexpr PrinterId kEveryPrinter = UINT32_MAX;
inline constexpr PrinterId kNoPrinter = UINT32_MAX - 1;

/// The parameters that a `GetDevParam` may read: sleep time, supplies alarm, paper alarm, timed clear, silent mode.
using Selection = std::array<bool, 5>;

enum class What : std::uint8_t {
  addBegin,  ///< carries the task's traits
  addEnd,    ///< value: what the call returned; of the next three as well
  stopBegin,
  stopEnd,
  startBegin,  ///< `StartNPA`; carries the type
  startEnd,
  pauseBegin,
  pauseEnd,
  deleteBegin,
  deleteEnd,
  onceBegin,  ///< `setOnce` (value 1) or `setRepeat` (value 0)
  onceEnd,
  noticeBegin,   ///< value: what a state record says of `queried`, -1 when there is none
  noticeEnd,     ///< value: the window's answer
  callBegin,     ///< a call of one of the maker's functions
  callEnd,       ///< value: its result
  recordCopied,  ///< a record of a type that no operation takes was looked at
  released,      ///< the module's last reference to a task has gone
  threadEnded,
  tick,  ///< time has passed
};

/// What is fixed when a task is added.
struct TaskTraits {
  Type type{};
  std::int32_t interval = 0;  ///< milliseconds
  std::int32_t status = 0;    ///< the device status that its printer description tells
  bool once = true;
  bool wrongRecord = false;
  bool npaRequested = false;
  Selection selected{};  ///< by the record of a `GetDevParam`
};

struct PrinterTraits {
  bool network = false;
  bool ctrlPort = false;
};

struct Event {
  What what{};
  ThreadId thread = 0;
  PrinterId printer = 0;
  TaskId task = 0;
  std::int32_t value = 0;
  bool updated = true;          ///< noticeBegin: the task is marked as updated
  std::string_view function{};  // of static storage
  /// callEnd: what is then in the counts and the flag by which a function tells how far a job is.
  std::array<std::int32_t, 2> told{};
  TaskTraits traits{};
  bool failed = false;       ///< callEnd: the scenario had it fail; only counted
  bool hung = false;         ///< callEnd: the scenario had it hang; only counted
  std::uint64_t number = 0;  ///< its place among all events, from 1
  Moment time{};
};

}  // namespace soak
