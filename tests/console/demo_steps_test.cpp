#include <gtest/gtest.h>

#include <set>

#include "console/Demo.h"
#include "console/Options.h"

namespace {

TEST(DemoTest, ShowsEveryOperationOnce) {
  std::set<AppComm::Type> types;
  for (const auto& step : examples::demoSteps()) {
    const auto options = examples::parseOptions(step.arguments);
    if (examples::isOperation(*options.command)) types.insert(options.command->newOperation(options.request)->type());
  }
  EXPECT_EQ(types.size(), 22U);
}

TEST(DemoTest, EveryOperationNamesItsPrinter) {
  for (const auto& step : examples::demoSteps()) {
    const auto options = examples::parseOptions(step.arguments);
    EXPECT_EQ(options.printer.has_value(), examples::isOperation(*options.command)) << testing::PrintToString(step.arguments);
  }
}

TEST(DemoTest, BeginsWithAShortPoll) {
  const auto options = examples::parseOptions(examples::demoSteps().front().arguments);
  EXPECT_EQ(options.command, &examples::pollCommand());
  EXPECT_LE(options.limit, std::chrono::seconds(5));
}

TEST(DemoTest, PasswordIsNotShown) {
  EXPECT_EQ(examples::shownCommand({L"wifi", L"join", L"My Office", L"--password", L"not so secret", L"--json"}),
            L"printer-console wifi join \"My Office\" --password *** --json");
}

TEST(DemoTest, PrintersAreThoseOfItsSteps) {
  EXPECT_EQ(examples::demoPrinters(), (std::vector<std::wstring>{L"usb-lab", L"net-hall"}));
}

}  // namespace
