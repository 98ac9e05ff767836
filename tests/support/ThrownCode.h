#pragma once

#include <system_error>

namespace support {

/// The code of the `std::system_error` that leaves `operation`; without one that of success.
template <class Operation>
std::error_code thrownCode(const Operation& operation) {
  try {
    operation();
  } catch (const std::system_error& error) {
    return error.code();
  }
  return {};
}

}  // namespace support
