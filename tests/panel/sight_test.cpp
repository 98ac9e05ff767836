#include "examples/panel/Sight.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <any>
#include <limits>

#include "Records.h"
#include "common/Report.h"

namespace {

using panel::Sight;
using panel::SightBoard;

struct Watched {
  /// One run of the task: what the module does for it.
  bool run(const AppComm::State& state) {
    *std::any_cast<std::shared_ptr<AppComm::State>>(operation->resource(operation)) = state;
    const bool more = operation->noticed();
    operation->report(printer);
    return more;
  }
  std::wstring field(const std::wstring& name) const {
    const auto sight = board->get();
    const auto found = std::ranges::find(sight->fields, name, &examples::Field::name);
    return found == sight->fields.end() ? L"no such field" : std::get<std::wstring>(found->value.value);
  }

  const std::shared_ptr<SightBoard> board = std::make_shared<SightBoard>();
  const std::shared_ptr<examples::Operation> operation = panel::newWatch(board);
  qzstd::PrinterInfo printer;
};

TEST(SightTest, StateIsSaidInWords) {
  struct Row {
    Sight sight;
    const wchar_t* words;
  };
  const Row rows[]{
      {{}, L"ready"},
      {{.deviceStatus = 1}, L"takes no changes just now"},
      {{.deviceStatus = 11}, L"takes changes"},
      {{.deviceStatus = 3}, L"busy (status 3)"},
      {{.deviceStatus = std::numeric_limits<std::int32_t>::min()}, L"busy (status -2147483648)"},
      {{.jobs = 2, .deviceStatus = 3}, L"prints"},
      {{.jobs = -3}, L"ready, jobs unknown"},
      {{.result = -7, .jobs = 2}, L"no answer (code -7)"},
  };
  for (const auto& row : rows) EXPECT_EQ(panel::statusText(row.sight), row.words);
  EXPECT_EQ(panel::statusText(std::nullopt), L"no answer yet");
}

TEST(SightTest, BoardIsEmptyUntilTheFirstRun) { EXPECT_FALSE(Watched().board->get().has_value()); }

TEST(SightTest, WatchGoesOnAndPutsEachRunOnTheBoard) {
  Watched watched;
  watched.printer.deviceStatus = 3;
  EXPECT_TRUE(watched.operation->repeats());
  EXPECT_TRUE(watched.run({.jobs = 1}));
  EXPECT_EQ(watched.board->get()->jobs, 1);
  EXPECT_TRUE(watched.run({.jobs = 0}));
  EXPECT_EQ(watched.board->get()->jobs, 0);
  EXPECT_EQ(watched.field(L"Status"), L"busy (status 3)");
}

TEST(SightTest, SuppliesAndAlertsAreListed) {
  Watched watched;
  watched.run({});
  EXPECT_EQ(watched.field(L"Supplies"), L"none");
  EXPECT_EQ(watched.field(L"Alerts"), L"none");
  watched.printer.supplies = {{L"black", 62}, {L"cyan", 5}};
  watched.printer.alerts = {21, 12};
  watched.run({});
  EXPECT_EQ(watched.field(L"Supplies"), L"black 62 %, cyan 5 %");
  EXPECT_EQ(watched.field(L"Alerts"), L"21, 12");
}

TEST(SightTest, TextsStayShortWhateverThePrinterReports) {
  Watched watched;
  watched.printer.supplies.assign(10'000, {L"black", 50});
  watched.printer.alerts.assign(10'000, 7);
  watched.run({});
  EXPECT_LT(watched.field(L"Supplies").size(), 2 * examples::kMostTextInLine);
  EXPECT_LT(watched.field(L"Alerts").size(), 2 * examples::kMostTextInLine);
}

}  // namespace
