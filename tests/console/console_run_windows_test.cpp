/// printer-console.exe as a person, or a script, starts it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "ConsoleTest.h"

namespace {

using consoletest::ConsoleTest;
using consoletest::contains;

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
  expectMistake({L"--scenario", L"C:\\console-test\\none.xml"},
                "C:\\console-test\\none.xml: there is no such file; --scenario takes the path of a scenario file");
}

TEST_F(ConsoleTest, FolderInPlaceOfAScenarioIsTold) {
  expectMistake({L"--scenario", L"C:\\console-test"},
                "C:\\console-test: is a folder; --scenario takes the path of a scenario file");
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

TEST_F(ConsoleTest, ErrorGivesTheTerminalNoControlCharactersAndKeepsItsLetters) {
  const auto file = scenario(L"control-characters.xml",
                             "<scenario><printer uid='p' manager-id='m' connection='\u5370\u00e9\u202e\u009b2J'/></scenario>");
  const auto ended = run({L"--scenario", file});
  EXPECT_EQ(ended.code, 2U);
  EXPECT_TRUE(contains(ended.errors, "'\u5370\u00e9??2J'")) << ended.errors;
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
                "C:\\\u5370 \u00e9.xml: there is no such file; --scenario takes the path of a scenario file");
}

TEST_F(ConsoleTest, EmptyScenarioIsTold) {
  expectMistake({L"--scenario", scenario(L"empty.xml", "\n")},
                "C:\\console-test\\empty.xml:1: the file is empty; right is <scenario>");
}

TEST_F(ConsoleTest, NameThatIsNoTextIsToldWithReplacements) {
  expectMistake({L"--scenario", std::wstring(L"C:\\") + wchar_t{0xd800} + L".xml"},
                "C:\\\ufffd.xml: there is no such file; --scenario takes the path of a scenario file");
}

TEST_F(ConsoleTest, PollShowsEveryPrinterAndEndsWithASummary) {
  const auto ended = run({L"--seconds", L"3"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_EQ(ended.errors, "");
  for (const auto* part :
       {"usb-desk  USB, ", "net-hall  network, ", "queried yes", "supplies black 62%", "Desk printer: notices ",
        "Hall printer: notices ", "Lab printer: notices ", "All together: notices ",
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

TEST_F(ConsoleTest, LogOfAnEarlierRunDoesNotMeanThatTheLogIsOn) {
  std::filesystem::create_directories(L"C:\\log");
  std::ofstream(std::filesystem::path(L"C:\\log\\Corvane.log"), std::ios::binary) << std::string("o\0l\0d\0\r\0\n\0", 10);
  const auto ended = run({L"--seconds", L"1"});
  EXPECT_TRUE(ended.output.ends_with("\r\nThe diagnostic log is off; --log switches it on.\r\n")) << ended.output;
}

TEST_F(ConsoleTest, EmptyLogDoesNotMeanThatTheLogIsOff) {
  std::filesystem::create_directories(L"C:\\log");
  std::ofstream(std::filesystem::path(L"C:\\log\\orva_config.ini")) << "[Corvane]\nWarning=1\n";  // the module never warns
  const auto ended = run({L"--seconds", L"1"});
  EXPECT_TRUE(ended.output.ends_with("\r\nThe diagnostic log is on, and C:\\log\\Corvane.log has no lines.\r\n"))
      << ended.output;
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

TEST_F(ConsoleTest, DemoGoesAsMeant) {
  const auto ended = run({L"demo"});
  EXPECT_EQ(ended.code, 0U) << ended.output;
  EXPECT_TRUE(ended.output.ends_with(" steps went as meant.\r\n")) << ended.output;
  EXPECT_TRUE(contains(ended.output, "\r\n> printer-console set sleep-time 15 --printer usb-lab\r\n"));
  EXPECT_TRUE(contains(ended.output, " --password *** ")) << ended.output;
  EXPECT_FALSE(contains(ended.output, "not so secret")) << ended.output;
}

TEST_F(ConsoleTest, DemoThatIsCutShortHasFailed) {
  const auto ended = run({L"demo", L"--seconds", L"1"});
  EXPECT_EQ(ended.code, 1U);
  EXPECT_TRUE(contains(ended.output, " steps went as meant.\r\n")) << ended.output;
}

TEST_F(ConsoleTest, DemoRefusesAScenarioWithoutItsPrinters) {
  const auto file = scenario(L"one.xml", "<scenario><printer uid='usb-lab' manager-id='m' connection='usb'/></scenario>");
  expectMistake({L"demo", L"--scenario", file}, "the demo needs printers that the scenario lacks: net-hall");
}

TEST_F(ConsoleTest, DemoTellsWhenAStepDidNotGoAsMeant) {
  const auto file = scenario(L"idle-hall.xml", R"(<scenario>
      <printer uid='net-hall' manager-id='m1' connection='network' interval='20'/>
      <printer uid='usb-lab' manager-id='m2' connection='usb' interval='20' push-scan='yes'>
        <firmware size='1' restart='1000'/>
        <upgrade-service check-time='1'/>
        <wifi segments='1' segment-time='1' join-segments='1' join-time='1'>
          <access-point name='Laboratory' password='not so secret'/>
        </wifi>
      </printer>
    </scenario>)");
  const auto ended = run({L"demo", L"--scenario", file});
  EXPECT_EQ(ended.code, 1U);
  EXPECT_TRUE(ended.output.ends_with("\r\n25 of 26 steps went as meant.\r\n")) << ended.output;
}

}  // namespace
