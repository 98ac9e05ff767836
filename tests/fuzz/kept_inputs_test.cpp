/// Runs a fuzz target on the inputs that are kept for it: those that reach much of the code, those that once found a defect.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Target.h"

namespace {

std::vector<std::filesystem::path> keptInputs() {
  std::vector<std::filesystem::path> files;
  for (const std::filesystem::path folder : {KEPT_FOLDERS}) {
    if (!std::filesystem::exists(folder)) continue;  // no defect was found yet
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

TEST(KeptInputs, EachHolds) {
  const auto files = keptInputs();
  ASSERT_FALSE(files.empty());
  for (const auto& file : files) {
    SCOPED_TRACE(file.string());
    std::ifstream stream(file, std::ios::binary);
    ASSERT_TRUE(stream);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
}

}  // namespace
