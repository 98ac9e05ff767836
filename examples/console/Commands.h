#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "common/Operations.h"
#include "common/Request.h"

namespace examples {

/// An option of the command line.
struct Option {
  const wchar_t* name;
  const wchar_t* value;  ///< what stands behind it, as help says it; null for a switch
  const wchar_t* help;   ///< a line, or several
};

/// One thing that the program does.
struct Command {
  const wchar_t* words;     ///< as typed, one or two
  const wchar_t* operands;  ///< as help says them
  std::size_t leastOperands;
  std::size_t mostOperands;
  const wchar_t* summary;
  std::chrono::seconds limit;                                  ///< without --seconds
  std::span<const Option> options;                             ///< beside those that all commands have
  std::unique_ptr<Operation> (*newOperation)(const Request&);  ///< null: not one operation
  std::vector<OperandHelp> (*operandHelp)() = nullptr;         ///< null: the summary says it all
};

std::span<const Command> allCommands();
/// Known to every command; those of an operation come on top.
std::span<const Option> generalOptions();
std::span<const Option> operationOptions();

const Command& pollCommand();
const Command& demoCommand();
bool isOperation(const Command& command);

/// The command that begins with these words, and how many of them are its own; without words it is the poll. Throws
/// `OptionsError`.
struct Found {
  const Command& command;
  std::size_t words;
};
Found findCommand(const std::vector<std::wstring>& words);

/// The option of this name if the command, or with null any command, has it; otherwise null.
const Option* findOption(const std::wstring& name, const Command* command);

/// All options of the command, as an error line lists them.
std::string optionList(const Command& command);

/// For the whole program, for one command, and for the commands that share a first word; empty when this word is none.
std::wstring helpText();
std::wstring helpText(const Command& command);
std::wstring groupHelpText(const std::wstring& firstWord);

}  // namespace examples
