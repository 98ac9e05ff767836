/// The module's log, from the attach line to the detach line.

#include <algorithm>
#include <regex>
#include <utility>

#include "module/ClientTest.h"

namespace {

using support::LogLine;
using Numbered = std::vector<std::pair<int, std::wstring>>;

class ModuleLogTest : public ClientTest {
 protected:
  std::string poll() const { return run(L"module_client.exe", {L"poll"}); }
};

Numbered linesOf(const std::vector<LogLine>& log, const std::string& function) {
  Numbered lines;
  for (const auto& line : log) {
    if (line.function == function) lines.emplace_back(line.number, line.message);
  }
  return lines;
}

constexpr const char* kPolled = "Add: 0\r\nAdd: 0\r\nAdd: 0\r\nStartNPA: 0\r\nPauseNPA: 0\r\nStop: 0\r\ncodes: 1 2\r\n";

TEST_F(ModuleLogTest, WithoutConfigurationNothingIsMadeAndEverythingWorks) {
  EXPECT_EQ(poll(), std::string("semaphore: no\r\n") + kPolled);
  EXPECT_FALSE(std::filesystem::exists(kFolder));
}

TEST_F(ModuleLogTest, WithAFolderAndNoConfigurationNothingIsMade) {
  std::filesystem::create_directory(kFolder);
  EXPECT_EQ(poll(), std::string("semaphore: no\r\n") + kPolled);
  EXPECT_TRUE(std::filesystem::is_empty(kFolder));
}

TEST_F(ModuleLogTest, DebugWritesEveryLineWithItsFunctionAndNumber) {
  configure("Debug=1\r\n");
  EXPECT_EQ(poll(), std::string("semaphore: yes\r\n") + kPolled);
  const auto lines = log();

  EXPECT_TRUE(std::ranges::all_of(lines, [](const LogLine& line) { return line.tag == "DBG"; }));
  EXPECT_EQ(linesOf(lines, "DllMain"),
            (Numbered{{264, L"App Communication DLL Attach."}, {271, L"App Communication DLL Detach."}}));
  EXPECT_EQ(lines.front().number, 264);
  EXPECT_EQ(lines.back().number, 271);
  EXPECT_EQ(linesOf(lines, "Add"), (Numbered{{53, L"comm add entry. uid: desk."},
                                             {94, L"create list for this node."},
                                             {146, L"comm add leave. put: 1"},
                                             {53, L"comm add entry. uid: desk."},
                                             {68, L"put the node to oberver list."},
                                             {146, L"comm add leave. put: 1"},
                                             {53, L"comm add entry. uid: desk."},
                                             {76, L"put the node to list backend."},
                                             {146, L"comm add leave. put: 1"}}));
  EXPECT_EQ(linesOf(lines, "StartNPA"),
            (Numbered{{176, L"comm start NPA entry."}, {201, L"comm start set semaphore."}, {206, L"comm start NPA leave."}}));
  EXPECT_EQ(linesOf(lines, "PauseNPA"), (Numbered{{219, L"comm pause NPA entry."}, {245, L"comm pause NPA leave."}}));
  EXPECT_EQ(linesOf(lines, "Stop"), (Numbered{{151, L"comm stop entry."}, {162, L"comm stop leave."}}));
}

TEST_F(ModuleLogTest, DebugTellsTheWorkersCycles) {
  configure("Debug=1\r\n");
  poll();
  const auto cycles = linesOf(log(), "thread_list");

  std::string numbers;
  for (const auto& [number, text] : cycles) numbers += std::to_string(number) + ' ';
  EXPECT_TRUE(std::regex_match(numbers, std::regex("35 (54 161 163 )+(54 )?240 "))) << numbers;

  ASSERT_GE(cycles.size(), 2U);
  EXPECT_EQ(cycles.front().second, L"comm thread list enter, uid: desk");
  EXPECT_TRUE(
      std::regex_match(cycles[1].second,
                       std::wregex(L"wait, uid: desk, duration: -\\d+, chkDuration: \\d+, npaDuration: \\d+, interval: 20\\.")))
      << testing::PrintToString(cycles[1].second) << ": the first run waits for nothing";
  for (const auto& [number, text] : cycles) {
    EXPECT_TRUE(number != 161 || text == L"Communication beg, uid: desk") << testing::PrintToString(text);
    EXPECT_TRUE(number != 163 || text == L"Communication end, uid: desk, result: 0") << testing::PrintToString(text);
  }
  EXPECT_EQ(cycles.back().second, L"comm thread list leave, uid: desk");
}

TEST_F(ModuleLogTest, DebugTellsTheReadsAndTheNotices) {
  configure("Debug=1\r\n");
  poll();
  const auto steps = linesOf(log(), "comm_thread_state");
  const auto has = [&](const wchar_t* text) {
    return std::ranges::any_of(steps, [text](const auto& step) { return step.second == text; });
  };
  EXPECT_TRUE(has(L"get usb printer (request) state result: 0"));
  EXPECT_TRUE(has(L" notice caller the state information has been captured."));
}

TEST_F(ModuleLogTest, ErrorAloneWritesOnlyTheRefusedRecord) {
  configure("Error=1\r\n");
  EXPECT_EQ(run(L"module_client.exe", {L"wrong-record"}), "notices: 0\r\n");
  const auto lines = log();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines.front().tag, "ERR");
  EXPECT_EQ(lines.front().function, "comm_thread_state");
  EXPECT_EQ(lines.front().message, L"resource type is NOT state");
}

TEST_F(ModuleLogTest, InfoAloneSetsTheLogUpAndWritesNoLine) {
  configure("Info=1\r\n");
  EXPECT_EQ(poll(), std::string("semaphore: yes\r\n") + kPolled);
  EXPECT_FALSE(hasLog());
}

}  // namespace
