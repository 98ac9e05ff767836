/// log_writer NAME: one of several processes that share the log. It writes numbered lines as long as its ledger says so, and
/// ends with 0, or with the number of the step that failed.

#include "log/Log.h"
#include "log/WatchedPlatform.h"
#include "log/WriterLedger.h"
#include "support/ChildProcess.h"

namespace {

using support::Handle;

// False when there is no order any more.
bool restUntilOrdered(logwriter::WriterLedger& ledger, HANDLE orders, HANDLE progress) {
  ledger.resting = true;
  ::SetEvent(progress);
  return ::WaitForSingleObject(orders, logwriter::kDeadlineMs) == WAIT_OBJECT_0;
}

int writeLines(const std::wstring& name, logwriter::WriterLedger& ledger, HANDLE orders, HANDLE progress) {
  for (std::uint32_t number = 1; number <= logwriter::kMostLines; ++number) {
    const std::wstring message = logwriter::message(name, number);
    while (ledger.order == logwriter::Order::Rest) {
      if (!restUntilOrdered(ledger, orders, progress)) return 4;
    }
    if (ledger.order == logwriter::Order::End) return 0;
    logwriter::beginLine(number);
    WriteLog(LOG_DEBUG, "write", static_cast<std::int32_t>(number), L"%ws", message.c_str());
    logwriter::endLine();
  }
  return 5;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 1;
  LogInit(L"C:\\log\\Corvane.log", 0, L"Corvane");
  if (g_logMask == 0 || g_logSemaphore == nullptr) return 2;

  const std::string narrow = argv[1];
  const std::wstring name(narrow.begin(), narrow.end());
  const Handle memory(::OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, logwriter::ledgerName(name).c_str()));
  const Handle orders(::OpenEventW(SYNCHRONIZE, FALSE, logwriter::orderEventName(name).c_str()));
  const Handle progress(::OpenEventW(EVENT_MODIFY_STATE, FALSE, logwriter::kProgressEvent));
  if (memory == nullptr || orders == nullptr || progress == nullptr) return 3;
  auto* ledger = static_cast<logwriter::WriterLedger*>(
      ::MapViewOfFile(memory.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(logwriter::WriterLedger)));  // unmapped with the process
  if (ledger == nullptr) return 3;
  logwriter::watchLines(*ledger, progress.get());
  return writeLines(name, *ledger, orders.get(), progress.get());
}
