#include "console/Commands.h"

#include <gtest/gtest.h>

#include <set>

#include "common/Values.h"

namespace {

using examples::findCommand;
using Words = std::vector<std::wstring>;

std::string mistakeOf(const Words& words) {
  try {
    findCommand(words);
    return "taken";
  } catch (const examples::OptionsError& error) {
    return error.what();
  }
}

TEST(CommandsTest, EachIsFoundByItsOwnWords) {
  for (const auto& command : examples::allCommands()) {
    const std::wstring words = command.words;
    const auto blank = words.find(L' ');
    Words typed{words.substr(0, blank)};
    if (blank != std::wstring::npos) typed.push_back(words.substr(blank + 1));
    const auto own = typed.size();
    typed.push_back(L"more");
    const auto found = findCommand(typed);
    EXPECT_EQ(&found.command, &command) << testing::PrintToString(words);
    EXPECT_EQ(found.words, own);
  }
}

TEST(CommandsTest, WithoutWordsItIsThePoll) {
  EXPECT_EQ(&findCommand({}).command, &examples::pollCommand());
  EXPECT_EQ(findCommand({}).words, 0U);
  EXPECT_STREQ(examples::pollCommand().words, L"poll");
  EXPECT_STREQ(examples::demoCommand().words, L"demo");
}

TEST(CommandsTest, MistakesNameTheChoices) {
  const auto unknown = [](const std::string& word) {
    return "unknown command \"" + word +
           "\"; known are poll, demo, state, alarm, get, set, align, clean, qr, network, firmware, pushscan and wifi";
  };
  EXPECT_EQ(mistakeOf({L"print"}), unknown("print"));
  EXPECT_EQ(mistakeOf({L"Get"}), unknown("Get"));
  EXPECT_EQ(mistakeOf({L"wifi list"}), unknown("wifi list"));
  EXPECT_EQ(mistakeOf({L"scenario\n.xml"}), unknown("scenario?.xml"));
  EXPECT_EQ(mistakeOf({L"help"}), "unknown command \"help\"; --help tells of all commands, COMMAND --help of one");
  EXPECT_EQ(mistakeOf({L"align"}), "align is followed by nothing; it takes print and values");
  EXPECT_EQ(mistakeOf({L"firmware", L"update"}),
            "firmware is followed by \"update\"; it takes register, check, upgrade and watch");
}

TEST(CommandsTest, OptionsBelongToTheirCommands) {
  const auto& join = findCommand({L"wifi", L"join"}).command;
  const auto& list = findCommand({L"wifi", L"list"}).command;
  EXPECT_NE(examples::findOption(L"--password", &join), nullptr);
  EXPECT_EQ(examples::findOption(L"--password", &list), nullptr);
  EXPECT_NE(examples::findOption(L"--password", nullptr), nullptr);
  EXPECT_NE(examples::findOption(L"--json", &list), nullptr);
  EXPECT_EQ(examples::findOption(L"--json", &examples::pollCommand()), nullptr);
  EXPECT_NE(examples::findOption(L"--log", &examples::pollCommand()), nullptr);
  EXPECT_EQ(examples::findOption(L"--colour", nullptr), nullptr);
}

bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

TEST(CommandsTest, HelpNamesEveryCommandAndOption) {
  for (const auto& command : examples::allCommands()) {
    EXPECT_TRUE(contains(examples::helpText(), std::wstring(L"\n  ") + command.words + L' '));
    const auto help = examples::helpText(command);
    for (const auto& option : command.options) EXPECT_TRUE(contains(help, option.name));
    for (const auto& option : examples::generalOptions()) EXPECT_TRUE(contains(help, option.name));
  }
  for (const auto* option : {L"--scenario FILE", L"--seconds N", L"--log", L"--help", L"--printer UID", L"--json"}) {
    EXPECT_TRUE(contains(examples::helpText(), option));
  }
}

TEST(CommandsTest, HelpOfOneCommandIsItsOwn) {
  const auto help = examples::helpText(findCommand({L"wifi", L"join"}).command);
  EXPECT_TRUE(contains(help, L"wifi join NAME --printer UID"));
  EXPECT_TRUE(contains(help, L"PRINTER_WIFI_PASSWORD"));
  EXPECT_TRUE(contains(help, L"the limit is 60 seconds"));
  EXPECT_FALSE(contains(help, L"firmware"));
}

TEST(CommandsTest, HelpOfSetNamesEveryParameterWithItsLimits) {
  const auto help = examples::helpText(findCommand({L"set"}).command);
  for (const auto* line : {L"  sleep-time VALUE                a whole number from -2147483648 to 2147483647\n",
                           L"  supplies-alarm                  takes no value; is set to 0\n",
                           L"  paper-alarm VALUE               a whole number from 0 to 255\n",
                           L"  timed-clear VALUE               a whole number from 0 to 255\n",
                           L"  silent-mode VALUE               a whole number from 0 to 255\n"}) {
    EXPECT_TRUE(contains(help, line)) << testing::PrintToString(help);
  }
}

TEST(CommandsTest, HelpOfThePollIsItsOwn) {
  const auto help = examples::helpText(examples::pollCommand());
  EXPECT_TRUE(contains(help, L"printer-console poll [OPTION...]\n"));
  EXPECT_TRUE(contains(help, L"the limit is 12 seconds"));
  EXPECT_FALSE(contains(help, L"firmware"));
}

TEST(CommandsTest, HelpOfAFirstWordNamesItsCommands) {
  for (const auto* first : {L"align", L"network", L"firmware", L"pushscan", L"wifi"}) {
    const auto help = examples::groupHelpText(first);
    for (const auto& command : examples::allCommands()) {
      EXPECT_EQ(contains(help, std::wstring(L"\n  ") + command.words + L' '),
                std::wstring(command.words).starts_with(first + std::wstring(L" ")))
          << testing::PrintToString(help);
    }
  }
  EXPECT_EQ(examples::groupHelpText(L"set"), L"");
  EXPECT_EQ(examples::groupHelpText(L"print"), L"");
}

TEST(CommandsTest, HelpTellsEveryExitCode) {
  const auto help = examples::helpText();
  const auto codes = help.substr(help.find(L"Exit code: "));
  for (const auto* code : {L": 0 ", L"; 1 ", L"; 2 ", L"; 130 after Ctrl-C."}) EXPECT_TRUE(contains(codes, code));
}

TEST(CommandsTest, NoTwoAreTheSame) {
  std::set<std::wstring> words;
  for (const auto& command : examples::allCommands()) words.insert(command.words);
  EXPECT_EQ(words.size(), examples::allCommands().size());
}

}  // namespace
