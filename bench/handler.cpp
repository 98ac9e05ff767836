/// One run of a handler on libraries that return at once, beside the same library calls and the same call of the window made
/// bare.

#include <benchmark/benchmark.h>

#include <memory>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "PrinterInfo.h"
#include "Records.h"
#include "bench/BenchWindow.h"
#include "operations/Handlers.h"

namespace {

template <class Record, AppComm::Type type>
struct Task {
  std::shared_ptr<qzstd::PrinterInfo> info = std::make_shared<qzstd::PrinterInfo>();
  std::shared_ptr<Record> record = std::make_shared<Record>();
  std::shared_ptr<bench::BenchWindow> window = std::make_shared<bench::BenchWindow>();
  std::shared_ptr<AppComm::Node> task = AppComm::Node::Instance(info, window, 7, type);
  std::shared_ptr<comm::CNode> entry = std::make_shared<comm::CNode>(task);

  Task() {
    info->managerId = L"USB/office/printer-0001";
    task->setResource(record);
  }
};

// Each of the following has what the handler is, the calls it makes, in its order, and whether they were all made: the record
// tells.

// Jobs are counted, the state is read because it was asked for.
struct StateOverUsb : Task<AppComm::State, AppComm::Type::State> {
  StateOverUsb() { task->setReqNPA(); }
  int run() const { return comm_thread_state(entry); }
  void callBare() const {
    benchmark::DoNotOptimize(AppMgr_GetPrintingJob(info->managerId.c_str()));
    benchmark::DoNotOptimize(AppPrinterSdk_GetState(info.get()));
  }
  bool done() const { return record->queried; }
};

// Between the two, the address is looked at.
struct StateOverNetwork : StateOverUsb {
  StateOverNetwork() { info->connectionKind = 1; }
  void callBare() const {
    benchmark::DoNotOptimize(AppMgr_GetPrintingJob(info->managerId.c_str()));
    AppMgr_CheckIpChange(info.get(), &record->ipChanged);
    benchmark::DoNotOptimize(AppPrinterSdk_GetState(info.get()));
  }
};

// Two parameters between which the printer needs no rest.
struct GetParameters : Task<AppComm::DevParam, AppComm::Type::GetDevParam> {
  GetParameters() { record->sleepTimeOk = record->timedClearOk = true; }
  int run() const { return comm_thread_getDevParam(entry); }
  void callBare() const {
    benchmark::DoNotOptimize(AppPrinterSdk_GetSleepTime(info.get(), &record->sleepTime));
    benchmark::DoNotOptimize(AppPrinterSdk_GetTimedClear(info.get(), &record->timedClear));
  }
  bool done() const { return record->sleepTimeOk && record->timedClearOk; }
};

struct SetSleepTime : Task<AppComm::DevParam, AppComm::Type::SetSleepTime> {
  int run() const { return comm_thread_setSleepTime(entry); }
  void callBare() const {
    benchmark::DoNotOptimize(AppMgr_GetPrintingJob(info->managerId.c_str()));
    benchmark::DoNotOptimize(AppPrinterSdk_SetSleepTime(info.get(), &record->sleepTime));
  }
  bool done() const { return record->sleepTimeOk; }
};

template <class Operation>
void handler(benchmark::State& state) {
  const Operation operation;
  for (auto _ : state) {
    if (operation.run() != 0) state.SkipWithError("the handler refused its record");
  }
  if (!operation.done()) state.SkipWithError("the handler did not make its library calls");
}

template <class Operation>
void bareCalls(benchmark::State& state) {
  const Operation operation;
  const AppWnd::CWnd* window = operation.window.get();
  for (auto _ : state) {
    operation.callBare();
    benchmark::DoNotOptimize(window->Notice(7));
  }
}

BENCHMARK(bareCalls<StateOverUsb>)->Name("bare_calls_state_usb");
BENCHMARK(handler<StateOverUsb>)->Name("state_usb");
BENCHMARK(bareCalls<StateOverNetwork>)->Name("bare_calls_state_network");
BENCHMARK(handler<StateOverNetwork>)->Name("state_network");
BENCHMARK(bareCalls<GetParameters>)->Name("bare_calls_get_parameters");
BENCHMARK(handler<GetParameters>)->Name("get_parameters");
BENCHMARK(bareCalls<SetSleepTime>)->Name("bare_calls_set_sleep_time");
BENCHMARK(handler<SetSleepTime>)->Name("set_sleep_time");

}  // namespace
