#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/WindowsApi.h"

namespace support {

struct CloseHandles {
  void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandles>;

/// What comes through a pipe, as it comes. Any thread may call.
class PipeReader {
 public:
  PipeReader();
  /// Waits until all writing ends are closed.
  ~PipeReader();

  /// The writing end, inheritable, handed out once.
  Handle takeWritingEnd() { return std::move(m_writingEnd); }

  std::string text() const;
  /// False when it has not ended before `deadline`.
  bool waitForEnd(std::chrono::steady_clock::time_point deadline) const;

 private:
  void read();

  Handle m_readingEnd;
  Handle m_writingEnd;
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  std::string m_text;
  bool m_ended = false;
  std::thread m_thread;
};

/// A program from this program's own folder, started as a child without input. Neither it nor a program that it starts outlives
/// this object.
class ChildProcess {
 public:
  static constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(50);  ///< less than the watchdog's

  /// Throws `std::system_error`.
  explicit ChildProcess(const std::wstring& program, const std::vector<std::wstring>& arguments = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Its exit code, once its output has ended as well; none when that takes longer.
  [[nodiscard]] std::optional<std::uint32_t> wait(std::chrono::milliseconds limit = kPatience) const;
  /// As the system counts processes: to find its windows by.
  std::uint32_t id() const { return ::GetProcessId(m_process.get()); }
  /// What it has written so far.
  std::string output() const { return m_output.text(); }
  std::string errors() const { return m_errors.text(); }

  /// Ends it, and what it started, where it stands.
  void kill() const;

 private:
  PipeReader m_output;
  PipeReader m_errors;
  const Handle m_job;
  Handle m_process;
};

}  // namespace support
