#pragma once

#include <cstdint>

#include "platform/WindowsApi.h"

/// What a handle of the host's platform is: a file's descriptor, made odd, or the address of a semaphore, which is even.
namespace bench {

inline HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(descriptor) * 2 + 1); }
inline bool isFile(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle) % 2 != 0; }
inline int descriptorOf(HANDLE handle) { return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) / 2); }

bool closeSemaphore(HANDLE handle);

}  // namespace bench
