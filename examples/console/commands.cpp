#include "console/Commands.h"

#include <algorithm>
#include <array>

#include "common/Operations.h"
#include "common/Text.h"

namespace examples {
namespace {

using namespace std::chrono_literals;

constexpr std::array<Option, 4> kGeneralOptions{{
    {L"--scenario", L"FILE",
     L"the printers and what happens to them (docs/scenario.md); without it the file that\n"
     L"PRINTER_SCENARIO names, or a built-in scenario"},
    {L"--seconds", L"N", L"the time limit, 1 to 86400 (COMMAND --help tells the usual one). Ctrl-C ends it earlier"},
    {L"--log", nullptr, L"switch the diagnostic log on (C:\\log\\orva_config.ini) and start again with it"},
    {L"--help", nullptr, L"this text"},
}};
constexpr std::array<Option, 2> kOperationOptions{{
    {L"--printer", L"UID", L"the printer; has to be named"},
    {L"--json", nullptr, L"the result as one JSON object"},
}};
constexpr std::array<Option, 5> kNetworkOptions{{
    {L"--dhcp", L"yes|no", L"whether the addresses come from the network"},
    {L"--address", L"A", L"four numbers, as 192.0.2.10"},
    {L"--subnet-mask", L"A", L"likewise"},
    {L"--gateway", L"A", L"likewise"},
    {L"--dns-server", L"A", L"likewise"},
}};
constexpr std::array<Option, 3> kWifiOptions{{
    {L"--password", L"TEXT", L"shows in every list of processes; the variable PRINTER_WIFI_PASSWORD does not"},
    {L"--password-stdin", nullptr, L"the password is the first line of the standard input"},
    {L"--security", L"KIND", L"open, wpa2 or wpa3; without it open for an empty password, else wpa2"},
}};

constexpr std::array<Command, 20> kCommands{{
    {L"poll", L"", 0, 0, L"watch the state of every printer; what the program does without a command", 12s, {}, nullptr},
    {L"demo",
     L"",
     0,
     0,
     L"poll, then each operation at least once, on the printers of the built-in scenario",
     60s,
     {},
     nullptr},
    {L"state", L"", 0, 0, L"read the printer's state", 30s, {}, newState},
    {L"alarm", L"", 0, 0, L"read the state of the supplies alarm", 30s, {}, newAlarm},
    {L"get",
     L"[PARAMETER...]",
     0,
     5,
     L"read parameters, all without a name: sleep-time, supplies-alarm, paper-alarm, timed-clear, silent-mode",
     30s,
     {},
     newGet},
    {L"set",
     L"PARAMETER [VALUE]",
     1,
     2,
     L"change a parameter; supplies-alarm takes no value and is set to 0",
     30s,
     {},
     newSet,
     helpOfSet},
    {L"align print", L"", 0, 0, L"print an alignment page", 30s, {}, newAlignPrint},
    {L"align values",
     L"N1 N2 N3 N4 N5 N6",
     6,
     6,
     L"send the corrections that an alignment page shows to be needed",
     30s,
     {},
     newAlignValues},
    {L"clean", L"", 0, 0, L"clean the heads", 30s, {}, newClean},
    {L"qr", L"TEXT", 1, 1, L"print a QR code", 30s, {}, newQr},
    {L"network get", L"", 0, 0, L"read the network settings", 30s, {}, newNetworkGet},
    {L"network set", L"", 0, 0, L"change those network settings that the options name; the others stay as they are", 30s,
     kNetworkOptions, newNetworkSet},
    {L"firmware register", L"", 0, 0, L"register the printer with the upgrade service", 30s, {}, newFirmwareRegister},
    {L"firmware check", L"", 0, 0, L"ask the upgrade service for new firmware", 60s, {}, newFirmwareCheck},
    {L"firmware upgrade",
     L"FILE",
     1,
     1,
     L"send firmware; a complete transfer is 85 percent, the rest is the printer's restart",
     600s,
     {},
     newFirmwareUpgrade},
    {L"firmware watch",
     L"",
     0,
     0,
     L"watch the printer until it has been away and is back, or the time is over",
     60s,
     {},
     newFirmwareWatch},
    {L"pushscan register",
     L"",
     0,
     0,
     L"register this computer for scans that are started at the printer",
     30s,
     {},
     newPushscanRegister},
    {L"pushscan get", L"", 0, 0, L"read how the printer makes such a scan", 30s, {}, newPushscanGet},
    {L"wifi list", L"", 0, 0, L"ask the printer for the wireless networks that it sees", 60s, {}, newWifiList},
    {L"wifi join", L"NAME", 1, 1, L"let the printer join a wireless network", 60s, kWifiOptions, newWifiJoin},
}};

using std::wstring;

wstring firstWordOf(const Command& command) {
  const wstring words = command.words;
  return words.substr(0, words.find(L' '));
}

// As an error line lists choices: "a, b and c".
wstring listed(const std::vector<wstring>& names) {
  wstring list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) list += i + 1 < names.size() ? L", " : L" and ";
    list += names[i];
  }
  return list;
}

const Command* exactly(const wstring& words) {
  const auto* found = std::ranges::find(kCommands, words, &Command::words);
  return found == kCommands.end() ? nullptr : found;
}

