#pragma once

#include <cstddef>

using WriteBytes = int (*)(std::size_t bytes);

/// Writes that many bytes into an array of 32; returns 0.
inline int writeIntoArray(std::size_t bytes) {
  char array[32];
  volatile char* place = array;  // volatile, or nothing would be written: nobody reads it
  for (; bytes > 0; --bytes) *place++ = 'x';
  return 0;
}
