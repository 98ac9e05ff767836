/// One of several processes that share the log. What it can do is in LogProcess.h.

#include <string>

#include "log/Log.h"
#include "log/LogProcess.h"
#include "support/ChildProcess.h"

namespace {

bool waitForStart() {
  const support::Handle start(::OpenEventW(SYNCHRONIZE, FALSE, logprocess::kStartEvent));
  return start != nullptr && ::WaitForSingleObject(start.get(), logprocess::kDeadlineMs) == WAIT_OBJECT_0;
}

int write(const std::string& writer, int count) {
  const std::wstring name(writer.begin(), writer.end());
  if (g_logMask == 0 || !waitForStart()) return static_cast<int>(logprocess::kFailed);
  int slow = 0;
  for (int line = 1; line <= count; ++line) {
    const ULONGLONG before = ::GetTickCount64();
    WriteLog(LOG_DEBUG, "write", line, L"%ws %d of %d, %ws.", name.c_str(), line, count, name.c_str());
    if (::GetTickCount64() - before >= logprocess::kSlowMs) ++slow;
  }
  return slow;
}

int hold() {
  const support::Handle held(::OpenEventW(EVENT_MODIFY_STATE, FALSE, logprocess::kHeldEvent));
  constexpr int kNotHeld = static_cast<int>(logprocess::kFailed);
  if (held == nullptr || ::WaitForSingleObject(g_logSemaphore, logprocess::kDeadlineMs) != WAIT_OBJECT_0) return kNotHeld;
  ::SetEvent(held.get());
  ::WaitForSingleObject(::GetCurrentProcess(), logprocess::kDeadlineMs);  // which ends by being killed
  return kNotHeld;
}

}  // namespace

int main(int argc, char** argv) {
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  const std::string action = argc > 1 ? argv[1] : "";
  if (action == logprocess::kHold && argc == 2) return hold();
  if (action == logprocess::kWrite && argc == 4) return write(argv[2], std::stoi(argv[3]));
  return static_cast<int>(logprocess::kFailed);
}
