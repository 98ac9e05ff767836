#include <algorithm>
#include <limits>

#include "Support.h"

namespace simulator::test {
namespace {

constexpr char neighbours[] =
    "<wifi segments='4' segment-time='300' join-segments='3' join-time='200'>"
    "<access-point name='Office' password='secret' security='wpa3' signal='80' segment='2'/>"
    "<access-point name='Guests' security='open' signal='0' segment='4'/>"
    "<access-point name='Lab' password='p' segment='2'/></wifi>";

AppMgr::WifiNetwork network(std::wstring_view name, std::wstring_view password) {
  AppMgr::WifiNetwork made;
  std::ranges::copy(name, made.name.begin());
  std::ranges::copy(password, made.password.begin());
  return made;
}

/// What a job's progress call answered.
struct Progress {
  int code = 0;
  std::int32_t segment = -7;

  friend bool operator==(const Progress&, const Progress&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Progress& progress) {
    return out << progress.code << ": " << progress.segment;
  }
};

Progress listProgress() {
  Progress now;
  now.code = AppMgr_GetPrinterWifiProgress(&now.segment);
  return now;
}

Progress joinProgress() {
  Progress now;
  now.code = AppMgr_PrinterWifiConfigProgress(&now.segment);
  return now;
}

class WifiFunctions : public SimulatorTest {
 protected:
  void load(const std::string& calls = "") {
    holdTime();
    loadScenarioText("<scenario><printer uid='a' manager-id='ma' connection='usb'>" + std::string(neighbours) + calls +
                     "</printer></scenario>");
    info = newPrinterInfo(L"a");
  }

  /// The number of segments.
  std::int32_t startList() {
    std::int32_t total = -7;
    EXPECT_EQ(AppMgr_GetPrinterWifiStart(&info, &total), success);
    return total;
  }

  std::vector<std::wstring> found() {
    std::vector<AppMgr::WifiNetwork> networks(1);  // the list is replaced
    EXPECT_EQ(AppMgr_GetPrinterWifiResult(&networks), success);
    std::vector<std::wstring> names;
    for (const auto& one : networks) names.emplace_back(one.name.data());
    return names;
  }

  std::int32_t startJoin(std::wstring_view name, std::wstring_view password) {
    auto wanted = network(name, password);
    std::int32_t total = -7;
    EXPECT_EQ(AppMgr_PrinterWifiConfigStart(&info, &wanted, &total), success);
    return total;
  }

  bool connected() { return AppPrinterSdk_IsNetConnected(&info, 0); }

