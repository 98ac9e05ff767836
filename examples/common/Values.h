#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "Records.h"

/// Values of the command line. Each function takes what the value is for and the text, and throws `OptionsError`.
namespace examples {

/// `what()` is one line: what is wrong and what would be right.
class OptionsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// As an error line and help say it.
std::string rangeText(std::int64_t least, std::int64_t most);

[[noreturn]] void throwMistake(const std::wstring& what, const std::wstring& text, const std::string& right);

/// Whole and decimal, a minus sign in front at most.
std::int64_t parseNumber(const std::wstring& what, const std::wstring& text, std::int64_t least, std::int64_t most);
bool parseYesOrNo(const std::wstring& what, const std::wstring& text);
/// Four numbers with dots between them, without leading zeros, which some programs take for octal.
AppPrinterSdk::Ipv4Address parseAddress(const std::wstring& what, const std::wstring& text);

std::wstring toText(const AppPrinterSdk::Ipv4Address& address);

}  // namespace examples
