/// printer-console: polls simulated printers through the module and shows what they say.

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/Board.h"
#include "console/DiagnosticLog.h"
#include "console/Options.h"
#include "console/Polling.h"
#include "console/Terminal.h"
#include "simulator/SimulatedPrinters.h"

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMistake = 2;  // in the command line or the scenario
constexpr int kFailure = 1;
constexpr auto kRefresh = 1000ms;
constexpr auto kPatience = 5s;  // for printers that are in the middle of an answer
constexpr std::size_t kLogLines = 8;

void show(console::Terminal& terminal, const console::Board& board, Clock::time_point start) {
  const auto rows = board.rows();
  if (terminal.interactive()) {
    terminal.rewriteLines(console::renderTable(rows, terminal.width(), terminal.height()));
    return;
  }
  const auto sinceStart = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  for (const auto& row : rows) terminal.writeLine(console::renderLine(row, sinceStart));
}

void watch(console::Terminal& terminal, const console::Board& board, std::chrono::seconds duration) {
  const auto start = Clock::now();
  for (auto next = start + kRefresh; next <= start + duration; next += kRefresh) {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    // Without a last table: the terminal has put its "^C" where it would go.
    if (terminal.waitForInterrupt(std::max(wait, std::chrono::milliseconds(0)))) return;
    show(terminal, board, start);
  }
}

void showLog(console::Terminal& terminal) {
  const auto lines = console::lastLogLines(kLogLines);
  if (lines.empty()) {
    terminal.writeLine(L"The diagnostic log is off; --log switches it on.");
    return;
  }
  terminal.writeLine(std::wstring(L"The diagnostic log is ") + console::kLogFile + L". Its last lines:");
  for (const auto& line : lines) terminal.writeLine(L"  " + console::printable(line));
}

void loadPrinters(const std::optional<std::wstring>& scenario) {
  if (!scenario) {
    simulator::loadScenario();
    return;
  }
  try {
    simulator::loadScenarioFile(*scenario);
  } catch (const std::filesystem::filesystem_error&) {  // from the path itself, before there is a file
    throw console::OptionsError("--scenario holds characters that are no text; it takes the path of a scenario file");
  }
}

int poll(const console::Options& options) {
  loadPrinters(options.scenario);
  console::Terminal terminal;
  const auto board = std::make_shared<console::Board>();
  console::Polling polling(board);
  for (const auto& uid : simulator::printerUids()) {
    polling.addPrinter(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid)));
  }
  watch(terminal, *board, options.duration);

  const bool ended = polling.stop(kPatience);
  terminal.writeLine(L"");
  for (const auto& line : console::renderSummary(board->rows())) terminal.writeLine(line);
  terminal.writeLine(ended ? L"Stopped: every printer's tasks have ended."
                           : L"Stopped. Some printer does not answer; its tasks end with the process.");
  showLog(terminal);
  return 0;
}

int run(const std::vector<std::wstring>& arguments) {
  const auto options = console::parseOptions(arguments);
  if (options.help) {
    console::Terminal().writeLine(console::helpText());
    return 0;
  }
  if (options.log) {
    console::switchLogOn();
    return console::runAgain(console::argumentsWithoutLog(options));
  }
  return poll(options);
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
