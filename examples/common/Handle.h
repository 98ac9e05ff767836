#pragma once

#include "AppCommunication.h"  // brings in windows.h

namespace examples {

/// A handle of the kernel, closed with the object. What failed to open (null or `INVALID_HANDLE_VALUE`) is not valid.
class Handle {
 public:
  explicit Handle(HANDLE handle) : m_handle(handle) {}
  ~Handle() {
    if (valid()) ::CloseHandle(m_handle);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool valid() const { return m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return m_handle; }

 private:
  HANDLE m_handle;
};

}  // namespace examples
