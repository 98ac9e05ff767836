#include "support/ChildProcess.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace support {
namespace {

using std::chrono::steady_clock;

constexpr UINT kKilled = 1000001;

[[noreturn]] void fail(const char* what) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

std::filesystem::path ownFolder() {
  std::array<wchar_t, 32768> path{};
  if (::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())) == 0) fail("GetModuleFileNameW");
  return std::filesystem::path(path.data()).parent_path();
}

// For arguments without quotes and without a backslash at the end.
std::wstring commandLine(const std::wstring& program, const std::vector<std::wstring>& arguments) {
  std::wstring line = L'"' + program + L'"';
  for (const auto& argument : arguments) line += L" \"" + argument + L'"';
  return line;
}

}  // namespace

PipeReader::PipeReader() {
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (::CreatePipe(&reading, &writing, &inheritable, 0) == 0) fail("CreatePipe");
  m_readingEnd.reset(reading);
  m_writingEnd.reset(writing);
  if (::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0) == 0) fail("SetHandleInformation");
  m_thread = std::thread(&PipeReader::read, this);
}

PipeReader::~PipeReader() {
  m_writingEnd.reset();
  m_thread.join();
}

void PipeReader::read() {
  std::array<char, 4096> bytes{};
  DWORD count = 0;
  while (::ReadFile(m_readingEnd.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0) {
    const std::lock_guard lock(m_mutex);
    m_text.append(bytes.data(), count);
    m_changed.notify_all();
  }
  const std::lock_guard lock(m_mutex);
  m_ended = true;
  m_changed.notify_all();
}

std::string PipeReader::text() const {
  const std::lock_guard lock(m_mutex);
  return m_text;
}

bool PipeReader::waitForEnd(steady_clock::time_point deadline) const {
  std::unique_lock lock(m_mutex);
  return m_changed.wait_until(lock, deadline, [&] { return m_ended; });
}

ChildProcess::ChildProcess(const std::wstring& program, const std::vector<std::wstring>& arguments)
    : m_job(::CreateJobObjectW(nullptr, nullptr)) {
  if (m_job == nullptr) fail("CreateJobObjectW");
  const auto path = (ownFolder() / program).wstring();
  auto line = commandLine(path, arguments);
  const auto output = m_output.takeWritingEnd();
  const auto errors = m_errors.takeWritingEnd();
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = output.get();
  startup.hStdError = errors.get();
  PROCESS_INFORMATION information{};
  // Suspended, so that it starts nothing before it is in the job.
  if (::CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &startup,
                       &information) == 0) {
    fail("CreateProcessW");
  }
  m_process.reset(information.hProcess);
  const Handle thread(information.hThread);
  if (::AssignProcessToJobObject(m_job.get(), m_process.get()) == 0 || ::ResumeThread(thread.get()) == static_cast<DWORD>(-1)) {
    ::TerminateProcess(m_process.get(), kKilled);
    fail("the child cannot be put to work");
  }
}

ChildProcess::~ChildProcess() { kill(); }

std::optional<std::uint32_t> ChildProcess::wait(std::chrono::milliseconds limit) const {
  const auto deadline = steady_clock::now() + limit;
  if (::WaitForSingleObject(m_process.get(), static_cast<DWORD>(limit.count())) != WAIT_OBJECT_0) return std::nullopt;
  if (!m_output.waitForEnd(deadline) || !m_errors.waitForEnd(deadline)) return std::nullopt;
  DWORD code = 0;
  if (::GetExitCodeProcess(m_process.get(), &code) == 0) return std::nullopt;
  return code;
}

void ChildProcess::kill() const {
  ::TerminateJobObject(m_job.get(), kKilled);
  ::WaitForSingleObject(m_process.get(), static_cast<DWORD>(kPatience.count()));
}

}  // namespace support