[[noreturn]] void throwUnknown(const std::vector<wstring>& words) {
  if (words[0] == L"help") throw OptionsError("unknown command \"help\"; --help tells of all commands, COMMAND --help of one");
  std::vector<wstring> firsts;
  std::vector<wstring> seconds;
  for (const auto& command : kCommands) {
    const auto first = firstWordOf(command);
    if (firsts.empty() || firsts.back() != first) firsts.push_back(first);
    if (first == words[0]) seconds.push_back(wstring(command.words).substr(first.size() + 1));
  }
  if (seconds.empty()) throw OptionsError("unknown command \"" + plain(words[0]) + "\"; known are " + plain(listed(firsts)));
  const auto second = words.size() > 1 ? " \"" + plain(words[1]) + '"' : std::string(" nothing");
  throw OptionsError(plain(words[0]) + " is followed by" + second + "; it takes " + plain(listed(seconds)));
}

wstring usage(const Option& option) {
  return option.value == nullptr ? option.name : wstring(option.name) + L' ' + option.value;
}

wstring usage(const Command& command) {
  return *command.operands == L'\0' ? command.words : wstring(command.words) + L' ' + command.operands;
}

constexpr std::size_t kColumn = 34;  // in which explanations begin

wstring helpLine(wstring start, wstring explanation) {
  start.resize(std::max(start.size() + 1, kColumn), L' ');
  for (auto end = explanation.find(L'\n'); end != wstring::npos; end = explanation.find(L'\n', end + 1)) {
    explanation.insert(end + 1, kColumn, L' ');
  }
  return start + explanation + L'\n';
}

wstring helpLines(std::span<const Option> options) {
  wstring lines;
  for (const auto& option : options) lines += helpLine(L"  " + usage(option), option.help);
  return lines;
}

wstring operandLines(const Command& command) {
  if (command.operandHelp == nullptr) return {};
  wstring lines;
  for (const auto& operand : command.operandHelp()) lines += helpLine(L"  " + operand.usage, operand.help);
  return lines + L'\n';
}

}  // namespace

std::span<const Command> allCommands() { return kCommands; }
std::span<const Option> generalOptions() { return kGeneralOptions; }
std::span<const Option> operationOptions() { return kOperationOptions; }

const Command& pollCommand() { return kCommands[0]; }
const Command& demoCommand() { return kCommands[1]; }
bool isOperation(const Command& command) { return command.newOperation != nullptr; }

Found findCommand(const std::vector<wstring>& words) {
  if (words.empty()) return {pollCommand(), 0};
  const auto* found = words.size() > 1 ? exactly(words[0] + L' ' + words[1]) : nullptr;
  if (found != nullptr) return {*found, 2};
  found = exactly(words[0]);
  // A word that holds a blank is one word, not two.
  if (found == nullptr || words[0].find(L' ') != wstring::npos) throwUnknown(words);
  return {*found, 1};
}

const Option* findOption(const wstring& name, const Command* command) {
  const auto in = [&name](std::span<const Option> options) -> const Option* {
    const auto found = std::ranges::find(options, name, &Option::name);
    return found == options.end() ? nullptr : &*found;
  };
  if (const auto* option = in(kGeneralOptions)) return option;
  if (command == nullptr || isOperation(*command)) {
    if (const auto* option = in(kOperationOptions)) return option;
  }
  if (command != nullptr) return in(command->options);
  for (const auto& each : kCommands) {
    if (const auto* option = in(each.options)) return option;
  }
  return nullptr;
}

std::string optionList(const Command& command) {
  std::vector<wstring> names;
  for (const auto& option : command.options) names.push_back(usage(option));
  if (isOperation(command)) {
    for (const auto& option : kOperationOptions) names.push_back(usage(option));
  }
  for (const auto& option : kGeneralOptions) names.push_back(usage(option));
  return plain(listed(names));
}

wstring helpText() {
  wstring text =
      L"printer-console: lets AppCommunication.dll work on simulated printers and shows what comes of it.\n"
      L"\n"
      L"printer-console [COMMAND [OPERAND...]] [OPTION...]\n"
      L"\n";
  for (const auto& command : kCommands) text += helpLine(L"  " + usage(command), command.summary);
  text += L"\n" + helpLines(kGeneralOptions) + L"\nfor a command with one printer also\n\n" + helpLines(kOperationOptions);
  return text +
         L"\nCOMMAND --help tells more. What follows \"--\" is an operand, dashes or not.\n"
         L"\n"
         L"The simulated printers live as long as the program: the next run finds them as the scenario has them.\n"
         L"\n"
         L"Exit code: 0 when the operation succeeded, and after a poll; 1 when it failed, was refused or timed out, or when\n"
         L"the system fails; 2 for a mistake in the command line or the scenario; 130 after Ctrl-C.\n";
}

wstring helpText(const Command& command) {
  return L"printer-console " + usage(command) + (isOperation(command) ? L" --printer UID" : L"") + L" [OPTION...]\n  " +
         command.summary + L".\n\n" + operandLines(command) + helpLines(command.options) +
         (isOperation(command) ? helpLines(kOperationOptions) : L"") + helpLines(kGeneralOptions) +
         L"\nWithout --seconds the limit is " + std::to_wstring(command.limit.count()) + L" seconds.\n";
}

wstring groupHelpText(const wstring& firstWord) {
  wstring lines;
  for (const auto& command : kCommands) {
    if (firstWord == firstWordOf(command) && firstWord != command.words)
      lines += helpLine(L"  " + usage(command), command.summary);
  }
  if (lines.empty()) return {};
  return L"printer-console " + firstWord + L" COMMAND --printer UID [OPTION...]\n\n" + lines + L'\n' + firstWord +
         L" COMMAND --help tells more.\n";
}

}  // namespace examples
