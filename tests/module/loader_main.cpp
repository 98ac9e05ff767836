/// A program that is not linked with the module, but loads it, or a library that is linked with it.
///
///   module_loader use ROUNDS   as often, loads a library that uses the module, has it do so, ends it while a library call is
///                              under way and tasks are queued behind it, and unloads both; no handle may be left, nor blocks
///   module_loader too-early    the same once, with an attempt to unload before the call returns
///   module_loader others-end   the same, when threads of the program that were there before have ended meanwhile
///   module_loader waiting      unloads the library while a worker waits out its interval, with an attempt before that is over
///   module_loader transfer     unloads the library during a firmware transfer that takes days
///   module_loader messages     unloads the library while somebody waits for this thread's window to answer
///   module_loader no-end       loads a library that does not export how to end its tasks
///   module_loader idle ROUNDS  as often, loads the module and unloads it, and nothing else; no handle may be left
///
/// Exit code 0, or what went wrong: 1 the module was there before it was loaded; 2 it was not loaded; 3 the library's tasks did
/// not begin; 4 the library seemed to be at rest while it was at work; 5 it was not unloaded in time; 6 the module stayed; 7 a
/// mistake in the arguments; 8 something was left; 9 the system did not give what the program itself needs; 10 a library that
/// cannot be ended was accepted.

#include <cstdlib>
#include <future>
#include <iostream>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

#include "common/UnloadableLibrary.h"
#include "module/HeapBlocks.h"
#include "module/Plugin.h"
#include "support/HandleCount.h"
#include "support/ThreadCount.h"

