#include "bench/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::uint64_t> g_allocations{0};

}  // namespace

std::uint64_t bench::allocationCount() { return g_allocations.load(); }

// The linker lends its own names on Windows (--wrap); on the host, the program's definitions come before the C library's.
#if defined(_WIN32)
#define COUNTED(name) __wrap_##name
#define REAL(name) __real_##name
#else
#define COUNTED(name) name
#pragma GCC visibility push(default)
#define REAL(name) __libc_##name
#endif

extern "C" {

void* REAL(malloc)(std::size_t size);
void* REAL(calloc)(std::size_t count, std::size_t size);
void* REAL(realloc)(void* block, std::size_t size);

void* COUNTED(malloc)(std::size_t size) {
  ++g_allocations;
  return REAL(malloc)(size);
}

void* COUNTED(calloc)(std::size_t count, std::size_t size) {
  ++g_allocations;
  return REAL(calloc)(count, size);
}

void* COUNTED(realloc)(void* block, std::size_t size) {
  ++g_allocations;
  return REAL(realloc)(block, size);
}
}

#if !defined(_WIN32)
#pragma GCC visibility pop
#endif

// In terms of the above, so that each is counted once.
void* operator new(std::size_t size) {
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
