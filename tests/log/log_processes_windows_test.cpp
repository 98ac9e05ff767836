/// Several processes write into one log, and others get in their way.

#include <algorithm>
#include <iostream>

#include "log/LogCases.h"
#include "log/LogWritersTest.h"

namespace {

using logwriter::kNotOpened;

constexpr std::size_t kWriters = 3;
constexpr std::uint32_t kSomeLines = 100;

class LogProcesses : public LogWritersTest {
 protected:
  static std::uint32_t lastLost(const LogWriter& writer) {
    const auto& trouble = writer.ledger().trouble;
    std::uint32_t number = writer.ledger().completed;
    while (number > 0 && (trouble[number] & kNotOpened) == 0) --number;
    return number;
  }

  /// Waits until each writer has lost a line, begun from now on, because the file could not be opened.
  [[nodiscard]] bool waitForLostLines() {
    for (auto* writer : living()) {
      const std::uint32_t begun = writer->ledger().begun;
      if (!waitUntil([&] { return lastLost(*writer) > begun; })) return false;
    }
    return true;
  }
};

TEST_F(LogProcesses, ThreeWritersLoseDoubleAndMixNoLineAcrossARotation) {
  constexpr std::uint32_t kLines = 2000;
  constexpr std::size_t kBytesBelow = 300000;  // half of what is written, or less
  const std::string filler(logcases::kLargestFile - kBytesBelow, '\0');
  ASSERT_NO_FATAL_FAILURE(startUpTo(kWriters));
  repeatWhileDisturbed([&](bool& disturbed) {
    writeBytes(L"Corvane.log", filler);
    ASSERT_TRUE(writeAndRest(kLines));
    disturbed = hasTimedOut();
    if (disturbed) return settle();  // the full file may have any number, and a fresh one too
    ASSERT_TRUE(exists(L"Corvane1.log"));
    EXPECT_FALSE(exists(L"Corvane2.log"));
    const std::string full = bytes(L"Corvane1.log").substr(filler.size());
    const std::string fresh = bytes();
    EXPECT_FALSE(full.empty());
    EXPECT_FALSE(fresh.empty());
    std::cout << account({full, fresh}) << '\n';
  });
}

TEST_F(LogProcesses, FolderThatIsRemovedAndMadeAgainCostsTheLinesInBetween) {
  ASSERT_NO_FATAL_FAILURE(startUpTo(kWriters));
  repeatWhileDisturbed([&](bool& disturbed) {
    letWrite();
    ASSERT_TRUE(waitForLines(kSomeLines));
    ASSERT_TRUE(waitUntil([&] {
      std::error_code error;  // as long as a writer has the file open
      std::filesystem::remove_all(kFolder, error);
      return !std::filesystem::exists(kFolder);
    }));
    ASSERT_TRUE(waitForLostLines());
    std::filesystem::create_directory(kFolder);
    ASSERT_TRUE(waitForLines(kSomeLines));
    ASSERT_TRUE(waitUntilAllRest());

    std::uint32_t gone = 0;
    for (auto* writer : living()) {
      gone += lastLost(*writer) - writer->settled;
      writer->excused = lastLost(*writer);
    }
    const auto lines = accountForLogFile();
    std::cout << gone << " lines went with the folder; then " << lines << '\n';
    disturbed = lines.timedOut > 0;
    if (disturbed) return;
    EXPECT_GE(lines.whole, static_cast<int>(kWriters * (kSomeLines - 1)));
  });
}

TEST_F(LogProcesses, FileThatAnotherProgramSharesWithNobodyCostsTheLinesInBetween) {
  ASSERT_NO_FATAL_FAILURE(startUpTo(kWriters));
  repeatWhileDisturbed([&](bool& disturbed) {
    letWrite();
    ASSERT_TRUE(waitForLines(kSomeLines));
    HANDLE file = INVALID_HANDLE_VALUE;
    ASSERT_TRUE(waitUntil([&] {  // as long as a writer has the file open
      file = ::CreateFileW((kFolder / L"Corvane.log").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
      return file != INVALID_HANDLE_VALUE;
    }));
    const bool lost = waitForLostLines();
    ::CloseHandle(file);
    ASSERT_TRUE(lost);
    ASSERT_TRUE(waitForLines(kSomeLines));
    ASSERT_TRUE(waitUntilAllRest());

    const auto lines = accountForLogFile();
    std::cout << lines << '\n';
    EXPECT_GE(lines.notOpened, static_cast<int>(kWriters));
    disturbed = lines.timedOut > 0;
  });
}

}  // namespace
