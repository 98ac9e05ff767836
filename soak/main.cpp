/// A soak of the module: what it does under many callers and faults, compared with a model of its contract.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Options.h"
#include "Resources.h"
#include "Soak.h"

namespace {

using namespace std::chrono_literals;

void print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

std::string lastLine(const soak::Options& options, const soak::Totals& totals, int differences) {
  return "printers " + std::to_string(options.printers) + ", runs " + std::to_string(totals.runs) + ", notices " +
         std::to_string(totals.notices) + ", faults " + std::to_string(totals.failures + totals.hangs + totals.refusals) +
         " (failed calls " + std::to_string(totals.failures) + ", hangs " + std::to_string(totals.hangs) +
         ", refused notices " + std::to_string(totals.refusals) + "), differences " + std::to_string(differences) + "\n";
}

// Threads of the module may still be at work after a difference: nothing is destroyed under them.
[[noreturn]] void endAt(int code) {
  std::fflush(stdout);
  std::_Exit(code);
}

int run(const soak::Options& options) {
  print("seed " + std::to_string(options.seed) + ", " + std::to_string(options.length.count()) + " s, " +
        std::to_string(options.printers) + " printers\n");
  std::thread([] {}).join();  // with the first thread, a sanitizer starts one of its own, which stays
  // What the platform and the libraries make once is there from now on.
  if (const auto first = soak::runSoak(options.seed, options.printers, 1s); first.difference) {
    print(*first.difference + "repeat with --seed " + std::to_string(options.seed) + "\n" + lastLine(options, first.totals, 1));
    endAt(1);
  }
  const auto before = soak::Resources::now();
  auto outcome = soak::runSoak(options.seed, options.printers, options.length);
  if (!outcome.difference) outcome.difference = soak::leftOver(before);
  if (outcome.difference) print(*outcome.difference + "repeat with --seed " + std::to_string(options.seed) + "\n");
  print("before: " + textOf(before) + "; after: " + textOf(soak::Resources::now()) + "; events " +
        std::to_string(outcome.totals.events) + ", most states of one printer " + std::to_string(outcome.totals.mostStates) +
        "\n");
  print(lastLine(options, outcome.totals, outcome.difference ? 1 : 0));
  if (outcome.difference) endAt(1);
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
