#include "console/Table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using namespace std::chrono_literals;
using examples::Row;
using Lines = std::vector<std::wstring>;

constexpr std::size_t kWide = 130;
constexpr std::size_t kTall = 50;

Row newRow(const std::wstring& name = L"Desk printer") {
  Row row;
  row.uid = L"usb-desk";
  row.name = name;
  return row;
}

/// As after one notice of a run that has read the printer.
Row readRow() {
  auto row = newRow();
  row.last = examples::Reading{};
  row.last->state.queried = true;
  row.last->state.jobs = 2;
  row.last->deviceStatus = 3;
  row.last->supplies = {{L"black", 62}, {L"cyan", 48}};
  row.notices = 1;
  row.reads = 1;
  row.sinceLast = 1299ms;
  return row;
}

std::wstring tableRow(const Row& row, std::size_t width = kWide) { return examples::renderTable({row}, width, kTall).at(1); }

TEST(TableTest, HasHeadingsAndOneLinePerPrinter) {
  auto network = readRow();
  network.connectionKind = 1;
  network.last->deviceStatus = 0;
  EXPECT_EQ(examples::renderTable({readRow(), network}, kWide, kTall),
            (Lines{
                L"PRINTER               CONNECTION  STATUS        JOBS   QUERIED       LAST NOTICE  SUPPLIES",
                L"Desk printer          USB         status 3      2      yes           1.2 s        black 62% cyan 48%",
                L"Desk printer          network     ready         2      yes           1.2 s        black 62% cyan 48%",
            }));
}

TEST(TableTest, WithoutPrintersThereAreTheHeadings) { EXPECT_EQ(examples::renderTable({}, kWide, kTall).size(), 1U); }

TEST(TableTest, BeforeTheFirstNoticeNothingIsKnown) {
  EXPECT_EQ(tableRow(newRow()), L"Desk printer          USB         -             -      -             none yet     -");
}

TEST(TableTest, RunThatReadNothingSaysSo) {
  auto row = readRow();
  row.last->state.queried = false;
  EXPECT_EQ(tableRow(row),
            L"Desk printer          USB         status 3      2      no            1.2 s        black 62% cyan 48%");
}

TEST(TableTest, StatusIsUnknownUntilAReadSucceeded) {
  auto row = readRow();
  row.last->state.result = -7;
  row.failures = 1;
  row.last->supplies.clear();
  EXPECT_EQ(tableRow(row), L"Desk printer          USB         unknown       2      failed -7     1.2 s        -");
  row.reads = 2;
  EXPECT_EQ(tableRow(row), L"Desk printer          USB         status 3      2      failed -7     1.2 s        -");
}

TEST(TableTest, WhatDoesNotFitItsColumnIsCut) {
  auto row = readRow();
  row.name = L"A printer with a long name";
  row.connectionKind = std::numeric_limits<std::int32_t>::min();
  row.last->deviceStatus = std::numeric_limits<std::int32_t>::min();
  row.last->state.jobs = std::numeric_limits<std::int32_t>::min();
  row.last->state.result = std::numeric_limits<std::int32_t>::min();
  row.sinceLast = 100h;
  EXPECT_EQ(tableRow(row),
            L"A printer with a lo~  kind -214~  status -214~  error  failed -214~  360000.0 s   black 62% cyan 48%");
}

TEST(TableTest, NoLineIsLongerThanTheWindow) {
  for (std::size_t width = 1; width <= kWide; ++width) {
    for (const auto& line : examples::renderTable({readRow(), newRow()}, width, 2)) EXPECT_LE(line.size(), width);
  }
  EXPECT_EQ(tableRow(readRow(), 90),
            L"Desk printer          USB         status 3      2      yes           1.2 s        black 6~");
}

TEST(TableTest, PrintersWithoutRoomAreCounted) {
  const std::vector<Row> rows(5, newRow());
  EXPECT_EQ(examples::renderTable(rows, kWide, 6).size(), 6U);
  const auto lines = examples::renderTable(rows, kWide, 5);
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines.back(), L"and 2 more, for which there is no room");
  EXPECT_EQ(examples::renderTable(rows, kWide, 2).back(), L"and 5 more, for which there is no room");
}

TEST(TableTest, CharactersThatWouldSteerTheTerminalAreReplaced) {
  auto row = readRow();
  row.name = L"Desk\r\n\x1b[2J";
  row.last->supplies = {{L"bl\nack", 62}};
  EXPECT_EQ(tableRow(row), L"Desk???[2J            USB         status 3      2      yes           1.2 s        bl?ack 62%");
  EXPECT_NE(examples::renderSummary({row})[0].find(L"Desk???[2J: "), std::wstring::npos);
  row.uid = L"a\x1b[H";
  EXPECT_NE(examples::renderLine(row, 0s).find(L"a?[H"), std::wstring::npos);
}

TEST(TableTest, CutDoesNotSplitACharacterOfTwoUnits) {
  const std::wstring upToTheCut(18, L'x');
  EXPECT_EQ(tableRow(newRow(upToTheCut + wchar_t{0xd83d} + wchar_t{0xdda8} + L"yy")).substr(0, 20), upToTheCut + L"~ ");
}

TEST(TableTest, ThousandsOfSuppliesAndEndlessTextsAreCut) {
  auto row = readRow();
  row.last->supplies.assign(10000, {L"magenta", -2147483648});
  EXPECT_EQ(tableRow(row).size(), kWide);
  row.last->supplies.assign(1, {std::wstring(100000, L'x'), 1});
  EXPECT_EQ(tableRow(row).size(), kWide);
  EXPECT_EQ(tableRow(row).back(), L'~');
  EXPECT_LT(examples::renderLine(row, 0s).size(), 200U);
  row.name = std::wstring(4096, L'n');
  EXPECT_LT(examples::renderSummary({row})[0].size(), 200U);
}

TEST(LineTest, SaysTheSameAsTheTable) {
  EXPECT_EQ(examples::renderLine(readRow(), 12345ms),
            L"12.3 s  usb-desk  USB, status 3, jobs 2, queried yes, last notice 1.2 s, supplies black 62% cyan 48%");
  EXPECT_EQ(examples::renderLine(newRow(), 0ms),
            L"0.0 s  usb-desk  USB, -, jobs -, queried -, last notice none yet, supplies -");
}

TEST(LineTest, JobsThatCouldNotBeReadAreWords) {
  auto row = readRow();
  row.last->state.jobs = -1;
  EXPECT_EQ(examples::renderLine(row, 12345ms),
            L"12.3 s  usb-desk  USB, status 3, jobs could not be read, queried yes, last notice 1.2 s, supplies black 62% cyan "
            L"48%");
}

TEST(SummaryTest, CountsEachPrinterAndAll) {
  auto first = newRow(L"First");
  first.notices = 10;
  first.reads = 5;
  first.failures = 2;
  auto second = newRow(L"Second");
  second.notices = 1;
  EXPECT_EQ(examples::renderSummary({first, second}), (Lines{
                                                          L"First: notices 10, state reads 5, of these failed 2",
                                                          L"Second: notices 1, state reads 0, of these failed 0",
                                                          L"All together: notices 11, state reads 5, of these failed 2",
                                                      }));
}

}  // namespace
