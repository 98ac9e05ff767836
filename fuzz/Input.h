#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

/// Takes values off the front of an input. Behind its end all is zero, so that every input is a whole case.
class Input {
 public:
  /// `bytes` outlives it.
  Input(const std::uint8_t* bytes, std::size_t size) : m_next(bytes), m_end(bytes + size) {}

  bool isEmpty() const { return m_next == m_end; }
  std::uint8_t byte() { return isEmpty() ? std::uint8_t{0} : *m_next++; }

  /// Little-endian.
  template <std::unsigned_integral Number>
  Number number() {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) value |= std::uint64_t{byte()} << (8 * i);
    return static_cast<Number>(value);
  }

  /// One of `values`, or any number: most cases need the values at which something changes.
  template <std::unsigned_integral Number, std::size_t count>
  Number oneOf(const std::array<Number, count>& values) {
    const std::size_t choice = byte();
    return choice < count ? values[choice] : number<Number>();
  }

  /// Up to 31 units, repeated to any length up to `longest`, and up to 3 more as its end: a long text from few bytes, with the
  /// end that a rule may ask for. `Unit` is the type of one unit in the input.
  template <std::unsigned_integral Unit, typename Text>
  Text text(std::size_t longest) {
    const Text repeated = units<Unit, Text>(byte() % 32);
    const std::size_t length = number<std::uint16_t>() % (longest + 1);
    Text whole(repeated.empty() ? length : 0, typename Text::value_type{'m'});
    while (whole.size() < length) whole.append(repeated, 0, std::min(repeated.size(), length - whole.size()));
    return whole + units<Unit, Text>(byte() % 4);
  }

 private:
  template <std::unsigned_integral Unit, typename Text>
  Text units(std::size_t count) {
    Text read;
    while (read.size() < count) read += static_cast<typename Text::value_type>(number<Unit>());
    return read;
  }

  const std::uint8_t* m_next;
  const std::uint8_t* const m_end;
};

}  // namespace fuzz
