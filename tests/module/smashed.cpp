/// A library whose function writes over its own stack on demand.

#include "module/Smash.h"

extern "C" __declspec(dllexport) int writeBytes(std::size_t bytes) { return writeIntoArray(bytes); }
