#include "fuzz/ScenarioLimits.h"

#include <gtest/gtest.h>

#include <set>

namespace fuzz {
namespace {

using simulator::Answer;
using simulator::FaultKind;
using simulator::milliseconds;

constexpr std::int64_t kHour = 3'600'000;  // milliseconds
constexpr std::int64_t kDay = 24 * kHour;

void expectWithin(const char* what, std::int64_t value, std::int64_t smallest, std::int64_t largest) {
  if (value < smallest || value > largest) ADD_FAILURE() << what << " is " << value;
}
void expectWithin(const char* what, milliseconds time, std::int64_t smallest, std::int64_t largest) {
  expectWithin(what, time.count(), smallest, largest);
}
void expectLength(const char* what, const std::wstring& text, std::size_t shortest, std::size_t longest) {
  expectWithin(what, static_cast<std::int64_t>(text.size()), static_cast<std::int64_t>(shortest),
               static_cast<std::int64_t>(longest));
}
void expectText(const char* what, const std::wstring& text) { expectLength(what, text, 0, 4096); }

/// One of each.
template <typename Items, typename Key>
void expectUnique(const char* what, const Items& items, Key key) {
  std::set<std::decay_t<std::invoke_result_t<Key, decltype(*items.begin())>>> seen;
  for (const auto& item : items) EXPECT_TRUE(seen.insert(std::invoke(key, item)).second) << "two " << what << " alike";
}

void expectReadings(const simulator::Readings& readings) {
  expectWithin("jobs", readings.jobs, 0, 100'000);
  expectText("address", readings.address);
  expectWithin("supplies", std::ssize(readings.supplies), 0, 64);
  expectWithin("alerts", std::ssize(readings.alerts), 0, 1'000);
  expectUnique("supplies", readings.supplies, &qzstd::Supply::color);
  expectUnique("alerts", readings.alerts, std::identity{});
  for (const auto& supply : readings.supplies) {
    expectLength("color", supply.color, 1, 256);
    expectWithin("percent", supply.percent, 0, 100);
  }
}

void expectTimeline(const simulator::Printer& printer) {
  milliseconds last{};
  for (const auto& change : printer.timeline) {
    expectWithin("time of a change", change.at, last.count(), kDay);
    last = change.at;
    expectReadings(readingsAt(printer, change.at));
  }
}

void expectFault(const simulator::Fault& fault, Answer answer) {
  if (answer == Answer::nothing) {
    EXPECT_EQ(fault.kind, FaultKind::hang);
  }
  if (fault.kind == FaultKind::fail && answer == Answer::code) {
    EXPECT_NE(fault.code, 0);
  }
  if (fault.kind == FaultKind::fail && answer == Answer::count) {
    EXPECT_LT(fault.code, 0);
  }
  if (fault.kind == FaultKind::fail && answer == Answer::flag) {
    EXPECT_EQ(fault.code, 0);
  }
  if (fault.length) expectWithin("length of a hang", *fault.length, 1, kHour);
  expectWithin("first call", fault.fromCall, 1, 1'000'000'000);
  if (fault.calls != 0xFFFFFFFF) expectWithin("calls", fault.calls, 1, 1'000'000'000);
  expectWithin("begin", fault.from, 0, kDay);
  if (fault.until != milliseconds::max()) expectWithin("end", fault.until, fault.from.count() + 1, kDay);
}

void expectCalls(const simulator::Printer& printer) {
  for (const auto& row : simulator::functionTable) {
    const auto& behaviour = printer.behaviour.at(indexOf(row.function));
    expectWithin("shortest latency", behaviour.latency.min, 0, 600'000);
    expectWithin("longest latency", behaviour.latency.max, behaviour.latency.min.count(), 600'000);
    for (const auto& fault : behaviour.faults) expectFault(fault, row.answer);
  }
}

void expectJobs(const simulator::Printer& printer) {
  const auto& firmware = printer.firmware;
  expectWithin("size", firmware.size, 1, 2147483647);
  expectWithin("rate", firmware.rate, 1, 2147483647);
  if (firmware.failAt) expectWithin("fail-at", *firmware.failAt, 0, firmware.size);
  expectWithin("restart", firmware.restart, 0, kHour);
  expectText("version", firmware.version.value_or(L""));
  expectWithin("check-time", printer.upgradeService.checkTime, 0, kHour);
  expectText("new-version", printer.upgradeService.newVersion.value_or(L""));
  expectText("notes", printer.upgradeService.notes);
}

void expectWifi(const simulator::Wifi& wifi) {
  expectWithin("segments", wifi.segments, 1, 1'000);
  expectWithin("segment-time", wifi.segmentTime, 0, kHour);
  expectWithin("join-segments", wifi.joinSegments, 1, 1'000);
  expectWithin("join-time", wifi.joinTime, 0, kHour);
  expectWithin("access points", std::ssize(wifi.accessPoints), 0, 1'000);
  expectUnique("access points", wifi.accessPoints, &simulator::AccessPoint::name);
  for (const auto& point : wifi.accessPoints) {
    expectLength("name", point.name, 1, 127);
    expectLength("password", point.password, 0, 255);
    expectWithin("security", point.security, 0, 2);
    expectWithin("signal", point.signal, 0, 100);
    expectWithin("segment", point.segment, 1, wifi.segments);
  }
}

void expectPrinter(const simulator::Printer& printer) {
  const auto& info = printer.description;
  expectLength("uid", info.uid, 1, 256);
  expectLength("manager-id", info.managerId, 1, 256);
  expectWithin("connection", info.connectionKind, 0, 1);
  expectWithin("interval", info.interval, 1, kHour);
  for (const auto* text : {&info.name, &info.upgradeKey, &printer.model, &printer.serialNumber, &printer.firmwareVersion}) {
    expectText("text", *text);
  }
  EXPECT_TRUE(info.model.empty() && info.supplies.empty() && info.alerts.empty()) << "a state read fills these";
  expectWithin("page-time", printer.pageTime, 0, kHour);
  expectWithin("clean-time", printer.cleanTime, 0, kHour);
  expectReadings(printer.initial);
  expectTimeline(printer);
  expectCalls(printer);
  expectJobs(printer);
  expectWifi(printer.wifi);
}

}  // namespace

void expectWithinLimits(const simulator::Scenario& scenario) {
  expectWithin("seed", static_cast<std::int64_t>(scenario.seed), 0, 2147483647);
  expectWithin("printers", std::ssize(scenario.printers), 1, 256);
  expectUnique("uids", scenario.printers, [](const auto& printer) { return printer.description.uid; });
  expectUnique("manager ids", scenario.printers, [](const auto& printer) { return printer.description.managerId; });
  for (const auto& printer : scenario.printers) expectPrinter(printer);
}

}  // namespace fuzz
