#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "PrinterInfo.h"
#include "simulator/Export.h"
#include "simulator/PrinterContents.h"

/// Printers without hardware: what the stand-ins of the maker's libraries answer, and what they were asked.
///
/// A scenario (docs/scenario.md) describes the printers, what happens to them over time and which calls go wrong. It is loaded
/// by one of the functions below, or by the first call of a maker's function; in that case a scenario with a mistake puts one
/// line on stderr and ends the process with exit code 2.
///
/// Any thread may call anything here. Loading and resetting begin a new session: time, counts and the record start afresh.
/// Calls still under way stop waiting, end with the old session's data and are not seen in the new session's record.
namespace simulator {

/// Names the scenario's file. Unset or empty: the built-in scenario, the same as examples/scenarios/default.xml.
inline constexpr char scenarioVariable[] = "PRINTER_SCENARIO";

/// @name Codes
/// What the simulated functions return beside the codes that a scenario writes. All failures are negative, so that the number
/// of jobs can carry them. Functions that answer yes or no answer no.
/// @{
inline constexpr int success = 0;
/// The scenario has no printer with this uid (printer library, upgrade service) or manager id (manager library, image
/// printing).
inline constexpr int unknownPrinter = -1001;
inline constexpr int badArgument = -1002;     ///< a pointer was null
inline constexpr int unreachable = -1003;     ///< the printer restarts after a firmware transfer
inline constexpr int noJob = -1004;           ///< this thread has started no such job, or has ended it
inline constexpr int notSupported = -1005;    ///< push scan on a printer without
inline constexpr int transferFailed = -1006;  ///< the transfer came to the byte at which the scenario lets it fail
inline constexpr int notJoined = -1007;       ///< no network was named, no network has the name, or the password is wrong
/// @}

/// A scenario with a mistake. `what()` is one line: file, line, what is wrong and what would be right.
class SIMULATOR_VISIBLE ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// @name Loading
/// Each throws `ScenarioError` and then changes nothing: the session before goes on.
/// @{

/// `xml` is UTF-8; `name` stands for the file in error lines.
SIMULATOR_API void loadScenarioText(std::string_view xml, std::string_view name = "scenario");
/// `setting` is what named the file, for the error line of one that cannot be opened.
SIMULATOR_API void loadScenarioFile(const std::filesystem::path& file, std::string_view setting = {});
/// The file that the environment names, or the built-in scenario.
SIMULATOR_API void loadScenario();
/// @}

/// Forgets the scenario, ends all waiting and lets time run by the real clock again. The next use loads from the environment.
SIMULATOR_API void reset();

/// @name Printers
/// With no scenario loaded these load it from the environment and may throw `ScenarioError`.
/// @{

/// The uids in the scenario's order.
SIMULATOR_API std::vector<std::wstring> printerUids();
/// A description to make a task with: the state members are empty until the first state read. Throws `std::out_of_range`,
/// when the scenario has no such printer.
SIMULATOR_API qzstd::PrinterInfo newPrinterInfo(std::wstring_view uid);
/// What calls have made of the printer so far. Throws as `newPrinterInfo`.
SIMULATOR_API PrinterContents contents(std::wstring_view uid);
/// @}

/// One call of a maker's function.
struct CallRecord {
  std::string function;  ///< as the maker's header spells it
  std::wstring printer;  ///< uid, empty when the call named none of the scenario's printers
  std::chrono::steady_clock::time_point start;
  std::optional<std::chrono::steady_clock::time_point> end;  ///< none while the call is under way
  /// The returned code or count; 1 or 0 for yes or no. None while the call is under way, and when the function returns nothing.
  std::optional<int> result;
};

/// A call of a maker's function as it begins or ends, for a program that watches for long: it keeps what it needs.
struct CallSight {
  std::string_view function;  ///< as the maker's header spells it; lives as long as the program
  std::wstring_view printer;  ///< uid, empty as in `CallRecord`; for the duration of the watcher's call
  bool ends = false;
  std::optional<int> result;  ///< of one that ends, as in `CallRecord`
  bool failed = false;        ///< of one that ends: the scenario had it fail
  bool hung = false;          ///< of one that ends: the scenario had it hang, for a while or until it was released
  /// Of one that ends, and that tells how far a job is: what is now in the counts and the flag that it was given to fill.
  std::array<std::int32_t, 2> told{};
};
using CallWatcher = void (*)(const CallSight& sight);

/// From now on `watcher` sees every call begin, before it waits, and end, just before it returns: on the thread of the call,
/// with nothing locked. It must not throw. Null: nobody. Whoever takes a watcher away waits until no call is under way.
SIMULATOR_API void watchCalls(CallWatcher watcher);

/// How many calls the record holds; older ones leave it. Counts and waits are not affected.
inline constexpr std::size_t recordCapacity = 65'536;

/// The session's calls in the order of their start.
SIMULATOR_API std::vector<CallRecord> calls();

/// Waits until the session has seen `count` calls of `function` begin (or end), of the printer with this uid or, for an empty
/// one, of all. False when `limit`, in real time, passed before. Throws `std::invalid_argument` for a function that is not
/// simulated.
SIMULATOR_API bool waitUntilBegun(std::string_view function, std::size_t count, std::chrono::milliseconds limit,
                                  std::wstring_view printer = {});
SIMULATOR_API bool waitUntilEnded(std::string_view function, std::size_t count, std::chrono::milliseconds limit,
                                  std::wstring_view printer = {});

/// Ends the waiting, latency and hang alike, of every call now under way. Later calls wait as the scenario says.
SIMULATOR_API void releaseCalls();

/// @name Time
/// A test stops the simulation's clock and moves it by hand: timelines, latencies, hangs and the record's times follow.
/// @{
SIMULATOR_API void holdTime();
/// Throws `std::logic_error` when time is not held.
SIMULATOR_API void advanceTime(std::chrono::milliseconds by);
/// @}

}  // namespace simulator
