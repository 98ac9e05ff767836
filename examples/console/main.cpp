/// printer-console: lets the module work on simulated printers and shows what comes of it.

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "common/DiagnosticLog.h"
#include "common/Text.h"
#include "console/Demo.h"
#include "console/Operate.h"
#include "console/Options.h"
#include "console/Poll.h"
#include "console/Terminal.h"
#include "simulator/SimulatedPrinters.h"

namespace {

constexpr int kMistake = 2;  // in the command line or the scenario
constexpr int kFailure = 1;
constexpr std::size_t kLogLines = 8;

void showLog(examples::Terminal& terminal) {
  if (!examples::isLogOn()) {
    terminal.writeLine(L"The diagnostic log is off; --log switches it on.");
    return;
  }
  const auto lines = examples::lastLogLines(kLogLines);
  if (lines.empty()) {
    terminal.writeLine(std::wstring(L"The diagnostic log is on, and ") + examples::kLogFile + L" has no lines.");
    return;
  }
  terminal.writeLine(std::wstring(L"The diagnostic log is ") + examples::kLogFile + L". Its last lines:");
  for (const auto& line : lines) terminal.writeLine(L"  " + examples::printable(line));
}

void loadPrinters(const std::optional<std::wstring>& scenario) {
  scenario ? simulator::loadScenarioFile(*scenario, "--scenario") : simulator::loadScenario();
}

// At once, and not at the step that names the printer.
void requireDemoPrinters() {
  const auto known = simulator::printerUids();
  std::string missing;
  for (const auto& uid : examples::demoPrinters()) {
    if (std::ranges::find(known, uid) == known.end()) missing += (missing.empty() ? "" : " and ") + examples::plain(uid);
  }
  if (!missing.empty()) throw examples::OptionsError("the demo needs printers that the scenario lacks: " + missing);
}

examples::Outcome runStep(examples::Terminal& terminal, const examples::DemoStep& step, std::chrono::seconds limit) {
  terminal.writeLine(L"");
  terminal.writeLine(L"> " + examples::shownCommand(step.arguments));
  auto options = examples::parseOptions(step.arguments);
  options.limit = std::min(options.limit, limit);
  if (examples::isOperation(*options.command)) return examples::operate(terminal, options);
  const bool interrupted = examples::pollPrinters(terminal, options.limit);
  return interrupted ? examples::Outcome::Interrupted : examples::Outcome::Succeeded;
}

// One process for all steps: what one of them sets the next ones find.
int demonstrate(examples::Terminal& terminal, std::chrono::seconds limit) {
  using Clock = std::chrono::steady_clock;
  requireDemoPrinters();
  const auto deadline = Clock::now() + limit;
  std::size_t asMeant = 0;
  for (const auto& step : examples::demoSteps()) {
    const auto left = std::chrono::ceil<std::chrono::seconds>(deadline - Clock::now());
    if (left.count() <= 0) break;
    const auto outcome = runStep(terminal, step, left);
    if (outcome == examples::Outcome::Interrupted) return examples::exitCode(outcome);
    if (outcome == step.outcome) ++asMeant;
  }
  const auto steps = examples::demoSteps().size();
  terminal.writeLine(L"");
  terminal.writeLine(std::to_wstring(asMeant) + L" of " + std::to_wstring(steps) + L" steps went as meant.");
  return asMeant == steps ? 0 : kFailure;
}

int runCommand(examples::Terminal& terminal, const examples::Options& options) {
  if (options.command == &examples::demoCommand()) return demonstrate(terminal, options.limit);
  if (examples::isOperation(*options.command)) return examples::exitCode(examples::operate(terminal, options));
  const bool interrupted = examples::pollPrinters(terminal, options.limit);
  showLog(terminal);
  return interrupted ? examples::exitCode(examples::Outcome::Interrupted) : 0;
}

// The module reads its log's switches when it is loaded, hence a second process.
int runWithLog(examples::Terminal& terminal, const examples::Options& options) {
  examples::switchLogOn();
  const int code = examples::runAgain(options.withoutLog);
  if (options.command != &examples::pollCommand() && !options.json && code != kMistake) showLog(terminal);
  return code;
}

int run(const std::vector<std::wstring>& arguments) {
  const auto options = examples::parseOptions(arguments);
  examples::Terminal terminal;
  if (options.help) {
    terminal.writeLine(*options.help);
    return 0;
  }
  if (options.log) return runWithLog(terminal, options);
  loadPrinters(options.scenario);
  const int code = runCommand(terminal, options);
  Stop();
  return code;
}

}  // namespace

// NOLINTNEXTLINE(misc-use-internal-linkage): the runtime calls it
int wmain(int count, wchar_t** values) {
  try {
    return run(std::vector<std::wstring>(values + 1, values + count));
  } catch (const examples::OptionsError& error) {
    examples::writeError(error.what());
  } catch (const simulator::ScenarioError& error) {
    examples::writeError(error.what());
  } catch (const std::exception& error) {
    examples::writeError(error.what());
    return kFailure;
  }
  return kMistake;
}
