/// printer-console.exe as a person, or a script, starts it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace {

using Arguments = std::vector<std::wstring>;

struct Ended {
  std::uint32_t code = 0;
  std::string output;
  std::string errors;
};

class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() {
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directories(kFolder);
  }
  ~ConsoleTest() override {
    std::filesystem::remove_all(kFolder);
    std::filesystem::remove_all(L"C:\\log");
  }

  static Ended run(const Arguments& arguments) {
    const support::ChildProcess child(L"printer-console.exe", arguments);
    const auto code = child.wait();
    EXPECT_TRUE(code) << "has not ended";
    return {code.value_or(0), child.output(), child.errors()};
  }

  /// A mistake is told in one line on the standard error.
  static void expectMistake(const Arguments& arguments, const std::string& error) {
    const auto ended = run(arguments);
    EXPECT_EQ(ended.code, 2U);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "printer-console: " + error + "\r\n");
  }

  std::wstring scenario(const std::wstring& name, const std::string& text) const {
    const auto file = kFolder / name;
    std::ofstream(file, std::ios::binary) << text;
    return file.wstring();
  }

  const std::filesystem::path kFolder = L"C:\\console-test";
};

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST_F(ConsoleTest, HelpIsOutputAndNoMistake) {
  const auto ended = run({L"--help"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_TRUE(contains(ended.output, "--scenario FILE"));
  EXPECT_EQ(ended.errors, "");
}

TEST_F(ConsoleTest, MistakesInTheCommandLineAreTold) {
  expectMistake({L"--colour"}, "unknown option \"--colour\"; known are --scenario FILE, --seconds N, --log and --help");
  expectMistake({L"--seconds", L"soon"}, "--seconds is \"soon\"; it takes a whole number from 1 to 86400");
}

TEST_F(ConsoleTest, MissingScenarioIsTold) {
  expectMistake(
      {L"--scenario", L"C:\\console-test\\none.xml"},
      "C:\\console-test\\none.xml: there is no such file; right is the path of a scenario file, as in PRINTER_SCENARIO");
}

TEST_F(ConsoleTest, FolderInPlaceOfAScenarioIsTold) {
  expectMistake({L"--scenario", L"C:\\console-test"},
                "C:\\console-test: is a folder; right is the path of a scenario file, as in PRINTER_SCENARIO");
}

TEST_F(ConsoleTest, BrokenScenarioIsToldWithItsLine) {
  const auto file = scenario(L"broken.xml", "<scenario>\n  <printer uid='p' manager-id='m' connection='wifi'/>\n</scenario>\n");
  const auto ended = run({L"--scenario", file});
  EXPECT_EQ(ended.code, 2U);
  EXPECT_EQ(ended.output, "");
  EXPECT_TRUE(ended.errors.starts_with("printer-console: C:\\console-test\\broken.xml:2: ")) << ended.errors;
  EXPECT_TRUE(contains(ended.errors, "'wifi'") && contains(ended.errors, "usb") && contains(ended.errors, "network"))
      << ended.errors;
  EXPECT_EQ(std::ranges::count(ended.errors, '\n'), 1);
}

TEST_F(ConsoleTest, ScenarioIsFoundUnderAnyName) {
  const auto file =
      scenario(L"\u5370\u5237 \u00e9 \u0416.xml", "<scenario><printer uid='p' manager-id='m' connection='usb'/></scenario>");
  const auto ended = run({L"--scenario", file, L"--seconds", L"1"});
  EXPECT_EQ(ended.code, 0U) << ended.errors;
  EXPECT_TRUE(contains(ended.output, "p: notices "));
}

TEST_F(ConsoleTest, MistakeInAScenarioOfAnyNameIsTold) {
  expectMistake({L"--scenario", L"C:\\\u5370 \u00e9.xml"},
                "C:\\\u5370 \u00e9.xml: there is no such file; right is the path of a scenario file, as in PRINTER_SCENARIO");
}

TEST_F(ConsoleTest, ScenarioThatIsNoTextIsToldWithoutIt) {
  expectMistake({L"--scenario", std::wstring(L"C:\\") + wchar_t{0xd800} + L".xml"},
                "--scenario holds characters that are no text; it takes the path of a scenario file");
}

TEST_F(ConsoleTest, PollShowsBothPrintersAndEndsWithASummary) {
  const auto ended = run({L"--seconds", L"3"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_EQ(ended.errors, "");
  for (const auto* part : {"usb-desk  USB, ", "net-hall  network, ", "queried yes", "supplies black 62%",
                           "Desk printer: notices ", "Hall printer: notices ", "All together: notices ",
                           "Stopped: every printer's tasks have ended.", "The diagnostic log is off; --log switches it on."}) {
    EXPECT_TRUE(contains(ended.output, part)) << part << " is not in\n" << ended.output;
  }
}

TEST_F(ConsoleTest, LogIsMadeAndItsLastLinesShown) {
  const auto ended = run({L"--log", L"--seconds", L"1"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_TRUE(contains(ended.output, "The diagnostic log is C:\\log\\Corvane.log. Its last lines:\r\n")) << ended.output;
  EXPECT_TRUE(contains(ended.output, "[DBG] [Stop] [162] comm stop leave.")) << ended.output;
  EXPECT_GT(std::filesystem::file_size(L"C:\\log\\Corvane.log"), 0U);
}

TEST_F(ConsoleTest, MistakeIsToldBeforeTheLogIsSwitchedOn) {
  expectMistake({L"--log", L"--seconds", L"0"}, "--seconds is \"0\"; it takes a whole number from 1 to 86400");
  EXPECT_FALSE(std::filesystem::exists(L"C:\\log"));
}

TEST_F(ConsoleTest, ExitCodeOfTheRunWithLogIsItsOwn) {
  const auto ended = run({L"--log", L"--scenario", L"C:\\console-test\\none.xml"});
  EXPECT_EQ(ended.code, 2U);
  EXPECT_EQ(std::ranges::count(ended.errors, '\n'), 1);
}

TEST_F(ConsoleTest, PrinterThatHangsDoesNotKeepTheProgram) {
  const auto ended = run({L"--scenario", EXAMPLE_SCENARIOS L"/troubled.xml", L"--seconds", L"4"});
  EXPECT_EQ(ended.code, 0U) << ended.errors;
  EXPECT_TRUE(contains(ended.output, "\r\nStopped")) << ended.output;
}

TEST_F(ConsoleTest, PrinterThatNeverAnswersIsLeftToTheEndOfTheProcess) {
  const auto file = scenario(L"hangs.xml",
                             "<scenario><printer uid='p' manager-id='m' connection='usb'>"
                             "<call function='AppPrinterSdk_GetState'><hang/></call></printer></scenario>");
  const auto ended = run({L"--scenario", file, L"--seconds", L"1"});
  EXPECT_EQ(ended.code, 0U) << ended.errors;
  EXPECT_TRUE(contains(ended.output, "Stopped. Some printer does not answer; its tasks end with the process.")) << ended.output;
}

}  // namespace
