#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace examples {

/// What stands behind a command.
struct Request {
  std::vector<std::wstring> operands = {};
  std::map<std::wstring, std::wstring> options = {};  ///< the command's own, with their dashes; a switch has an empty value

  bool has(const std::wstring& option) const { return options.contains(option); }
  std::optional<std::wstring> option(const std::wstring& name) const {
    const auto found = options.find(name);
    return found == options.end() ? std::nullopt : std::optional(found->second);
  }

  friend bool operator==(const Request&, const Request&) = default;
};

}  // namespace examples
