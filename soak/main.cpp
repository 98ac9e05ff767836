/// A soak of the module: what it does under many callers and faults, compared with a model of its contract.

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Options.h"
#include "Resources.h"
#include "Soak.h"
#include "Totals.h"

namespace {

using namespace std::chrono_literals;

constexpr int kThreadsOfPrinter = 4;  // a list's two, and often those of one that is ending

void print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

std::string repeatLine(const soak::Options& options) {
  return "repeat with --seconds " + std::to_string(options.length.count()) + " --printers " + std::to_string(options.printers) +
         " --seed " + std::to_string(options.seed) + "; how the threads meet is not repeated\n";
}

// Threads of the module may still be at work after a difference: nothing is destroyed under them.
[[noreturn]] void endWith(const soak::Options& options, const std::string& difference, const soak::Totals& totals) {
  print(difference + repeatLine(options) + lastLine(options.printers, totals) + "\n");
  std::_Exit(1);
}

// The platform keeps what a thread had for the next one: as much as there were threads at once.
void startAtOnce(int count) {
  std::mutex mutex;
  std::condition_variable allStarted;
  int missing = count;
  std::vector<std::thread> threads;
  for (int number = 0; number < count; ++number) {
    threads.emplace_back([&] {
      std::unique_lock lock(mutex);
      if (--missing == 0) allStarted.notify_all();
      allStarted.wait(lock, [&] { return missing == 0; });
    });
  }
  for (std::thread& thread : threads) thread.join();
}

soak::Options g_options;  // fixed before the first thread

std::string textOf(const std::exception_ptr& exception) {
  if (!exception) return "a thread was given up";
  try {
    std::rethrow_exception(exception);
  } catch (const std::exception& known) {
    return "nobody caught an exception: " + std::string(known.what());
  } catch (...) {
    return "nobody caught an exception";
  }
}

// On whatever thread it comes, also of the module.
[[noreturn]] void endWithException() {
  print("difference:\n" + textOf(std::current_exception()) + "\n" + repeatLine(g_options) + "printers " +
        std::to_string(g_options.printers) + ", differences 1\n");
  std::_Exit(1);
}

int run(const soak::Options& options) {
  g_options = options;
  std::set_terminate(endWithException);
  print("seed " + std::to_string(options.seed) + ", " + std::to_string(options.length.count()) + " s, " +
        std::to_string(options.printers) + " printers\n");
  std::thread([] {}).join();  // with the first thread, a sanitizer starts one of its own, which stays
  const auto onDifference = [&options](const std::string& text, const soak::Totals& totals) { endWith(options, text, totals); };
  // What the platform and the libraries make once is there from now on.
  soak::runSoak(options.seed, options.printers, 1s, onDifference);
  startAtOnce(kThreadsOfPrinter * options.printers);
  const auto before = soak::Resources::now();
  auto totals = soak::runSoak(options.seed, options.printers, options.length, onDifference);
  if (const auto left = soak::leftOver(before)) {
    ++totals.differences;
    endWith(options, *left, totals);
  }
  if (const auto nothing = soak::unseen(totals, options.length * options.printers)) endWith(options, *nothing, totals);
  print("before: " + textOf(before) + "; after: " + textOf(soak::Resources::now()) + "; events " +
        std::to_string(totals.events) + ", most states of one printer " + std::to_string(totals.mostStates) + "\n" +
        lastLine(options.printers, totals) + "\n");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const auto clock = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch());
  try {
    const auto options = soak::readOptions(arguments, static_cast<std::uint64_t>(clock.count()));
    if (options.help) {
      print(std::string(soak::kHelp));
      return 0;
    }
    return run(options);
  } catch (const soak::OptionsError& mistake) {
    std::fprintf(stderr, "soak: %s\n", mistake.what());
    return 2;
  }
}
