/// A log call while its level is off: what every line of the module costs an application that does not log.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "bench/BareCall.h"
#include "log/Log.h"

namespace {

using Call = void (*)(std::uint32_t, const char*, std::int32_t, const wchar_t*, ...);

template <Call call>
void disabled(benchmark::State& state) {
  const std::wstring uid = L"USB/office/printer-0001";
  for (auto _ : state) call(LOG_DEBUG, "thread_list", 163, L"Communication end, uid: %ws, result: %d", uid.c_str(), 0);
}

BENCHMARK(disabled<bench::bareCall>)->Name("bare_call");
BENCHMARK(disabled<WriteLog>)->Name("disabled_call");

}  // namespace
