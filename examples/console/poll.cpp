#include "console/Poll.h"

#include <algorithm>
#include <memory>

#include "console/Board.h"
#include "console/Polling.h"
#include "simulator/SimulatedPrinters.h"

namespace examples {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kRefresh = 1000ms;
constexpr auto kPatience = 5s;  // for printers that are in the middle of an answer

void show(Terminal& terminal, const Board& board, Clock::time_point start) {
  const auto rows = board.rows();
  if (terminal.interactive()) {
    terminal.rewriteLines(renderTable(rows, terminal.width(), terminal.height()));
    return;
  }
  const auto sinceStart = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  for (const auto& row : rows) terminal.writeLine(renderLine(row, sinceStart));
}

bool watch(Terminal& terminal, const Board& board, std::chrono::seconds duration) {
  const auto start = Clock::now();
  for (auto next = start + kRefresh; next <= start + duration; next += kRefresh) {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    // Without a last table: the terminal has put its "^C" where it would go.
    if (terminal.waitForInterrupt(std::max(wait, std::chrono::milliseconds(0)))) return true;
    show(terminal, board, start);
  }
  return false;
}

}  // namespace

bool pollPrinters(Terminal& terminal, std::chrono::seconds duration) {
  const auto board = std::make_shared<Board>();
  Polling polling(board);
  for (const auto& uid : simulator::printerUids()) {
    polling.addPrinter(std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(uid)));
  }
  const bool interrupted = watch(terminal, *board, duration);

  const bool ended = polling.stop(kPatience);
  terminal.writeLine(L"");
  for (const auto& line : renderSummary(board->rows())) terminal.writeLine(line);
  terminal.writeLine(ended ? L"Stopped: every printer's tasks have ended."
                           : L"Stopped. Some printer does not answer; its tasks end with the process.");
  return interrupted;
}

}  // namespace examples
