#include "console/Options.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::wstring>;
using console::Options;

struct Good {
  const char* name;
  Arguments arguments;
  Options options;
};

const Good kGood[] = {
    {"Nothing", {}, {}},
    {"Scenario", {L"--scenario", L"a b.xml"}, {.scenario = L"a b.xml"}},
    {"ScenarioThatLooksLikeAnOption", {L"--scenario", L"--log"}, {.scenario = L"--log"}},
    {"ScenarioWithAnyCharacters",
     {L"--scenario", L"\u0414\u0440\u0443\u043a \u5370.xml"},
     {.scenario = L"\u0414\u0440\u0443\u043a \u5370.xml"}},
    {"OneSecond", {L"--seconds", L"1"}, {.duration = std::chrono::seconds(1)}},
    {"ADay", {L"--seconds", L"86400"}, {.duration = std::chrono::seconds(86400)}},
    {"LeadingZero", {L"--seconds", L"007"}, {.duration = std::chrono::seconds(7)}},
    {"LastOneCounts", {L"--seconds", L"7", L"--seconds", L"8"}, {.duration = std::chrono::seconds(8)}},
    {"Log", {L"--log"}, {.log = true}},
    {"Help", {L"--help"}, {.help = true}},
    {"ShortHelp", {L"-h"}, {.help = true}},
    {"All",
     {L"--log", L"--seconds", L"5", L"--scenario", L"s", L"--help"},
     {.scenario = L"s", .duration = std::chrono::seconds(5), .log = true, .help = true}},
};

void expectEqual(const Options& actual, const Options& expected) {
  EXPECT_EQ(actual.scenario, expected.scenario);
  EXPECT_EQ(actual.duration, expected.duration);
  EXPECT_EQ(actual.log, expected.log);
  EXPECT_EQ(actual.help, expected.help);
}

TEST(OptionsTest, GoodCommandLinesAreTaken) {
  for (const auto& [name, arguments, options] : kGood) {
    SCOPED_TRACE(name);
    expectEqual(console::parseOptions(arguments), options);
  }
}

TEST(OptionsTest, ArgumentsWithoutLogAskForTheRest) {
  for (auto [name, arguments, options] : kGood) {
    SCOPED_TRACE(name);
    options.log = false;
    expectEqual(console::parseOptions(console::argumentsWithoutLog(console::parseOptions(arguments))), options);
  }
}

struct Bad {
  Arguments arguments;
  std::string error;
};

std::string unknown(const std::string& option) {
  return "unknown option \"" + option + "\"; known are --scenario FILE, --seconds N, --log and --help";
}

std::string badSeconds(const std::string& value) {
  return "--seconds is \"" + value + "\"; it takes a whole number from 1 to 86400";
}

TEST(OptionsTest, MistakesAreToldWithWhatWouldBeRight) {
  const Bad bad[] = {
      {{L"--colour"}, unknown("--colour")},
      {{L""}, unknown("")},
      {{L"scenario.xml"}, unknown("scenario.xml")},
      {{L"--Log"}, unknown("--Log")},
      {{L"--log=1"}, unknown("--log=1")},
      {{L"--log", L"-\r\n\x1b[2J\u00e9\u5370"}, unknown("-???[2J??")},
      {{L"--help", L"?"}, unknown("?")},
      {{L"--scenario"}, "--scenario needs a value; --help shows how"},
      {{L"--scenario", L""}, "--scenario needs a value; --help shows how"},
      {{L"--seconds"}, "--seconds needs a value; --help shows how"},
      {{L"--log", L"--seconds"}, "--seconds needs a value; --help shows how"},
      {{L"--seconds", L"0"}, badSeconds("0")},
      {{L"--seconds", L"86401"}, badSeconds("86401")},
      {{L"--seconds", L"-1"}, badSeconds("-1")},
      {{L"--seconds", L"+1"}, badSeconds("+1")},
      {{L"--seconds", L" 1"}, badSeconds(" 1")},
      {{L"--seconds", L"1.5"}, badSeconds("1.5")},
      {{L"--seconds", L"1s"}, badSeconds("1s")},
      {{L"--seconds", L"0x10"}, badSeconds("0x10")},
      {{L"--seconds", L"\u0661"}, badSeconds("?")},
      {{L"--seconds", L"4294967297"}, badSeconds("4294967297")},
      {{L"--seconds", L"99999999999999999999"}, badSeconds("99999999999999999999")},
      {{L"--seconds", L"--log"}, badSeconds("--log")},
  };
  for (const auto& [arguments, expected] : bad) {
    try {
      console::parseOptions(arguments);
      ADD_FAILURE() << "taken, instead of: " << expected;
    } catch (const console::OptionsError& error) {
      EXPECT_EQ(error.what(), expected);
    }
  }
}

TEST(OptionsTest, HelpNamesEveryOption) {
  for (const auto* option : {L"--scenario FILE", L"--seconds N", L"--log", L"--help"}) {
    EXPECT_NE(console::helpText().find(option), std::wstring::npos);
  }
}

}  // namespace
