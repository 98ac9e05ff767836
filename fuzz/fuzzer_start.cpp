#include <gtest/gtest.h>

#include <cstdlib>

#include "fuzz/Target.h"

namespace {

/// The fuzzer takes the end of the program for a find; GoogleTest's own way to end it raises a signal that it may not heed.
class EndsAtTheFirstFailure : public testing::EmptyTestEventListener {
  void OnTestPartResult(const testing::TestPartResult& result) override {
    if (result.failed()) std::abort();
  }
};

}  // namespace

// For stacks with functions and lines: the compiler's own symbolizer is in a package that nothing else here needs.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "external_symbolizer_path=/usr/bin/addr2line"; }
extern "C" const char* __ubsan_default_options();
extern "C" const char* __ubsan_default_options() { return "print_stacktrace=1"; }

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  testing::UnitTest::GetInstance()->listeners().Append(new EndsAtTheFirstFailure);  // owned by GoogleTest from here on
  return 0;
}
