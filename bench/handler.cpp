/// One run of the state handler on libraries that return at once, beside the same library calls and the same notice made bare.

#include <benchmark/benchmark.h>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "PrinterInfo.h"
#include "Records.h"
#include "bench/BenchWindow.h"
#include "operations/Handlers.h"

namespace {

// A USB printer whose state was asked for: jobs are counted, the state is read, the window is told.
struct Printer {
  std::shared_ptr<qzstd::PrinterInfo> info = std::make_shared<qzstd::PrinterInfo>();
  std::shared_ptr<AppComm::State> record = std::make_shared<AppComm::State>();
  std::shared_ptr<bench::BenchWindow> window = std::make_shared<bench::BenchWindow>();
  std::shared_ptr<AppComm::Node> task = AppComm::Node::Instance(info, window, 7, AppComm::Type::State);
  std::shared_ptr<comm::CNode> entry = std::make_shared<comm::CNode>(task);

  Printer() {
    info->managerId = L"USB/office/printer-0001";
    task->setResource(record);
    task->setReqNPA();
  }
};

void stateHandler(benchmark::State& state) {
  const Printer printer;
  for (auto _ : state) {
    if (comm_thread_state(printer.entry) != 0) state.SkipWithError("the handler refused its record");
  }
  if (!printer.record->queried) state.SkipWithError("the state was not read");
}

void bareCalls(benchmark::State& state) {
  const Printer printer;
  const AppWnd::CWnd* window = printer.window.get();
  for (auto _ : state) {
    benchmark::DoNotOptimize(AppMgr_GetPrintingJob(printer.info->managerId.c_str()));
    benchmark::DoNotOptimize(AppPrinterSdk_GetState(printer.info.get()));
    benchmark::DoNotOptimize(window->Notice(7));
  }
}

BENCHMARK(bareCalls)->Name("bare_library_calls");
BENCHMARK(stateHandler)->Name("state_handler");

}  // namespace
