#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// Memory that held a password is overwritten before it is given back.
namespace controls {

/// In a way that the compiler does not leave out, though nobody reads the memory again.
void overwrite(wchar_t* units, std::size_t count);

template <class Unit>
struct WipingAllocator {
  using value_type = Unit;

  Unit* allocate(std::size_t count) { return std::allocator<Unit>().allocate(count); }
  void deallocate(Unit* units, std::size_t count) {
    overwrite(units, count);
    std::allocator<Unit>().deallocate(units, count);
  }

  friend bool operator==(const WipingAllocator&, const WipingAllocator&) = default;
};

/// A vector, because a string keeps short texts in itself, where no allocator overwrites them. What is erased stays in the
/// memory behind the end until it is overwritten.
using WipedText = std::vector<wchar_t, WipingAllocator<wchar_t>>;

}  // namespace controls
