#pragma once

#include <cstddef>
#include <cstdint>

/// What a fuzz target is: one function that takes any bytes, turns them into a case, runs the product on it and compares what
/// comes out with what an oracle of its own says. A difference is a failed GoogleTest assertion, under the fuzzer, where it
/// ends the program, as in the test that runs the kept inputs. The same bytes make the same case every time, in every build.
///
/// A changed reading of the bytes takes the meaning from the kept inputs: make them anew then (fuzz/run).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
