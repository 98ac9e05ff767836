#include "console/Options.h"

#include <algorithm>

namespace console {
namespace {

constexpr int kMostSeconds = 86400;
constexpr std::size_t kMostDigits = 5;

// For an error line: what cannot be shown as a plain character becomes a question mark.
std::string plain(const std::wstring& text) {
  std::string shown;
  for (const wchar_t unit : text) shown += unit >= L' ' && unit < 0x7f ? static_cast<char>(unit) : '?';
  return shown;
}

std::chrono::seconds parseSeconds(const std::wstring& text) {
  const bool digits = std::ranges::all_of(text, [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
  const int value = digits && !text.empty() && text.size() <= kMostDigits ? std::stoi(text) : 0;
  if (value < 1 || value > kMostSeconds) {
    throw OptionsError("--seconds is \"" + plain(text) + "\"; it takes a whole number from 1 to " +
                       std::to_string(kMostSeconds));
  }
  return std::chrono::seconds(value);
}

}  // namespace

Options parseOptions(const std::vector<std::wstring>& arguments) {
  Options options;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const auto value = [&]() -> const std::wstring& {
      if (argument + 1 == arguments.end() || (argument + 1)->empty()) {
        throw OptionsError(plain(*argument) + " needs a value; --help shows how");
      }
      return *++argument;
    };
    if (*argument == L"--scenario") {
      options.scenario = value();
    } else if (*argument == L"--seconds") {
      options.duration = parseSeconds(value());
    } else if (*argument == L"--log") {
      options.log = true;
    } else if (*argument == L"--help" || *argument == L"-h") {
      options.help = true;
    } else {
      throw OptionsError("unknown option \"" + plain(*argument) +
                         "\"; known are --scenario FILE, --seconds N, --log and --help");
    }
  }
  return options;
}

std::vector<std::wstring> argumentsWithoutLog(const Options& options) {
  std::vector<std::wstring> arguments{L"--seconds", std::to_wstring(options.duration.count())};
  if (options.scenario) arguments.insert(arguments.end(), {L"--scenario", *options.scenario});
  if (options.help) arguments.push_back(L"--help");
  return arguments;
}

std::wstring helpText() {
  return L"printer-console: polls the state of simulated printers through AppCommunication.dll and shows it.\n"
         L"\n"
         L"  --scenario FILE   the printers and what happens to them (docs/scenario.md); without it the file that\n"
         L"                    PRINTER_SCENARIO names, or a built-in scenario\n"
         L"  --seconds N       how long to poll, 1 to 86400; 12 without it. Ctrl-C ends it earlier\n"
         L"  --log             switch the diagnostic log on (C:\\log\\orva_config.ini) and start again with it\n"
         L"  --help            this text\n"
         L"\n"
         L"Exit code: 0 after the poll, 2 for a mistake in the command line or the scenario, 1 when the system fails;\n"
         L"130 after Ctrl-C where ./dev runs it.\n";
}

}  // namespace console
