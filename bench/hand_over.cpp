/// Handing a function over to another thread and waiting for its result: how a list's worker runs each handler.

#include <asio/post.hpp>
#include <asio/strand.hpp>
#include <asio/thread_pool.hpp>
#include <asio/use_future.hpp>
#include <future>
#include <memory>

#include "PrinterInfo.h"
#include "bench/ParkedThread.h"
#include "bench/PingPong.h"
#include "comm/CList.h"
#include "comm/HandlerTable.h"

namespace {

std::shared_ptr<comm::CNode> newEntry() {
  const auto printer = std::make_shared<qzstd::PrinterInfo>();
  return std::make_shared<comm::CNode>(AppComm::Node::Instance(printer, nullptr, 0, AppComm::Type::State));
}

// What `runFront` in src/comm/worker.cpp does between its two log lines, with the table of all handlers.
void dispatch(benchmark::State& state) {
  comm::CList list(L"USB/office/printer-0001", 1000);
  comm::registerHandlers(list.m_handlers);
  const auto entry = newEntry();
  const auto task = entry->current();
  list.m_handlers[static_cast<int>(task->getType())] = [](std::shared_ptr<comm::CNode> /*entry*/) { return 0; };
  for (auto _ : state) {
    auto& handler = list.m_handlers[static_cast<int>(task->getType())];
    const int result = list.m_helper.run([handler, entry] { return handler(entry); });
    benchmark::DoNotOptimize(result);
  }
}

void helperThread(benchmark::State& state) {
  comm::HelperThread helper;
  for (auto _ : state) helper.run([] {});
}

void standardAsync(benchmark::State& state) {
  for (auto _ : state) std::async(std::launch::async, [] {}).get();
}

template <bench::Notify notify>
void parkedThread(benchmark::State& state) {
  bench::ParkedThread<notify> thread;
  for (auto _ : state) thread.run([] {});
}

void asioStrand(benchmark::State& state) {
  asio::thread_pool pool(1);
  const auto strand = asio::make_strand(pool);
  for (auto _ : state) asio::post(strand, asio::use_future([] {})).get();
}

BENCHMARK(bench::pingPong)->Name("ping_pong")->UseRealTime();
BENCHMARK(dispatch)->Name("dispatch")->UseRealTime();
BENCHMARK(helperThread)->Name("helper_thread")->UseRealTime();
BENCHMARK(standardAsync)->Name("std_async")->UseRealTime();
BENCHMARK(parkedThread<bench::Notify::UnderLock>)->Name("parked_thread_notified_under_lock")->UseRealTime();
BENCHMARK(parkedThread<bench::Notify::AfterUnlocking>)->Name("parked_thread_notified_after_unlocking")->UseRealTime();
BENCHMARK(asioStrand)->Name("asio_strand")->UseRealTime();

}  // namespace
