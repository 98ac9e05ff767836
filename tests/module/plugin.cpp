/// An application in a library of its own: when it is unloaded, the module goes with it.

#include "module/Plugin.h"

#include "module/Application.h"
#include "simulator/SimulatedPrinters.h"
#include "support/ThreadCount.h"

extern "C" __declspec(dllexport) bool useModule() {
  using application::kPatience;
  const int threadsBefore = support::threadCount();
  application::loadPrinters(application::printer("desk", "connection='usb' interval='10' ctrl-port='yes' jobs='1'"));
  application::StateTask task(L"desk", 1);
  Add(task.repeating().node());
  if (!task.notices().waitFor(3)) return false;
  task.node()->setDelete();
  Stop();
  // The leave line is not the end: a worker still runs a few instructions of the module after it.
  return task.waitUntilReleased() && support::waitForThreadCount(threadsBefore, std::chrono::steady_clock::now() + kPatience);
}
