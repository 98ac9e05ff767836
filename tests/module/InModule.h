#pragma once

#include "platform/WindowsApi.h"

/// Whether what is at this address belongs to the module's library: code, tables, constants.
inline bool isInModule(const void* address) {
  HMODULE owner = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &owner);
  return owner != nullptr && owner == ::GetModuleHandleW(L"AppCommunication.dll");
}
