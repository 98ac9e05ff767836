#include "Blocks.h"

#if defined(_WIN32)

#include "module/HeapBlocks.h"

std::optional<long long> soak::allocatedBlocks() { return heapBlocksInUse(); }

#elif defined(__SANITIZE_ADDRESS__)

std::optional<long long> soak::allocatedBlocks() { return std::nullopt; }

#else

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> g_blocks{0};

void* tryToAllocate(std::size_t size) {
  void* block = std::malloc(size);
  if (block != nullptr) g_blocks.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void* allocate(std::size_t size) {
  if (void* block = tryToAllocate(size)) return block;
  throw std::bad_alloc();
}

void release(void* block) {
  if (block == nullptr) return;
  g_blocks.fetch_sub(1, std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

std::optional<long long> soak::allocatedBlocks() { return g_blocks.load(); }

// Also for the libraries that the program loads.
#pragma GCC visibility push(default)
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept { return tryToAllocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept { return tryToAllocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }
#pragma GCC visibility pop

#endif
