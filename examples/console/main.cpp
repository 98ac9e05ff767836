/// printer-console: lets the module work on simulated printers and shows what comes of it.

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "AppCommunication.h"
#include "console/Demo.h"
#include "console/DiagnosticLog.h"
#include "console/Operate.h"
#include "console/Options.h"
#include "console/Poll.h"
#include "console/Terminal.h"
#include "console/Text.h"
#include "simulator/SimulatedPrinters.h"

namespace {

constexpr int kMistake = 2;  // in the command line or the scenario
constexpr int kFailure = 1;
constexpr std::size_t kLogLines = 8;

void showLog(console::Terminal& terminal) {
  if (!console::isLogOn()) {
    terminal.writeLine(L"The diagnostic log is off; --log switches it on.");
    return;
  }
  const auto lines = console::lastLogLines(kLogLines);
  if (lines.empty()) {
    terminal.writeLine(std::wstring(L"The diagnostic log is on, and ") + console::kLogFile + L" has no lines.");
    return;
  }
  terminal.writeLine(std::wstring(L"The diagnostic log is ") + console::kLogFile + L". Its last lines:");
  for (const auto& line : lines) terminal.writeLine(L"  " + console::printable(line));
}

void loadPrinters(const std::optional<std::wstring>& scenario) {
  scenario ? simulator::loadScenarioFile(*scenario, "--scenario") : simulator::loadScenario();
}

// At once, and not at the step that names the printer.
void requireDemoPrinters() {
  const auto known = simulator::printerUids();
  std::string missing;
  for (const auto& uid : console::demoPrinters()) {
    if (std::ranges::find(known, uid) == known.end()) missing += (missing.empty() ? "" : " and ") + console::plain(uid);
  }
  if (!missing.empty()) throw console::OptionsError("the demo needs printers that the scenario lacks: " + missing);
}

console::Outcome runStep(console::Terminal& terminal, const console::DemoStep& step, std::chrono::seconds limit) {
  terminal.writeLine(L"");
  terminal.writeLine(L"> " + console::shownCommand(step.arguments));
  auto options = console::parseOptions(step.arguments);
  options.limit = std::min(options.limit, limit);
  if (console::isOperation(*options.command)) return console::operate(terminal, options);
  const bool interrupted = console::pollPrinters(terminal, options.limit);
  return interrupted ? console::Outcome::Interrupted : console::Outcome::Succeeded;
}

// One process for all steps: what one of them sets the next ones find.
int demonstrate(console::Terminal& terminal, std::chrono::seconds limit) {
  using Clock = std::chrono::steady_clock;
  requireDemoPrinters();
  const auto deadline = Clock::now() + limit;
  std::size_t asMeant = 0;
  for (const auto& step : console::demoSteps()) {
    const auto left = std::chrono::ceil<std::chrono::seconds>(deadline - Clock::now());
    if (left.count() <= 0) break;
    const auto outcome = runStep(terminal, step, left);
    if (outcome == console::Outcome::Interrupted) return console::exitCode(outcome);
    if (outcome == step.outcome) ++asMeant;
  }
  const auto steps = console::demoSteps().size();
  terminal.writeLine(L"");
  terminal.writeLine(std::to_wstring(asMeant) + L" of " + std::to_wstring(steps) + L" steps went as meant.");
  return asMeant == steps ? 0 : kFailure;
}

int runCommand(console::Terminal& terminal, const console::Options& options) {
  if (options.command == &console::demoCommand()) return demonstrate(terminal, options.limit);
  if (console::isOperation(*options.command)) return console::exitCode(console::operate(terminal, options));
  const bool interrupted = console::pollPrinters(terminal, options.limit);
  showLog(terminal);
  return interrupted ? console::exitCode(console::Outcome::Interrupted) : 0;
}

// The module reads its log's switches when it is loaded, hence a second process.
int runWithLog(console::Terminal& terminal, const console::Options& options) {
  console::switchLogOn();
  const int code = console::runAgain(options.withoutLog);
  if (options.command != &console::pollCommand() && !options.json && code != kMistake) showLog(terminal);
  return code;
}

int run(const std::vector<std::wstring>& arguments) {
  const auto options = console::parseOptions(arguments);
  console::Terminal terminal;
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

int wmain(int count, wchar_t** values) {
  try {
    return run(std::vector<std::wstring>(values + 1, values + count));
  } catch (const console::OptionsError& error) {
    console::writeError(error.what());
  } catch (const simulator::ScenarioError& error) {
    console::writeError(error.what());
  } catch (const std::exception& error) {
    console::writeError(error.what());
    return kFailure;
  }
  return kMistake;
}
