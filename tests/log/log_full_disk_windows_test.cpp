/// Several processes write into one log, and there is no room for more. The program runs under a limit on the size of a file,
/// which run-with-file-limit sets: a write is cut where the limit is, and later ones fail, as on a full disk.

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "log/LogWritersTest.h"

namespace {

using logwriter::kShort;

constexpr std::size_t kWriters = 3;
constexpr std::uint32_t kSomeLines = 100;
constexpr std::size_t kRoom = 100001;  // below the limit: odd, so that the cut is in the middle of a unit

class LogOnAFullDisk : public LogWritersTest {
 protected:
  static bool hasShortLine(const LogWriter& writer) {
    const auto& ledger = writer.ledger();
    for (std::uint32_t number = ledger.completed; number > writer.settled; --number) {
      if ((ledger.trouble[number] & kShort) != 0) return true;
    }
    return false;
  }
};

TEST_F(LogOnAFullDisk, CostsTheLinesThatHaveNoRoomAndCutsOneAtMost) {
  const char* limit = std::getenv("APPCOMM_FILE_LIMIT");
  ASSERT_TRUE(limit != nullptr) << "start it with run-with-file-limit";
  const std::string filler(std::strtoul(limit, nullptr, 10) - kRoom, '\0');
  ASSERT_NO_FATAL_FAILURE(startUpTo(kWriters));
  const auto writers = living();
  repeatWhileDisturbed([&](bool& disturbed) {
    writeBytes(L"Corvane.log", filler);
    letWrite();
    ASSERT_TRUE(waitUntil([&] { return std::ranges::all_of(writers, [](auto* writer) { return hasShortLine(*writer); }); }));
    ASSERT_TRUE(waitUntil([&] {  // as long as a writer has the file open
      return ::MoveFileW((kFolder / L"Corvane.log").c_str(), (kFolder / L"full.log").c_str()) != 0;
    }));
    ASSERT_TRUE(waitForLines(kSomeLines));
    ASSERT_TRUE(waitUntilAllRest());

    const std::string full = bytes(L"full.log").substr(filler.size());
    const std::string fresh = bytes();
    const auto lines = account({full, fresh});
    std::cout << lines << '\n';
    EXPECT_EQ(full.size(), kRoom) << "the disk was full";
    EXPECT_GE(lines.shortWrites, static_cast<int>(kWriters));
    disturbed = lines.timedOut > 0;
    if (disturbed) return;
    EXPECT_LE(lines.cut, 1);
  });
}

}  // namespace
