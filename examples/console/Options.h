#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "common/Request.h"
#include "common/Values.h"
#include "console/Commands.h"

namespace examples {

/// What the command line asks for.
struct Options {
  const Command* command = &pollCommand();
  Request request = {};
  std::optional<std::wstring> scenario = std::nullopt;  ///< file; none: the environment's or the built-in one
  std::optional<std::wstring> printer = std::nullopt;   ///< uid
  std::chrono::seconds limit = command->limit;
  bool json = false;
  bool log = false;
  std::optional<std::wstring> help = std::nullopt;  ///< the text that was asked for; nothing is to be done
  std::vector<std::wstring> withoutLog = {};        ///< the command line that asks for the same, but for the log
};

/// `arguments` without the program's name. The operands have been tried: an operation can be made of them. Throws
/// `OptionsError`.
Options parseOptions(const std::vector<std::wstring>& arguments);

}  // namespace examples
