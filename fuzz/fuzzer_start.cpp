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

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  testing::UnitTest::GetInstance()->listeners().Append(new EndsAtTheFirstFailure);  // owned by GoogleTest from here on
  return 0;
}
