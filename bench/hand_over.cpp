/// Handing a function over to another thread and waiting for its result: how a list's worker runs each handler.

#include <asio/post.hpp>
#include <asio/strand.hpp>
#include <asio/thread_pool.hpp>
#include <asio/use_future.hpp>
#include <future>

#include "PrinterInfo.h"
#include "bench/ParkedThread.h"
#include "bench/PingPong.h"
#include "comm/CList.h"

namespace {

std::shared_ptr<comm::CNode> newEntry() {
  const auto printer = std::make_shared<qzstd::PrinterInfo>();
  return std::make_shared<comm::CNode>(AppComm::Node::Instance(printer, nullptr, 0, AppComm::Type::State));
}

// As `runFront` in src/comm/worker.cpp does it.
void dispatch(benchmark::State& state) {
  comm::HelperThread helper;
  const auto entry = newEntry();
  const comm::Handler handler = [](std::shared_ptr<comm::CNode> /*entry*/) { return 0; };
  for (auto _ : state) benchmark::DoNotOptimize(helper.launch([handler, entry] { return handler(entry); }).get());
}

void helperThread(benchmark::State& state) {
  comm::HelperThread helper;
  for (auto _ : state) helper.launch([] {}).get();
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
