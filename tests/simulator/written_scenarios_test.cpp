#include <algorithm>
#include <set>

#include "Support.h"
#include "simulator/Functions.h"

/// The scenarios that are written for people: the built-in one, the examples and the one in the documentation.
namespace simulator::test {
namespace {

using WrittenScenarios = SimulatorTest;

std::string codeBlockOf(const std::string& markdown, const std::string& language) {
  const std::string fence = "```" + language + "\n";
  const auto start = markdown.find(fence);
  if (start == std::string::npos) return "";
  return markdown.substr(start + fence.size(), markdown.find("```", start + fence.size()) - start - fence.size());
}

TEST_F(WrittenScenarios, ExamplesLoad) {
  loadScenarioFile(sourceFile(L"examples/scenarios/default.xml"));
  EXPECT_EQ(printerUids(), (std::vector<std::wstring>{L"usb-desk", L"net-hall", L"usb-lab"}));
  loadScenarioFile(sourceFile(L"examples/scenarios/troubled.xml"));
  EXPECT_EQ(printerUids().size(), 5u);
}

TEST_F(WrittenScenarios, ExampleInTheDocumentationLoads) {
  const std::string example = codeBlockOf(contentsOf(sourceFile(L"docs/scenario.md")), "xml");
  loadScenarioText(example, "docs/scenario.md");
  EXPECT_EQ(printerUids(), (std::vector<std::wstring>{L"usb-1", L"net-1"}));
  EXPECT_EQ(contents(L"usb-1").parameters, (DeviceParameters{15, 1, 1, 0, 2}));
  EXPECT_EQ(contents(L"usb-1").alignment.corrections, (std::array<std::int32_t, 6>{0, 0, -3, 0, 12, 0}));
}

TEST_F(WrittenScenarios, DocumentationHasEveryFunctionInItsTableOnce) {
  const std::string text = contentsOf(sourceFile(L"docs/scenario.md"));
  const auto start = text.find("| function | returns | garbage |");
  const std::string table = text.substr(start, text.find("\n\n", start) - start);
  for (const FunctionRow& row : functionTable) {
    const std::string name = "`" + std::string(row.name) + "`";
    const auto place = table.find(name);
    ASSERT_NE(place, std::string::npos) << name;
    EXPECT_EQ(table.find(name, place + 1), std::string::npos) << name;
  }
}

TEST_F(WrittenScenarios, DocumentationExplainsEveryAttributeOfItsExample) {
  const std::string text = contentsOf(sourceFile(L"docs/scenario.md"));
  const std::string example = codeBlockOf(text, "xml");
  const std::string rest = text.substr(text.find("## Elements"));
  std::set<std::string> names;
  for (std::size_t end = example.find('='); end != std::string::npos; end = example.find('=', end + 1)) {
    const auto start = example.find_last_of(" \n", end) + 1;
    names.insert(example.substr(start, end - start));
  }
  EXPECT_GE(names.size(), 50u);
  for (const std::string& name : names) EXPECT_NE(rest.find("`" + name + "`"), std::string::npos) << name;
}

/// All that can be seen of the built-in scenario in its first 15 seconds, asked every 500 ms.
struct Seen {
  std::set<int> jobs;
  std::set<int> statuses;
  std::set<int> results;
  std::set<int> supplies;
  std::set<std::wstring> addresses;
  int addressChanges = 0;
};

Seen watch(const std::wstring& uid) {
  Seen seen;
  auto info = newPrinterInfo(uid);
  for (auto time = 0ms; time < 15s; time += 500ms, advanceTime(500ms)) {
    bool changed = false;
    seen.jobs.insert(AppMgr_GetPrintingJob(info.managerId.c_str()));
    AppMgr_CheckIpChange(&info, &changed);
    seen.addressChanges += changed ? 1 : 0;
    seen.results.insert(AppPrinterSdk_GetState(&info));
    seen.statuses.insert(info.deviceStatus);
    seen.addresses.insert(info.address);
    for (const qzstd::Supply& supply : info.supplies) seen.supplies.insert(supply.percent);
  }
  return seen;
}

/// The built-in scenario without its latencies, which nobody would end while time is held.
void loadDefaultWithoutLatency() {
  std::string text = contentsOf(sourceFile(L"examples/scenarios/default.xml"));
  for (const std::string attributes : {"latency-min=\"5\" latency-max=\"40\"", "latency-min=\"30\" latency-max=\"120\""}) {
    const auto place = text.find(attributes);
    ASSERT_NE(place, std::string::npos);
    text.erase(place, attributes.size());
  }
  holdTime();
  loadScenarioText(text);
}

TEST_F(WrittenScenarios, BuiltInOneShowsAUsbPrinterAtWork) {
  loadDefaultWithoutLatency();
  EXPECT_EQ(newPrinterInfo(L"usb-desk").connectionKind, 0);
  const Seen seen = watch(L"usb-desk");
  EXPECT_EQ(seen.jobs, (std::set<int>{0, 1, 2}));
  EXPECT_GE(seen.statuses.size(), 2u);
  EXPECT_GE(seen.supplies.size(), 6u);
  EXPECT_EQ(seen.results, std::set<int>{0});
}

TEST_F(WrittenScenarios, BuiltInOneShowsANetworkPrinterThatMovesAndFailsOnce) {
  loadDefaultWithoutLatency();
  EXPECT_EQ(newPrinterInfo(L"net-hall").connectionKind, 1);
  const Seen seen = watch(L"net-hall");
  EXPECT_EQ(seen.jobs, (std::set<int>{0, 1, 2, 3}));
  EXPECT_EQ(seen.addressChanges, 1);
  EXPECT_GE(seen.addresses.size(), 2u);
  EXPECT_GE(seen.statuses.size(), 3u);
  EXPECT_EQ(seen.results, (std::set<int>{-7, 0}));
}

}  // namespace
}  // namespace simulator::test
