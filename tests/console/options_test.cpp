#include "console/Options.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::wstring>;
using examples::Options;
using namespace std::chrono_literals;

/// What a command line means, with the command by its words.
struct Meaning {
  std::wstring command = L"poll";
  examples::Request request = {};
  std::optional<std::wstring> scenario = std::nullopt;
  std::optional<std::wstring> printer = std::nullopt;
  std::chrono::seconds limit{12};
  bool json = false;
  bool log = false;
  bool help = false;
};

struct Good {
  const char* name;
  Arguments arguments;
  Meaning meaning;
};

const Good kGood[] = {
    {"Nothing", {}, {}},
    {"Poll", {L"poll"}, {}},
    {"Demo", {L"demo"}, {.command = L"demo", .limit = 60s}},
    {"Scenario", {L"--scenario", L"a b.xml"}, {.scenario = L"a b.xml"}},
    {"ScenarioThatLooksLikeAnOption", {L"--scenario", L"--log"}, {.scenario = L"--log"}},
    {"ScenarioWithAnyCharacters",
     {L"--scenario", L"\u0414\u0440\u0443\u043a \u5370.xml"},
     {.scenario = L"\u0414\u0440\u0443\u043a \u5370.xml"}},
    {"OneSecond", {L"--seconds", L"1"}, {.limit = 1s}},
    {"ADay", {L"--seconds", L"86400"}, {.limit = 86400s}},
    {"LeadingZero", {L"--seconds", L"007"}, {.limit = 7s}},
    {"LastOneCounts", {L"--seconds", L"7", L"--seconds", L"8"}, {.limit = 8s}},
    {"Log", {L"--log"}, {.log = true}},
    {"Help", {L"--help"}, {.help = true}},
    {"ShortHelp", {L"-h"}, {.help = true}},
    {"HelpNeedsNothingElse", {L"set", L"--help", L"--seconds", L"0"}, {.help = true}},
    {"All", {L"--log", L"--seconds", L"5", L"--scenario", L"s"}, {.scenario = L"s", .limit = 5s, .log = true}},
    {"Operation", {L"state", L"--printer", L"lab"}, {.command = L"state", .printer = L"lab", .limit = 30s}},
    {"OptionsAnywhere",
     {L"--printer", L"lab", L"set", L"--json", L"sleep-time", L"--log", L"15", L"--seconds", L"9"},
     {.command = L"set", .request = {{L"sleep-time", L"15"}}, .printer = L"lab", .limit = 9s, .json = true, .log = true}},
    {"NumbersBelowZeroAreOperands",
     {L"align", L"values", L"-1", L"0", L"-2147483648", L"3", L"4", L"5"},
     {.command = L"align values", .request = {{L"-1", L"0", L"-2147483648", L"3", L"4", L"5"}}, .limit = 30s}},
    {"OperandWithDashes", {L"qr", L"--", L"--log"}, {.command = L"qr", .request = {{L"--log"}}, .limit = 30s}},
    {"OwnOptions",
     {L"wifi", L"join", L"Office", L"--password", L"x y", L"--security", L"wpa3"},
     {.command = L"wifi join", .request = {{L"Office"}, {{L"--password", L"x y"}, {L"--security", L"wpa3"}}}, .limit = 60s}},
    {"Switch",
     {L"wifi", L"join", L"Office", L"--password-stdin"},
     {.command = L"wifi join", .request = {{L"Office"}, {{L"--password-stdin", L""}}}, .limit = 60s}},
};

void expectMeaning(const Options& actual, const Meaning& expected) {
  EXPECT_EQ(actual.command->words, expected.command);
  EXPECT_EQ(actual.request, expected.request);
  EXPECT_EQ(actual.scenario, expected.scenario);
  EXPECT_EQ(actual.printer, expected.printer);
  EXPECT_EQ(actual.limit, expected.limit);
  EXPECT_EQ(actual.json, expected.json);
  EXPECT_EQ(actual.log, expected.log);
  EXPECT_EQ(actual.help.has_value(), expected.help);
}

TEST(OptionsTest, GoodCommandLinesAreTaken) {
  for (const auto& [name, arguments, meaning] : kGood) {
    SCOPED_TRACE(name);
    expectMeaning(examples::parseOptions(arguments), meaning);
  }
}

TEST(OptionsTest, ArgumentsWithoutLogAskForTheRest) {
  for (auto [name, arguments, meaning] : kGood) {
    if (meaning.help) continue;  // nothing is run
    SCOPED_TRACE(name);
    meaning.log = false;
    expectMeaning(examples::parseOptions(examples::parseOptions(arguments).withoutLog), meaning);
  }
}

