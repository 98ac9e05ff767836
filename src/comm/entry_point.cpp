#include <iterator>

#include "comm/EntryPoint.h"
#include "log/Log.h"

namespace comm {
namespace {

// Part of the log's format: readers of logs know these places by their numbers.
constexpr const char* kName = "DllMain";
constexpr std::int32_t kAttach = 264;
constexpr std::int32_t kDetach = 271;

void resetLog() {
  g_logMask = 0;
  std::wmemset(g_logPath, L'\0', std::size(g_logPath));
  if (g_logSemaphore == nullptr) return;
  ::CloseHandle(g_logSemaphore);
  g_logSemaphore = nullptr;
}

}  // namespace

void attachProcess(HINSTANCE module) {
  ::DisableThreadLibraryCalls(module);
  resetLog();
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  WriteLog(LOG_DEBUG, kName, kAttach, L"App Communication DLL Attach.");
}

void detachProcess() {
  WriteLog(LOG_DEBUG, kName, kDetach, L"App Communication DLL Detach.");
  resetLog();
}

}  // namespace comm
