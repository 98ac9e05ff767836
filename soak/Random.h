#pragma once

#include <cstdint>

namespace soak {

/// Decisions that follow from the seed alone, the same on every system. Each use has a stream of its own.
class Random {
 public:
  Random(std::uint64_t seed, std::uint64_t stream) : m_state(seed * 0x9E3779B97F4A7C15U ^ (stream + 1) * 0xD1B54A32D192ED03U) {
    next();
  }

  std::uint64_t next() {  // splitmix64
    std::uint64_t mixed = m_state += 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }
  /// `from` to `to`, both possible.
  int between(int from, int to) {
    return from + static_cast<int>(next() % static_cast<std::uint64_t>(static_cast<std::int64_t>(to) - from + 1));
  }
  bool chance(int percent) { return between(1, 100) <= percent; }

 private:
  std::uint64_t m_state;
};

}  // namespace soak
