/// An application that uses the module, for the tests that need a process of its own:
///   module_client poll             the whole road of some tasks; tells what the functions return
///   module_client wrong-record     a task whose record is another operation's
///   module_client exit-in-wait     leaves without `Stop` while the printer's worker waits for most of an hour
///   module_client exit-in-handler  leaves without `Stop` in the middle of a printer call that never ends
/// Exit code 0, or 1 when something did not happen in time.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "module/Application.h"
#include "simulator/SimulatedPrinters.h"
#include "support/ThreadCount.h"

namespace {

using application::kPatience;
using application::loadPrinters;
using application::printer;
using application::StateTask;

int g_threadsBefore = 0;

void require(bool happened, const char* what) {
  if (happened) return;
  std::fprintf(stderr, "did not happen in time: %s\n", what);
  std::_Exit(1);
}

void requireNoThreads() {
  require(support::waitForThreadCount(g_threadsBefore, std::chrono::steady_clock::now() + kPatience), "the end of the threads");
}

void tellWhetherTheLogIsOn() {
  const HANDLE semaphore = ::OpenSemaphoreW(SYNCHRONIZE, FALSE, L"OrvaQZ_Corvane");
  std::printf("semaphore: %s\n", semaphore != nullptr ? "yes" : "no");
  if (semaphore != nullptr) ::CloseHandle(semaphore);
}

void poll() {
  tellWhetherTheLogIsOn();
  loadPrinters(printer("desk", "connection='usb' interval='20'"));
  StateTask first(L"desk", 1);
  StateTask observer(L"desk", 2);
  first.repeating();
  observer.repeating();
  const auto deleted = AppComm::Node::Instance(first.node()->getInfo(), nullptr, 3, AppComm::Type::GetAlarm);
  deleted->setRepeat();
  deleted->setDelete();  // enters the queue and leaves it without a run

  std::printf("Add: %d\n", Add(first.node()));
  require(first.notices().waitFor(1), "the first notice");
  std::printf("Add: %d\n", Add(observer.node()));
  std::printf("Add: %d\n", Add(deleted));
  std::printf("StartNPA: %d\n", StartNPA(first.node()));
  require(simulator::waitUntilEnded("AppPrinterSdk_GetState", 1, kPatience), "the read that was asked for");
  std::printf("PauseNPA: %d\n", PauseNPA(first.node()));
  require(observer.notices().waitForMore(2), "the observer's notices");
  std::printf("Stop: %d\n", Stop());
  require(first.waitUntilReleased() && observer.waitUntilReleased(), "the release of the tasks");
  requireNoThreads();
  std::printf("codes: %ld %ld\n", first.notices().all().back().code, observer.notices().all().back().code);
}

void useWrongRecord() {
  loadPrinters(printer("desk", "connection='usb' interval='20'"));
  StateTask task(L"desk", 1);
  task.node()->setResource(std::make_shared<int>(0));
  Add(task.node());
  require(task.waitUntilReleased(), "the release of the task");
  Stop();
  requireNoThreads();
  std::printf("notices: %zu\n", task.notices().count());
}

void exitInWait() {
  loadPrinters(printer("desk", "connection='usb' interval='3600000'"));  // with so long an interval the list begins with a wait
  StateTask task(L"desk", 1);
  Add(task.node());
  // The second thread of a list is started for what it does first, here the wait.
  require(support::waitForThreadCount(g_threadsBefore + 2, std::chrono::steady_clock::now() + kPatience), "the wait");
}

void exitInHandler() {
  loadPrinters(
      printer("desk", "connection='usb' ctrl-port='yes' jobs='1'", "<call function='AppPrinterSdk_GetState'><hang/></call>"));
  StateTask task(L"desk", 1);
  Add(task.node());
  require(simulator::waitUntilBegun("AppPrinterSdk_GetState", 1, kPatience), "the call");
}

}  // namespace

int main(int count, char** values) {
  g_threadsBefore = support::threadCount();
  const std::string_view action = count == 2 ? values[1] : "";
  if (action == "poll") {
    poll();
  } else if (action == "wrong-record") {
    useWrongRecord();
  } else if (action == "exit-in-wait") {
    exitInWait();
  } else if (action == "exit-in-handler") {
    exitInHandler();
  } else {
    std::fputs("module_client: unknown action\n", stderr);
    return 1;
  }
  return 0;
}