namespace {

constexpr const wchar_t* kModule = L"AppCommunication.dll";
constexpr auto kPatience = std::chrono::seconds(20);
constexpr auto kPatienceWithAWait = std::chrono::seconds(40);  // for the rest of the 15 s that `beginWait` has a worker wait
constexpr int kWarmRounds = 20;                                // by then everything that is made once has been made
constexpr int kMostBlocksLeft = 20;                            // 2 were seen

bool isModuleLoaded() { return ::GetModuleHandleW(kModule) != nullptr; }

int runRound() {
  if (isModuleLoaded()) return 1;
  examples::UnloadableLibrary library(L"module_plugin.dll");
  if (!isModuleLoaded()) return 2;
  if (!library.function<decltype(beginTasks)>("beginTasks")()) return 3;
  library.function<void()>("endTasks")();
  if (library.threadsAreGone()) return 4;  // the call has not returned
  library.function<decltype(releaseCall)>("releaseCall")();
  if (!library.unload(kPatience) || !library.threadsAreGone()) return 5;
  return isModuleLoaded() ? 6 : 0;
}

// Once before the call returns, and once after that.
int unloadAroundTheCall(examples::UnloadableLibrary& library) {
  if (library.unload(std::chrono::milliseconds(100)) || !isModuleLoaded()) return 4;
  library.function<decltype(releaseCall)>("releaseCall")();
  if (!library.unload(kPatience) || !library.threadsAreGone()) return 5;
  return isModuleLoaded() ? 6 : 0;
}

int unloadTooEarly() {
  examples::UnloadableLibrary library(L"module_plugin.dll");
  if (!library.function<decltype(beginTasks)>("beginTasks")()) return 3;
  return unloadAroundTheCall(library);
}

int unloadAfterOthersEnded() {
  constexpr int kOthers = 8;  // more than work for the library
  std::promise<void> end;
  const auto ended = end.get_future().share();
  std::vector<std::jthread> others;
  for (int i = 0; i < kOthers; ++i) others.emplace_back([ended] { ended.wait(); });
  examples::UnloadableLibrary library(L"module_plugin.dll");
  const bool hasBegun = library.function<decltype(beginTasks)>("beginTasks")();
  end.set_value();
  others.clear();
  return hasBegun ? unloadAroundTheCall(library) : 3;
}

int unloadInWait() {
  const int before = support::threadCount();
  examples::UnloadableLibrary library(L"module_plugin.dll");
  library.function<decltype(beginWait)>("beginWait")();
  // The worker, and the helper that it starts to be woken by: only a worker that waits is deaf to the end.
  if (!support::waitForThreadCount(before + 2, std::chrono::steady_clock::now() + kPatience)) return 3;
  if (library.unload(std::chrono::milliseconds(100)) || !isModuleLoaded()) return 4;
  if (!library.unload(kPatienceWithAWait) || !library.threadsAreGone()) return 5;
  return isModuleLoaded() ? 6 : 0;
}

int unloadInTransfer() {
  examples::UnloadableLibrary library(L"module_plugin.dll");
  if (!library.function<decltype(beginTransfer)>("beginTransfer")()) return 3;
  if (!library.unload(kPatience) || !library.threadsAreGone()) return 5;
  return isModuleLoaded() ? 6 : 0;
}

int unloadWhileSomebodySends() {
  examples::UnloadableLibrary library(L"module_plugin.dll");
  if (!library.function<decltype(beginMessages)>("beginMessages")()) return 3;
  if (!library.unload(kPatience) || !library.threadsAreGone()) return 5;
  return isModuleLoaded() ? 6 : 0;
}

int loadWithoutEnd() {
  try {
    const examples::UnloadableLibrary library(kModule);
    return 10;
  } catch (const std::system_error&) {
    return isModuleLoaded() ? 6 : 0;
  }
}

/// What the process has.
struct Belongings {
  int handles = support::handleCount();
  int heapBlocks = heapBlocksInUse();
};

// No handle. The system and the runtime keep a few blocks more now than then, however many rounds there are.
bool hasGrown(const Belongings& before, const Belongings& now) {
  std::cout << "handles: " << before.handles << ", then " << now.handles << "; heap blocks: " << before.heapBlocks << ", then "
            << now.heapBlocks << '\n';
  if (before.handles < 0 || before.heapBlocks < 0 || now.heapBlocks < 0) return true;
  return now.handles != before.handles || now.heapBlocks - before.heapBlocks > kMostBlocksLeft;
}

int runRounds(int rounds) {
  if (rounds <= kWarmRounds) return 7;
  // The simulated printers stay. They let go of nothing before the process is gone, as a call may be under way when it exits.
  if (::LoadLibraryW(L"SimulatedPrinters.dll") == nullptr) return 9;
  std::optional<Belongings> before;
  for (int round = 0; round < rounds; ++round) {
    if (round == kWarmRounds) before.emplace();
    if (const int failed = runRound(); failed != 0) return failed;
    if (round % kWarmRounds == 0) std::cout << "round " << round << '\n' << std::flush;  // a sign of life
  }
  return hasGrown(*before, Belongings()) ? 8 : 0;
}

int runIdleRound() {
  if (isModuleLoaded()) return 1;
  const HMODULE library = ::LoadLibraryW(kModule);
  if (library == nullptr) return 2;
  if (::FreeLibrary(library) == 0) return 5;
  return isModuleLoaded() ? 6 : 0;
}

int runIdleRounds(int rounds) {
  // What is kept from the first round alone is the system's: the module, which was unloaded, does not know that there was one.
  if (const int failed = runIdleRound(); failed != 0) return failed;
  const int before = support::handleCount();
  if (before < 0) return 9;
  for (int round = 1; round < rounds; ++round) {
    if (const int failed = runIdleRound(); failed != 0) return failed;
  }
  return support::handleCount() == before ? 0 : 8;
}

}  // namespace

int main(int count, char** values) {
  const std::string_view mode = count > 1 ? values[1] : "";
  const int rounds = count == 3 ? std::atoi(values[2]) : 0;
  if (mode == "use" && rounds > 0) return runRounds(rounds);
  if (mode == "too-early" && count == 2) return unloadTooEarly();
  if (mode == "others-end" && count == 2) return unloadAfterOthersEnded();
  if (mode == "waiting" && count == 2) return unloadInWait();
  if (mode == "transfer" && count == 2) return unloadInTransfer();
  if (mode == "messages" && count == 2) return unloadWhileSomebodySends();
  if (mode == "no-end" && count == 2) return loadWithoutEnd();
  if (mode == "idle" && rounds > 0) return runIdleRounds(rounds);
  return 7;
}