TEST(OptionsTest, HelpIsOfWhatIsNamed) {
  const auto& set = examples::findCommand({L"set"}).command;
  EXPECT_EQ(examples::parseOptions({L"--help"}).help, examples::helpText());
  EXPECT_EQ(examples::parseOptions({L"poll", L"--help"}).help, examples::helpText(examples::pollCommand()));
  EXPECT_EQ(examples::parseOptions({L"--help", L"set", L"colour"}).help, examples::helpText(set));
  EXPECT_EQ(examples::parseOptions({L"wifi", L"-h"}).help, examples::groupHelpText(L"wifi"));
  EXPECT_THROW(examples::parseOptions({L"print", L"--help"}), examples::OptionsError);
  EXPECT_THROW(examples::parseOptions({L"wifi", L"leave", L"--help"}), examples::OptionsError);
}

struct Bad {
  Arguments arguments;
  std::string error;
};

const std::string kGeneral = "--scenario FILE, --seconds N, --log and --help";

std::string unknown(const std::string& option) { return "unknown option \"" + option + "\"; known are " + kGeneral; }

std::string badSeconds(const std::string& value) {
  return "--seconds is \"" + value + "\"; it takes a whole number from 1 to 86400";
}

TEST(OptionsTest, MistakesAreToldWithWhatWouldBeRight) {
  const Bad bad[] = {
      {{L"--colour"}, unknown("--colour")},
      {{L""},
       "unknown command \"\"; known are poll, demo, state, alarm, get, set, align, clean, qr, network, firmware, pushscan and "
       "wifi"},
      {{L"wifi", L""}, "wifi is followed by \"\"; it takes list and join"},
      {{L"get", L"--colour"}, "unknown option \"--colour\"; known are --printer UID, --json, " + kGeneral},
      {{L"-x"}, unknown("-x")},
      {{L"-"}, unknown("-")},
      {{L"--Log"}, unknown("--Log")},
      {{L"--log=1"}, "--log takes no value"},
      {{L"--printer=lab"}, "--printer takes its value behind a blank: --printer UID"},
      {{L"wifi", L"join", L"Office", L"--password=secret"}, "--password takes its value behind a blank: --password TEXT"},
      {{L"wifi", L"join", L"Office", L"--pass=secret"},
       "unknown option \"--pass=...\"; known are --password TEXT, --password-stdin, --security KIND, --printer UID, --json, " +
           kGeneral},
      {{L"wifi", L"join", L"Office", L"--password", L"secret", L"--password-stdin"},
       "--password and --password-stdin exclude each other; one of them tells the password"},
      {{L"--log", L"-\r\n\x1b[2J\u00e9\u5370"}, unknown("-???[2J??")},
      {{L"--help", L"-?"}, unknown("-?")},
      {{L"--scenario"}, "--scenario needs a value; --help shows how"},
      {{L"--scenario", L""}, "--scenario needs a value; --help shows how"},
      {{L"--seconds"}, "--seconds needs a value; --help shows how"},
      {{L"--log", L"--seconds"}, "--seconds needs a value; --help shows how"},
      {{L"--json"}, "poll has no option --json; known are " + kGeneral},
      {{L"get", L"--gateway", L"1.2.3.4"}, "get has no option --gateway; known are --printer UID, --json, " + kGeneral},
      {{L"poll", L"now"}, "poll takes no operands; --help shows how"},
      {{L"set"}, "set takes PARAMETER [VALUE]; --help shows how"},
      {{L"set", L"sleep-time", L"1", L"2"}, "set takes PARAMETER [VALUE]; --help shows how"},
      {{L"qr", L""}, "an operand is empty; --help shows how"},
      {{L"qr", L"--", L""}, "an operand is empty; --help shows how"},
      {{L"set", L"colour"},
       "unknown parameter \"colour\"; known are sleep-time, supplies-alarm, paper-alarm, timed-clear, silent-mode"},
      {{L"set", L"sleep-time"}, "sleep-time needs a value; it takes a whole number from -2147483648 to 2147483647"},
      {{L"set", L"paper-alarm"}, "paper-alarm needs a value; it takes a whole number from 0 to 255"},
      {{L"set", L"silent-mode", L"256"}, "silent-mode is \"256\"; it takes a whole number from 0 to 255"},
      {{L"network", L"set"}, "network set needs at least one setting; --help shows which there are"},
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
      examples::parseOptions(arguments);
      ADD_FAILURE() << "taken, instead of: " << expected;
    } catch (const examples::OptionsError& error) {
      EXPECT_EQ(error.what(), expected);
    }
  }
}

}  // namespace