  qzstd::PrinterInfo info;
};

TEST_F(WifiFunctions, NetworksAreFoundSegmentBySegment) {
  load();
  EXPECT_EQ(startList(), 4);
  EXPECT_EQ(listProgress(), (Progress{success, 0}));
  EXPECT_TRUE(found().empty());
  advanceTime(599ms);
  EXPECT_EQ(listProgress(), (Progress{success, 1}));
  EXPECT_TRUE(found().empty());
  advanceTime(1ms);
  EXPECT_EQ(listProgress(), (Progress{success, 2}));
  EXPECT_EQ(found(), (std::vector<std::wstring>{L"Office", L"Lab"}));
  advanceTime(600ms);
  EXPECT_EQ(listProgress(), (Progress{success, 4}));
  EXPECT_EQ(found(), (std::vector<std::wstring>{L"Office", L"Guests", L"Lab"}));
  advanceTime(1h);
  EXPECT_EQ(listProgress(), (Progress{success, 4}));
  AppMgr_GetPrinterWifiExit();
  EXPECT_EQ(listProgress(), (Progress{noJob, -7}));
}

TEST_F(WifiFunctions, EntriesTellSecurityAndSignalButNoPassword) {
  load();
  startList();
  advanceTime(1200ms);
  std::vector<AppMgr::WifiNetwork> networks;
  EXPECT_EQ(AppMgr_GetPrinterWifiResult(&networks), success);
  ASSERT_EQ(networks.size(), 3u);
  const std::int32_t securities[] = {2, 0, 1};
  const std::int32_t signals[] = {80, 0, 50};
  for (std::size_t i = 0; i < networks.size(); ++i) {
    EXPECT_EQ(networks[i].security, securities[i]);
    EXPECT_EQ(networks[i].signal, signals[i]);
    EXPECT_EQ(networks[i].password, (std::array<wchar_t, 256>{}));
  }
}

TEST_F(WifiFunctions, PrinterWithoutNeighboursFindsNone) {
  holdTime();
  loadScenarioText(onePrinter(""));
  info = newPrinterInfo(L"a");
  EXPECT_EQ(startList(), 4);
  advanceTime(1199ms);
  EXPECT_EQ(listProgress(), (Progress{success, 3}));
  advanceTime(1ms);
  EXPECT_EQ(listProgress(), (Progress{success, 4}));
  EXPECT_TRUE(found().empty());
}

TEST_F(WifiFunctions, SegmentsWithoutTimeAreDoneAtOnce) {
  loadScenarioText(onePrinter("", "<wifi segments='7' segment-time='0'><access-point name='n' segment='7'/></wifi>"));
  info = newPrinterInfo(L"a");
  EXPECT_EQ(startList(), 7);
  EXPECT_EQ(listProgress(), (Progress{success, 7}));
  EXPECT_EQ(found(), std::vector<std::wstring>{L"n"});
}

TEST_F(WifiFunctions, RightPasswordJoinsAtTheLastSegment) {
  load();
  EXPECT_FALSE(connected());
  EXPECT_EQ(startJoin(L"Office", L"secret"), 3);
  EXPECT_EQ(joinProgress(), (Progress{success, 0}));
  advanceTime(599ms);
  EXPECT_EQ(joinProgress(), (Progress{success, 2}));
  EXPECT_FALSE(connected());
  EXPECT_EQ(contents(L"a").joinedNetwork, L"");
  advanceTime(1ms);
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
  EXPECT_TRUE(connected());
  EXPECT_EQ(contents(L"a").joinedNetwork, L"Office");
  AppMgr_PrinterWifiConfigExit();
  EXPECT_EQ(joinProgress(), (Progress{noJob, -7}));
  EXPECT_TRUE(connected());
}

TEST_F(WifiFunctions, OthersFailAtTheLastSegment) {
  for (const auto& [name, password] :
       {std::pair{L"Office", L"Secret"}, {L"Office", L""}, {L"Office", L"secret2"}, {L"Nobody", L"secret"}, {L"", L""}}) {
    load();
    EXPECT_EQ(startJoin(name, password), 3);
    advanceTime(400ms);
    EXPECT_EQ(joinProgress(), (Progress{success, 2})) << name;
    advanceTime(200ms);
    EXPECT_EQ(joinProgress(), (Progress{notJoined, 3})) << name;
    EXPECT_FALSE(connected());
    EXPECT_EQ(contents(L"a").joinedNetwork, L"");
  }
}

TEST_F(WifiFunctions, OpenNetworkTakesAnyPassword) {
  load();
  startJoin(L"Guests", L"whatever");
  advanceTime(600ms);
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
  EXPECT_EQ(contents(L"a").joinedNetwork, L"Guests");
}

TEST_F(WifiFunctions, FailedJoinLeavesTheNetworkThatWasJoined) {
  load();
  startJoin(L"Guests", L"");
  advanceTime(600ms);
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
  startJoin(L"Office", L"wrong");
  advanceTime(600ms);
  EXPECT_EQ(joinProgress(), (Progress{notJoined, 3}));
  EXPECT_EQ(contents(L"a").joinedNetwork, L"Guests");
  EXPECT_TRUE(connected());
}

TEST_F(WifiFunctions, ExitBeforeTheEndJoinsNothing) {
  load();
  startJoin(L"Guests", L"");
  advanceTime(1h);
  AppMgr_PrinterWifiConfigExit();
  EXPECT_FALSE(connected());
}

TEST_F(WifiFunctions, NoNetworkHasNoSegmentsAndFails) {
  load();
  std::int32_t total = -7;
  EXPECT_EQ(AppMgr_PrinterWifiConfigStart(&info, nullptr, &total), success);
  EXPECT_EQ(total, 0);
  EXPECT_EQ(joinProgress(), (Progress{notJoined, 0}));
}

TEST_F(WifiFunctions, TextsMayFillTheirArrays) {
  const std::string name(127, 'n');
  const std::string password(255, 'p');
  loadScenarioText(onePrinter(
      "", "<wifi join-time='0' segment-time='0'><access-point name='" + name + "' password='" + password + "'/></wifi>"));
  info = newPrinterInfo(L"a");
  auto wanted = network(std::wstring(127, L'n'), std::wstring(255, L'p'));
  std::int32_t total = 0;
  EXPECT_EQ(AppMgr_PrinterWifiConfigStart(&info, &wanted, &total), success);
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
  wanted.name.fill(L'n');  // without a last zero
  wanted.password.fill(L'p');
  EXPECT_EQ(AppMgr_PrinterWifiConfigStart(&info, &wanted, &total), success);
  EXPECT_EQ(joinProgress(), (Progress{notJoined, 3}));
  startList();
  EXPECT_EQ(found(), std::vector<std::wstring>{std::wstring(127, L'n')});
}

TEST_F(WifiFunctions, EachThreadAndKindHasItsOwnJob) {
  holdTime();
  loadScenarioText(twoPrinters(neighbours));
  info = newPrinterInfo(L"a");
  startList();
  advanceTime(300ms);
  startJoin(L"Guests", L"");
  OtherThread other;
  other.does([] {
    auto printer = newPrinterInfo(L"b");
    std::int32_t total = 0;
    EXPECT_EQ(AppMgr_GetPrinterWifiStart(&printer, &total), success);
  });
  advanceTime(600ms);
  EXPECT_EQ(listProgress(), (Progress{success, 3}));
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
  other.does([] {
    EXPECT_EQ(listProgress(), (Progress{success, 2}));
    EXPECT_EQ(joinProgress(), (Progress{noJob, -7}));
    AppMgr_GetPrinterWifiExit();
  });
  EXPECT_EQ(listProgress(), (Progress{success, 3}));
  EXPECT_EQ(contents(L"a").joinedNetwork, L"Guests");
  EXPECT_EQ(contents(L"b").joinedNetwork, L"");
}

TEST_F(WifiFunctions, FailedCallsDoNothing) {
  load(callOf("AppMgr_PrinterWifiConfigStart", "<fail code='-1' call='2'/>") +
       callOf("AppMgr_PrinterWifiConfigProgress", "<fail code='-2' call='1'/>") +
       callOf("AppMgr_GetPrinterWifiStart", "<fail code='-3'/>"));
  startJoin(L"Guests", L"");
  advanceTime(600ms);
  EXPECT_EQ(joinProgress(), (Progress{-2, -7}));
  EXPECT_FALSE(connected());
  std::int32_t total = -7;
  EXPECT_EQ(AppMgr_PrinterWifiConfigStart(&info, nullptr, &total), -1);  // does not replace the job
  EXPECT_EQ(AppMgr_GetPrinterWifiStart(&info, &total), -3);
  EXPECT_EQ(total, -7);
  EXPECT_EQ(listProgress(), (Progress{noJob, -7}));
  EXPECT_EQ(joinProgress(), (Progress{success, 3}));
}

TEST_F(WifiFunctions, GarbageNumbersGoToTheExtremes) {
  using Int32 = std::numeric_limits<std::int32_t>;
  load(callOf("AppMgr_GetPrinterWifiStart", "<garbage/>") + callOf("AppMgr_GetPrinterWifiProgress", "<garbage calls='3'/>") +
       callOf("AppMgr_PrinterWifiConfigStart", "<garbage/>") +
       callOf("AppMgr_PrinterWifiConfigProgress", "<garbage calls='3'/>"));
  for (const std::int32_t total : {Int32::min(), Int32::max(), Int32::min()}) {
    EXPECT_EQ(startList(), total);
    EXPECT_EQ(startJoin(L"Nobody", L""), total);
  }
  advanceTime(1h);
  for (const std::int32_t segment : {-1, Int32::min(), Int32::max()}) {
    EXPECT_EQ(listProgress(), (Progress{success, segment}));
    EXPECT_EQ(joinProgress(), (Progress{success, segment}));
  }
  EXPECT_EQ(listProgress(), (Progress{success, 4}));  // the jobs themselves know nothing of it
  EXPECT_EQ(joinProgress(), (Progress{notJoined, 3}));
}

TEST_F(WifiFunctions, GarbageListIsLongAndWithoutZeros) {
  load(callOf("AppMgr_GetPrinterWifiResult", "<garbage/>"));
  startList();
  std::vector<AppMgr::WifiNetwork> networks;
  EXPECT_EQ(AppMgr_GetPrinterWifiResult(&networks), success);
  ASSERT_EQ(networks.size(), 10'000u);
  for (const std::size_t i : {0u, 9'999u}) {
    EXPECT_EQ(std::ranges::count(networks[i].name, L'\0'), 0);
    EXPECT_EQ(std::ranges::count(networks[i].password, L'\0'), 0);
    EXPECT_LT(networks[i].security, 0);
    EXPECT_GT(networks[i].signal, 100);
  }
}

}  // namespace
}  // namespace simulator::test
