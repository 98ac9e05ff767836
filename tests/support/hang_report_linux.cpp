#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "support/HangReport.h"

// A thread's stack is taken by that thread itself, in a signal handler: one thread at a time, and only the watchdog writes.
namespace support {
namespace {

// ThreadSanitizer keeps ordinary signals back until a thread leaves its blocking call, which a hung thread never does. This
// one counts as synchronous and is let through at once.
constexpr int stackSignal = SIGSYS;

// A report that hangs itself, on a lock of the loader or of the heap, must not keep the process.
constexpr unsigned reportSeconds = 60;

constexpr std::size_t maxFrames = 64;
std::array<void*, maxFrames> frames;
std::atomic<int> depth;    // 0: not taken yet
std::atomic<pid_t> asked;  // the one thread that may write

pid_t currentThread() { return static_cast<pid_t>(::syscall(SYS_gettid)); }

void takeStack(int /*signal*/) {
  const int keptErrno = errno;
  if (asked == currentThread()) depth = ::backtrace(frames.data(), static_cast<int>(frames.size()));
  errno = keptErrno;
}

// Not through stdio, whose lock may be what hangs.
void put(const char* text) { (void)!::write(STDERR_FILENO, text, std::strlen(text)); }

bool takeStackOf(pid_t thread) {
  depth = 0;
  asked = thread;
  if (::syscall(SYS_tgkill, ::getpid(), thread, stackSignal) != 0) return false;
  for (int tries = 0; tries < 200 && depth == 0; ++tries) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  asked = 0;
  return depth > 0;
}

void* baseOf(void* address) {
  Dl_info object{};
  return ::dladdr(address, &object) != 0 ? object.dli_fbase : nullptr;
}

// Most of our functions are hidden or internal and have no name at run time. binutils find it, with file and line, in the
// debug information.
void putOwnFunctions() {
  std::array<std::array<char, 24>, maxFrames> addresses{};
  std::array<char, 256> program{};
  if (::readlink("/proc/self/exe", program.data(), program.size() - 1) < 0) return;
  std::array<char, 16> tool{"addr2line"};
  std::array<char, 16> options{"-Cfpie"};
  std::array<char*, maxFrames + 4> arguments{tool.data(), options.data(), program.data()};  // ends in null

  void* const ownBase = baseOf(reinterpret_cast<void*>(&takeStack));
  std::size_t count = 3;
  for (std::size_t i = 0; i < static_cast<std::size_t>(depth.load()); ++i) {
    if (baseOf(frames[i]) != ownBase) continue;
    // One byte back: the frame holds the address after its call, which may belong to the next line.
    const auto offset = reinterpret_cast<std::uintptr_t>(frames[i]) - reinterpret_cast<std::uintptr_t>(ownBase) - 1;
    std::snprintf(addresses[i].data(), addresses[i].size(), "0x%llx", static_cast<unsigned long long>(offset));
    arguments[count++] = addresses[i].data();
  }

  posix_spawn_file_actions_t toStandardError;
  if (::posix_spawn_file_actions_init(&toStandardError) != 0) return;
  ::posix_spawn_file_actions_adddup2(&toStandardError, STDERR_FILENO, STDOUT_FILENO);
  pid_t child = 0;
  if (::posix_spawnp(&child, tool.data(), &toStandardError, nullptr, arguments.data(), environ) == 0) {
    ::waitpid(child, nullptr, 0);
  }
}

void putStackOf(pid_t thread) {
  std::array<char, 80> title{};
  std::snprintf(title.data(), title.size(), "--- thread %d\n", static_cast<int>(thread));
  put(title.data());
  if (!takeStackOf(thread)) {
    put("gave no stack: it blocks signals, or has just ended\n");
    return;
  }
  ::backtrace_symbols_fd(frames.data(), depth, STDERR_FILENO);
  put("of these, in the program itself:\n");
  putOwnFunctions();
}

void putAllStacks() {
  DIR* const tasks = ::opendir("/proc/self/task");
  if (tasks == nullptr) return;
  while (const dirent* const entry = ::readdir(tasks)) {
    const auto thread = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
    if (thread > 0 && thread != currentThread()) putStackOf(thread);
  }
}

void endAfter(unsigned seconds) {
  ::signal(SIGALRM, SIG_DFL);
  sigset_t alarmOnly;
  ::sigemptyset(&alarmOnly);
  ::sigaddset(&alarmOnly, SIGALRM);
  ::pthread_sigmask(SIG_UNBLOCK, &alarmOnly, nullptr);
  ::alarm(seconds);
}

}  // namespace

void prepareHangReport() {
  ::backtrace(frames.data(), 1);  // its first call loads a library
  struct sigaction action {};
  action.sa_handler = &takeStack;
  action.sa_flags = SA_RESTART;
  ::sigaction(stackSignal, &action, nullptr);
}

void reportHangAndEnd(const char* line) {
  endAfter(reportSeconds);
  put(line);
  putAllStacks();
  std::_Exit(3);
}

}  // namespace support
