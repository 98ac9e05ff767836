#include "common/Report.h"

#include <gtest/gtest.h>

namespace {

using examples::Fields;
using examples::Outcome;
using examples::Report;
using examples::Values;
using Lines = std::vector<std::wstring>;

Lines textOf(const Report& report) { return examples::renderText(L"get", L"lab", report); }

TEST(ReportTest, ResultsThenWhatCameOfIt) {
  EXPECT_EQ(textOf({.results = {examples::number(L"sleep time", 10), examples::yesOrNo(L"DHCP", false),
                                examples::text(L"model", L"Desk 200")}}),
            (Lines{L"sleep time: 10", L"DHCP: no", L"model: Desk 200", L"get, lab: done"}));
}

TEST(ReportTest, EveryOutcomeHasItsWordsNameAndExitCode) {
  struct Case {
    Outcome outcome;
    const wchar_t* words;
    const wchar_t* name;
    int exitCode;
  };
  const Case cases[] = {
      {Outcome::Succeeded, L"done", L"succeeded", 0},
      {Outcome::Failed, L"failed", L"failed", 1},
      {Outcome::Refused, L"refused", L"refused", 1},
      {Outcome::TimedOut, L"timed out", L"timedOut", 1},
      {Outcome::Interrupted, L"interrupted", L"interrupted", 130},
  };
  for (const auto& [outcome, words, name, exitCode] : cases) {
    const Report report{.outcome = outcome, .reason = L"why"};
    EXPECT_EQ(textOf(report), (Lines{L"get, lab: " + std::wstring(words) + L": why"}));
    EXPECT_EQ(examples::renderJson(L"get", L"lab", report),
              LR"({"command":"get","printer":"lab","outcome":")" + std::wstring(name) + LR"(","reason":"why","results":{}})");
    EXPECT_EQ(examples::exitCode(outcome), exitCode);
  }
}

TEST(ReportTest, ListOfRecordsTakesALineForEach) {
  const Fields black{examples::text(L"color", L"black"), examples::number(L"percent", 62)};
  EXPECT_EQ(textOf({.results = {{L"supplies", {Values{{black}, {black}}}}}}),
            (Lines{L"supplies:", L"  color black, percent 62", L"  color black, percent 62", L"get, lab: done"}));
}

TEST(ReportTest, ListOfNumbersTakesOneLineAndNothingIsADash) {
  EXPECT_EQ(textOf({.results = {{L"alerts", {Values{examples::integer(12), examples::integer(-3)}}},
                                {L"none", {Values{}}},
                                examples::text(L"address", L"")}}),
            (Lines{L"alerts: 12, -3", L"none: -", L"address: -", L"get, lab: done"}));
}

TEST(ReportTest, CountBelowZeroIsWordsForAPersonAndTheNumberForAProgram) {
  const Report report{.results = {examples::count(L"jobs", -3), examples::count(L"pages", 0)}};
  EXPECT_EQ(textOf(report), (Lines{L"jobs: could not be read", L"pages: 0", L"get, lab: done"}));
  EXPECT_EQ(examples::renderJson(L"get", L"lab", report),
            LR"({"command":"get","printer":"lab","outcome":"succeeded","results":{"jobs":-3,"pages":0}})");
}

TEST(ReportTest, TextIsCutAndSteersNoTerminal) {
  const Values many(10000, examples::integer(-2147483648));
  const auto lines = textOf({.reason = L"a\x1b[H",
                             .results = {examples::text(L"model", std::wstring(100000, L'x')),
                                         examples::text(L"address", L"a\r\n\x1b[2J"),
                                         {L"alerts", {many}},
                                         {L"networks", {Values{{Fields{examples::text(L"name", L"\nx")}}}}}}});
  ASSERT_EQ(lines.size(), 6U);
  for (const auto& line : lines) EXPECT_LE(line.size(), examples::kMostTextInLine);
  EXPECT_EQ(lines[0].back(), L'~');
  EXPECT_EQ(lines[1], L"address: a???[2J");
  EXPECT_EQ(lines[4], L"  name ?x");
  EXPECT_EQ(lines[5], L"get, lab: done: a?[H");
}

TEST(ReportTest, JsonHasTheResultsInFull) {
  const std::wstring model(100000, L'x');
  EXPECT_EQ(examples::renderJson(L"state", L"a\"b", {.results = {examples::text(L"model", model)}}),
            LR"({"command":"state","printer":"a\"b","outcome":"succeeded","results":{"model":")" + model + LR"("}})");
}

}  // namespace
