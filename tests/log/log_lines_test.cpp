/// The tests' own reader of the log.

#include "support/LogLines.h"

#include <gtest/gtest-spi.h>

#include <thread>

#include "log/LogTest.h"

namespace {

using support::LogLines;

TEST_F(LogTest, ReaderTakesLinesApart) {
  switchOn();
  WriteLog(LOG_ERROR, "Add", 53, L"comm add entry. uid: [%ws] x.", L"u");
  const auto lines = LogLines(*windows).all();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].time, "2024-03-07 09:05:03.042");
  EXPECT_EQ(lines[0].tag, "ERR");
  EXPECT_EQ(lines[0].function, "Add");
  EXPECT_EQ(lines[0].number, 53);
  EXPECT_EQ(lines[0].message, L"comm add entry. uid: [u] x.");
}

TEST_F(LogTest, ReaderFailsTheTestOverADamagedLine) {
  windows->writeFile(L"C:\\log\\Corvane.log", std::string(sizeof(wchar_t), 'x'));
  EXPECT_NONFATAL_FAILURE(LogLines(*windows).all(), "not a whole log line");
}

TEST_F(LogTest, ReaderWaitsForALineOfAnotherThread) {
  switchOn();
  const LogLines lines(*windows);
  std::thread writer([] {
    for (int i = 0; i < 3; ++i) WriteLog(LOG_DEBUG, "f", 7, L"m");
  });
  EXPECT_TRUE(lines.waitFor("f", 7, 3));
  writer.join();
  EXPECT_EQ(lines.count("f", 7), 3U);
}

TEST_F(LogTest, ReaderGivesUpAtItsDeadline) {
  switchOn();
  WriteLog(LOG_DEBUG, "f", 7, L"m");
  EXPECT_FALSE(LogLines(*windows).waitFor("f", 8, 1, LogLines::Clock::now()));
}

}  // namespace
