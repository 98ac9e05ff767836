#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace examples {

enum class Outcome {
  Succeeded,
  Failed,
  Refused,  ///< the module sent nothing: the printer's state forbids it
  TimedOut,
  Interrupted,
};

struct Field;
struct Value;
using Fields = std::vector<Field>;
using Values = std::vector<Value>;

/// What an operation tells, in the shape that text and JSON share.
struct Value {
  std::variant<bool, std::int64_t, std::wstring, Values, Fields> value;
};

/// `name` is plain words, as "sleep time".
struct Field {
  std::wstring name;
  Value value;
  std::wstring words = {};  ///< for a person in place of the value, unless empty
};

/// What one look at an operation's record has shown.
struct Report {
  Outcome outcome = Outcome::Succeeded;
  std::wstring reason = {};  ///< plain words; empty when it succeeded
  Fields results = {};
  std::optional<std::int32_t> percent = std::nullopt;  ///< how far it is, for an operation that tells
};

Value integer(std::int64_t value);
Field text(std::wstring name, std::wstring value);
Field number(std::wstring name, std::int64_t value);
Field yesOrNo(std::wstring name, bool value);
/// A negative count is the library's way to say that it has none.
inline constexpr const wchar_t* kUnreadCount = L"could not be read";
Field count(std::wstring name, std::int32_t value);

/// What the process answers to its caller: 0 for success alone.
int exitCode(Outcome outcome);

/// For a person: a line per result, then what came of it. No line is much longer than `kMostTextInLine`, and none can steer a
/// terminal.
inline constexpr std::size_t kMostTextInLine = 200;
std::vector<std::wstring> renderText(const std::wstring& command, const std::wstring& printer, const Report& report);

/// For a program: one JSON object in one line: `command`, `printer`, `outcome`, `reason` unless it is empty, and `results`,
/// whose names are in camel case. Complete, whatever the texts hold.
std::wstring renderJson(const std::wstring& command, const std::wstring& printer, const Report& report);

}  // namespace examples
