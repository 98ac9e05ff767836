#include "bench/AllocationCount.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

#if defined(_WIN32)
#include <malloc.h>
#endif

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

// In terms of the above, so that each is counted once. All forms are here: those of a C++ runtime that is a DLL would call its
// own, and past the count.
void* operator new(std::size_t size) {
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }

void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return std::malloc(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return std::malloc(size); }

// Not in terms of the above.
void* operator new(std::size_t size, std::align_val_t alignment) {
  ++g_allocations;
#if defined(_WIN32)
  void* block = ::_aligned_malloc(size, static_cast<std::size_t>(alignment));
#else
  const auto multiple = static_cast<std::size_t>(alignment);
  void* block = std::aligned_alloc(multiple, (size + multiple - 1) / multiple * multiple);
#endif
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
#if defined(_WIN32)
  ::_aligned_free(block);
#else
  std::free(block);
#endif
}

void* operator new[](std::size_t size, std::align_val_t alignment) { return operator new(size, alignment); }
void operator delete[](void* block, std::align_val_t alignment) noexcept { operator delete(block, alignment); }

namespace {

struct alignas(64) Aligned {
  char bytes[64];
};

// Hidden from the compiler, which may leave a pair of allocation and release out.
template <class T>
T* seen(T* block) {
  benchmark::DoNotOptimize(block);
  return block;
}

template <class Allocate>
void requireOneCounted(const char* name, Allocate allocate) {
  const auto before = bench::allocationCount();
  allocate();
  if (bench::allocationCount() - before == 1) return;
  std::fprintf(stderr, "%s is not counted once, so a count of 0 would mean nothing\n", name);
  std::abort();
}

}  // namespace

void bench::requireThatAllocationsAreCounted() {
  requireOneCounted("malloc", [] { std::free(seen(std::malloc(10))); });
  requireOneCounted("calloc", [] { std::free(seen(std::calloc(10, 1))); });
  void* block = seen(std::malloc(10));
  requireOneCounted("realloc", [&block] { block = seen(std::realloc(block, 1000)); });
  std::free(block);
  requireOneCounted("new", [] { delete seen(new int); });
  requireOneCounted("new[]", [] { delete[] seen(new int[10]); });
  requireOneCounted("new (nothrow)", [] { delete seen(new (std::nothrow) int); });
  requireOneCounted("aligned new", [] { delete seen(new Aligned); });
  requireOneCounted("aligned new[]", [] { delete[] seen(new Aligned[2]); });
}
