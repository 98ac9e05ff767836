#include "console/Options.h"

#include <algorithm>

#include "common/Text.h"

namespace examples {
namespace {

constexpr std::int64_t kMostSeconds = 86400;

struct Given {
  std::wstring name;
  std::wstring value;
};

/// The command line taken apart, before it is known what it means.
struct Parts {
  std::vector<std::wstring> words;
  std::vector<Given> options;
  std::vector<std::wstring> withoutLog;
};

// Numbers below zero are no options.
bool looksLikeAnOption(const std::wstring& argument) {
  return argument.starts_with(L'-') && !(argument.size() > 1 && argument[1] >= L'0' && argument[1] <= L'9');
}

// What stands behind "=" may be a password, and is not repeated.
[[noreturn]] void throwUnknown(const std::wstring& argument, const std::vector<std::wstring>& words) {
  const auto equals = argument.find(L'=');
  const auto name = argument.substr(0, equals);
  if (const auto* option = findOption(name, nullptr)) {
    if (option->value == nullptr) throw OptionsError(plain(name) + " takes no value");
    throw OptionsError(plain(name) + " takes its value behind a blank: " + plain(name) + ' ' + plain(option->value));
  }
  const auto shown = plain(name) + (equals == std::wstring::npos ? "" : "=...");
  throw OptionsError("unknown option \"" + shown + "\"; known are " + optionList(findCommand(words).command));
}

// The option at `argument`, which is left on its last word.
Given takeOption(std::vector<std::wstring>::const_iterator& argument, std::vector<std::wstring>::const_iterator end,
                 const std::vector<std::wstring>& words) {
  const auto name = *argument == L"-h" ? L"--help" : *argument;
  const auto* option = findOption(name, nullptr);
  if (option == nullptr) throwUnknown(name, words);
  if (option->value == nullptr) return {name, {}};
  if (argument + 1 == end || (argument + 1)->empty()) throw OptionsError(plain(name) + " needs a value; --help shows how");
  return {name, *++argument};
}

Parts takeApart(const std::vector<std::wstring>& arguments) {
  Parts parts;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (*argument == L"--") {
      parts.words.insert(parts.words.end(), argument + 1, arguments.end());
      parts.withoutLog.insert(parts.withoutLog.end(), argument, arguments.end());
      break;
    }
    const auto first = argument;
    if (looksLikeAnOption(*argument)) {
      parts.options.push_back(takeOption(argument, arguments.end(), parts.words));
      if (parts.options.back().name == L"--log") continue;
    } else {
      parts.words.push_back(*argument);
    }
    parts.withoutLog.insert(parts.withoutLog.end(), first, argument + 1);
  }
  return parts;
}

void take(const Given& given, Options& options) {
  if (findOption(given.name, options.command) == nullptr) {
    throw OptionsError(plain(options.command->words) + " has no option " + plain(given.name) + "; known are " +
                       optionList(*options.command));
  }
  if (given.name == L"--scenario") {
    options.scenario = given.value;
  } else if (given.name == L"--printer") {
    options.printer = given.value;
  } else if (given.name == L"--seconds") {
    options.limit = std::chrono::seconds(parseNumber(given.name, given.value, 1, kMostSeconds));
  } else if (given.name == L"--json") {
    options.json = true;
  } else if (given.name == L"--log") {
    options.log = true;
  } else {
    options.request.options[given.name] = given.value;
  }
}

void checkOperands(const Command& command, const std::vector<std::wstring>& operands) {
  if (operands.size() < command.leastOperands || operands.size() > command.mostOperands) {
    const bool none = command.mostOperands == 0;
    throw OptionsError(plain(command.words) + " takes " + (none ? "no operands" : plain(command.operands)) +
                       "; --help shows how");
  }
  if (std::ranges::any_of(operands, &std::wstring::empty)) throw OptionsError("an operand is empty; --help shows how");
}

std::wstring helpOf(const std::vector<std::wstring>& words) {
  if (words.empty()) return helpText();
  const auto group = words.size() == 1 ? groupHelpText(words[0]) : std::wstring();
  return group.empty() ? helpText(findCommand(words).command) : group;
}

}  // namespace

Options parseOptions(const std::vector<std::wstring>& arguments) {
  auto parts = takeApart(arguments);
  if (std::ranges::find(parts.options, L"--help", &Given::name) != parts.options.end()) return {.help = helpOf(parts.words)};
  const auto found = findCommand(parts.words);
  Options options{.command = &found.command};
  options.withoutLog = std::move(parts.withoutLog);
  options.request.operands.assign(parts.words.begin() + static_cast<std::ptrdiff_t>(found.words), parts.words.end());
  for (const auto& given : parts.options) take(given, options);
  checkOperands(found.command, options.request.operands);
  if (isOperation(found.command)) found.command.newOperation(options.request);
  return options;
}

}  // namespace examples
