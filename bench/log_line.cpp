/// A log line while its level is on, beside the same calls into the platform and its runtime without the log around them. Each
/// line opens, appends to and closes a file that processes share, as the log's contract has it.

#include <benchmark/benchmark.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cwchar>

#include "bench/AllocationCount.h"
#include "bench/BareLine.h"
#include "log/Log.h"

namespace {

constexpr const char* kFunction = "thread_list";
constexpr const wchar_t* kUid = L"USB/office/printer-0001";
constexpr const wchar_t* kLine =
    L"2026-01-02 03:04:05.678 [DBG] [thread_list] [163] Communication end, uid: USB/office/printer-0001, result: 0\r\n";
constexpr const wchar_t* kPath = L"bench-line.log";  // in the folder that the program was started in

// The log, on, with a file of its own that is gone afterwards.
class LogOn {
 public:
  LogOn() {
    ::DeleteFileW(kPath);
    ::wcscpy_s(g_logPath, LOG_PATH_UNITS, kPath);
    g_logSemaphore = ::CreateSemaphoreW(nullptr, 1, 1, L"OrvaQZ_Bench");
    if (g_logSemaphore == nullptr) std::abort();
    g_logMask = LOG_DEBUG;
  }
  ~LogOn() {
    g_logMask = 0;
    ::CloseHandle(g_logSemaphore);
    g_logSemaphore = nullptr;
    g_logPath[0] = L'\0';
    ::DeleteFileW(kPath);
  }
  LogOn(const LogOn&) = delete;
  LogOn& operator=(const LogOn&) = delete;
};

// The first lines of a process are slower than the others, whichever way they are written.
constexpr int kWarmUpLines = 500;

// What the lines of one run made of the file; none of it is part of a line's time.
void requireLines(benchmark::State& state, std::size_t lineBytes) {
  const HANDLE file = ::CreateFileW(kPath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  LARGE_INTEGER size{};
  ::GetFileSizeEx(file, &size);
  ::CloseHandle(file);
  const auto expected = static_cast<long long>(lineBytes) * state.iterations();
  if (size.QuadPart != expected) state.SkipWithError("the file does not hold the lines");
}

template <class Write>
void warmUp(Write write) {
  for (int line = 0; line < kWarmUpLines; ++line) write();
}

template <class Write>
void countAllocations(benchmark::State& state, Write write) {
  bench::requireThatAllocationsAreCounted();
  const auto before = bench::allocationCount();
  for (auto _ : state) write();
  const auto allocations = bench::allocationCount() - before;
  state.counters["allocations"] = static_cast<double>(allocations) / static_cast<double>(state.iterations());
}

template <class Write>
void writeLines(benchmark::State& state, Write write) {
  const LogOn log;
  warmUp(write);
  ::DeleteFileW(kPath);
  countAllocations(state, write);
  requireLines(state, std::wcslen(kLine) * sizeof(wchar_t));
}

void enabledLine(benchmark::State& state) {
  writeLines(state, [] { WriteLog(LOG_DEBUG, kFunction, 163, L"Communication end, uid: %ws, result: %d", kUid, 0); });
}

void bareCallsTextReady(benchmark::State& state) {
  const auto bytes = static_cast<std::uint32_t>(std::wcslen(kLine) * sizeof(wchar_t));
  writeLines(state, [bytes] { bench::writeReadyLine(kPath, g_logSemaphore, kFunction, kLine, bytes); });
}

void bareCalls(benchmark::State& state) {
  writeLines(state, [] { bench::writeBareLine(kPath, g_logSemaphore, kFunction, kUid); });
}

// Keeps its file open and knows no other process.
void spdlogFlushed(benchmark::State& state) {
  const auto logger = spdlog::basic_logger_mt("bench", "bench-spdlog.log", true);
  logger->set_level(spdlog::level::debug);
  logger->flush_on(spdlog::level::debug);
  logger->set_pattern("%Y-%m-%d %H:%M:%S.%e [%l] [%!] [%#] %v");
  const spdlog::source_loc where("log_line.cpp", 163, kFunction);
  const char* uid = "USB/office/printer-0001";
  const auto write = [&] { logger->log(where, spdlog::level::debug, "Communication end, uid: {}, result: {}", uid, 0); };
  warmUp(write);
  countAllocations(state, write);
  spdlog::drop_all();
}

// A fixed number of lines: a file that grew beyond 20 MiB would be rotated on the way.
constexpr int kLines = 8000;

BENCHMARK(bareCallsTextReady)->Name("bare_calls_text_ready")->Iterations(kLines)->UseRealTime();
BENCHMARK(bareCalls)->Name("bare_calls")->Iterations(kLines)->UseRealTime();
BENCHMARK(enabledLine)->Name("enabled_line")->Iterations(kLines)->UseRealTime();
BENCHMARK(spdlogFlushed)->Name("spdlog_flushed")->Iterations(kLines)->UseRealTime();

}  // namespace
