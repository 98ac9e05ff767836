#include "console/Operate.h"

#include <memory>
#include <string>

#include "common/Text.h"
#include "console/Runner.h"
#include "simulator/SimulatedPrinters.h"

namespace examples {
namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr milliseconds kShortWait = 1s;  // nobody has to be told how it goes
constexpr const wchar_t* kPassword = L"--password";
constexpr const wchar_t* kPasswordFromInput = L"--password-stdin";
constexpr const wchar_t* kPasswordVariable = L"PRINTER_WIFI_PASSWORD";

// One for each command; what has to be run first, to know the printer's state, shares it.
std::shared_ptr<qzstd::PrinterInfo> newPrinter(const std::optional<std::wstring>& uid) {
  std::string known;
  for (const auto& each : simulator::printerUids()) {
    if (each == uid) return std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(each));
    known += (known.empty() ? "" : ", ") + plain(each);
  }
  throw OptionsError((uid ? "there is no printer \"" + plain(*uid) + '"' : std::string("--printer UID is missing")) +
                     "; the scenario has " + known);
}

std::wstring variable(const wchar_t* name) {
  std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// The ways to a password by which it does not show in a list of processes.
Request withPassword(const Options& options) {
  auto request = options.request;
  if (findOption(kPassword, options.command) == nullptr || request.has(kPassword)) return request;
  const bool fromInput = request.options.erase(kPasswordFromInput) > 0;
  const auto password = fromInput ? readLine() : variable(kPasswordVariable);
  if (fromInput && password.empty()) {
    throw OptionsError("--password-stdin found no password; it takes the first line of the standard input");
  }
  request.options[kPassword] = password;
  return request;
}

/// Writes a bar over itself on a terminal, elsewhere a line now and then.
class ProgressShower {
 public:
  ProgressShower(Terminal& terminal, const Options& options) : m_terminal(terminal), m_options(options) {}

  void show(Percent percent, milliseconds elapsed) {
    if (m_options.json || (!percent && elapsed < kShortWait)) return;
    if (m_terminal.interactive()) {
      m_terminal.rewriteLines({renderBar(m_options.command->words, percent, elapsed, m_terminal.width())});
    } else if (elapsed - m_last >= kShortWait) {
      m_terminal.writeLine(renderProgress(m_options.command->words, percent, elapsed));
      m_last = elapsed;
    }
  }

 private:
  Terminal& m_terminal;
  const Options& m_options;
  milliseconds m_last{0};
};

void showReport(Terminal& terminal, const Options& options, const std::wstring& printer, const Report& report) {
  if (options.json) {
    terminal.writeLine(renderJson(options.command->words, printer, report));
    return;
  }
  for (const auto& line : renderText(options.command->words, printer, report)) terminal.writeLine(line);
}

}  // namespace

Outcome operate(Terminal& terminal, const Options& options) {
  const auto printer = newPrinter(options.printer);
  const auto uid = printer->uid;
  auto operation = options.command->newOperation(withPassword(options));
  ProgressShower progress(terminal, options);
  Runner runner(terminal, [&progress](Percent percent, milliseconds elapsed) { progress.show(percent, elapsed); });
  const auto report = runner.run(std::move(operation), printer, options.limit);
  showReport(terminal, options, uid, report);
  return report.outcome;
}

}  // namespace examples
