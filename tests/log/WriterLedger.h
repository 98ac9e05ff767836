#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

#include "platform/WindowsApi.h"

/// What `log_writer.exe`, which writes numbered lines into the log, and the test that started it tell each other.
namespace logwriter {

inline constexpr std::uint32_t kMostLines = 300000;  ///< of one writer
inline constexpr DWORD kDeadlineMs = 25000;          ///< no wait of the tests is longer
/// Set by every writer whenever it has something new to tell; one waits for it at a time.
inline constexpr const wchar_t* kProgressEvent = L"AppCommLogTestProgress";

/// @name The writer `name`'s own.
/// @{
inline std::wstring ledgerName(const std::wstring& name) { return L"AppCommLogTestLedger" + name; }
inline std::wstring orderEventName(const std::wstring& name) { return L"AppCommLogTestOrder" + name; }
/// The message of its line `number`. Lines differ in length, so that one written over another leaves a piece of it.
inline std::wstring message(const std::wstring& name, std::uint32_t number) {
  return name + L" writes " + std::to_wstring(number) + L" " + std::wstring(number * 7 % 61, L'x') + L" " + name + L".";
}
/// @}

enum class Order : std::uint32_t { Rest, Write, End };

/// Where a writer can be told to stand still in the middle of a line, to be killed there.
enum class Moment : std::uint32_t { None, BeforeWait, BeforeOpen, HalfWritten, BeforeClose, BeforeMove, BeforeRelease };

/// What the platform did not do for a line; 0 when it did all.
using Trouble = std::uint8_t;
inline constexpr Trouble kTimedOut = 1;   ///< the wait for the semaphore
inline constexpr Trouble kNotOpened = 2;  ///< the file
inline constexpr Trouble kShort = 4;      ///< the write: not all of the line, or nothing

/// In memory that the test keeps, so that it tells all there is to tell of a writer that was killed. It begins as zeros.
struct WriterLedger {
  // Of the test.
  std::atomic<Order> order;
  std::atomic<Moment> standStill;  // in the next line that comes by there
  // Of the writer. Its lines are numbered from 1; up to `begun` they are begun, up to `completed` done.
  std::atomic<bool> resting;
  std::atomic<bool> standsStill;
  std::atomic<std::uint32_t> begun;
  std::atomic<std::uint32_t> completed;
  std::atomic<std::uint32_t> mostWaits;      // for the semaphore, in one line
  std::atomic<std::uint32_t> longestWaitMs;  // as asked for
  std::atomic<std::uint64_t> longestLineMs;  // as measured
  std::array<std::atomic<Trouble>, kMostLines + 1> trouble;
};

}  // namespace logwriter
