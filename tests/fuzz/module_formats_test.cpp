#include "fuzz/ModuleFormats.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

using Texts = std::set<std::string>;

// What the module has of wide texts beside formats.
const Texts kNoFormats{R"(C:\\log\\Corvane.log)", "Corvane"};

/// The wide texts in a source, as they are spelled there.
void addWideTexts(const std::string& source, Texts& texts) {
  for (std::size_t begin = source.find("L\""); begin != std::string::npos; begin = source.find("L\"", begin)) {
    begin += 2;
    std::size_t end = begin;
    while (end < source.size() && source[end] != '"') end += source[end] == '\\' ? 2 : 1;
    texts.insert(source.substr(begin, end - begin));
    begin = end;
  }
}

/// The wide texts of the module without its log, whose formats are the line's own.
Texts wideTextsOfTheModule() {
  Texts texts;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER "/src")) {
    if (!entry.is_regular_file() || entry.path().parent_path().filename() == "log") continue;
    std::ifstream stream(entry.path());
    addWideTexts(std::string(std::istreambuf_iterator<char>(stream), {}), texts);
  }
  return texts;
}

TEST(ModuleFormats, AreTheWideTextsOfTheSources) {
  Texts listed = kNoFormats;
  for (const std::wstring format : fuzz::kModuleFormats) EXPECT_TRUE(listed.emplace(format.begin(), format.end()).second);
  EXPECT_EQ(wideTextsOfTheModule(), listed) << "a new format belongs into fuzz/ModuleFormats.h";
}

}  // namespace
