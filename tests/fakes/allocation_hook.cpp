#include <cstdlib>
#include <new>

#include "fakes/StepFault.h"

// Those that the library's other forms are made of. The forms that do not throw are here too: a sanitizer's own would not pair
// with the `delete` below.

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return fakes::failsNow(fakes::Step::allocation) ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
  if (void* block = operator new(size, std::nothrow)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { std::free(block); }
