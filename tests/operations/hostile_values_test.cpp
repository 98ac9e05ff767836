// Every number that steers an operation, every length and sequence from a library, with the worst that can come: nothing
// overflows, nothing is read beyond what is there, and each operation ends as it does otherwise. The sanitizers look on. How
// far a transfer is, is tested in numbers where it is computed.

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "operations/TableTest.h"

namespace {

using AppComm::FirmUp;
using AppComm::State;
using AppComm::Type;
using AppComm::WIFI;
using AppMgr::WifiNetwork;

constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kNumbers[] = {kLeast, kLeast + 1, -1, 0, 1, kMost - 1, kMost};

std::string text(std::int32_t number) { return std::to_string(number); }

// The answers to out parameters: the first pair is that of the first poll, the second that of every later one.
class HostilePrinter : public AnsweringPrinter {
 public:
  using AnsweringPrinter::AnsweringPrinter;

  struct Pair {
    std::int32_t done;
    std::int32_t total;
  };

  Pair first{};
  Pair later{};
  std::vector<WifiNetwork> networks;
  std::vector<std::wstring> versions{4};
  qzstd::PrinterInfo state;
  int polls = 0;

  int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total) override {
    *total = pair().total;
    return poll(current);
  }
  int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* /*printer*/, std::int32_t* total) override { return begin(total); }
  int AppMgr_GetPrinterWifiProgress(std::int32_t* segment) override { return poll(segment); }
  int AppMgr_GetPrinterWifiResult(std::vector<WifiNetwork>* list) override {
    *list = networks;
    return 0;
  }
  int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* /*printer*/, WifiNetwork* /*network*/, std::int32_t* total) override {
    return begin(total);
  }
  int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment) override { return poll(segment); }

  bool AppSdk_TriggerFwUpgradeResult(bool* ok, std::wstring* fourTexts) override {
    *ok = true;
    std::copy_n(versions.begin(), 4, fourTexts);
    return true;
  }

  int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) override {
    printer->model = state.model;
    printer->serialNumber = state.serialNumber;
    printer->deviceStatus = state.deviceStatus;
    printer->supplies = state.supplies;
    printer->alerts = state.alerts;
    return AnsweringPrinter::AppPrinterSdk_GetState(printer);
  }

 private:
  const Pair& pair() const { return polls == 0 ? first : later; }
  int begin(std::int32_t* total) const {
    *total = first.total;
    return 0;
  }
  int poll(std::int32_t* done) {
    *done = pair().done;
    ++polls;
    return 0;
  }
};

class HostileValuesTest : public OperationTestWith<HostilePrinter> {
 protected:
  HostileValuesTest() : OperationTestWith("") {}

  int run(Type operation, const std::any& resource, const std::vector<std::shared_ptr<AppComm::Node>>& observers = {}) {
    type = operation;
    libraries.polls = 0;
    std::vector<std::shared_ptr<AppComm::Node>> tasks{task(7, resource)};
    tasks.insert(tasks.end(), observers.begin(), observers.end());
    return handlerRowOf(operation).handler(entryOf(tasks));
  }

  bool wasLogged(const std::string& line) {
    return std::ranges::any_of(journal.entries(), [&](const auto& entry) { return entry.ends_with(line); });
  }
};

TEST_F(HostileValuesTest, AJobCountOfAnySizeIsTakenForWhatItsSignSays) {
  for (const auto jobs : kNumbers) {
    SCOPED_TRACE(jobs);
    libraries.answers["AppMgr_GetPrintingJob"] = jobs;
    const auto sent = std::make_shared<AppComm::Maintain>(AppComm::Maintain{.result = 99});

    run(Type::PrintClean, sent);

    EXPECT_EQ(sent->busy, jobs > 0);
    EXPECT_EQ(sent->result, jobs > 0 ? 99 : 0);
    for (const std::int32_t kind : {kLeast, 0, 1, kMost}) {
      printer->connectionKind = kind;
      const auto state = std::make_shared<State>();
      run(Type::State, state);
      EXPECT_EQ(state->jobs, jobs);
      EXPECT_EQ(state->queried, kind == 1 && jobs > 0);
    }
  }
}

TEST_F(HostileValuesTest, AnyOtherDeviceStatusThanTheKnownOnesIsBusy) {
  for (const auto status : {kLeast, -11, -1, 2, 10, 12, 256, 267, kMost}) {
    SCOPED_TRACE(status);
    printer->deviceStatus = status;
    const auto sent = std::make_shared<AppComm::Maintain>();

    run(Type::PrintClean, sent);

    EXPECT_TRUE(sent->busy);
    EXPECT_FALSE(sent->statusOne);
  }
}

TEST_F(HostileValuesTest, AReadStateOfAnySizeIsCopiedToAnotherDescriptionWhole) {
  const std::wstring withZeros(L"a\0b\0", 4);
  libraries.state.model = withZeros;
  libraries.state.serialNumber.assign(std::size_t{1} << 20, L'%');
  libraries.state.deviceStatus = kLeast;
  libraries.state.supplies.assign(100'000, {withZeros, kLeast});
  libraries.state.alerts.assign(100'000, kMost);
  libraries.answers = {{"AppMgr_GetPrintingJob", 1}};
  printer->connectionKind = 1;
  const auto other = newPrinter(L"another");
  type = Type::State;
  const auto observer = taskFor(other, 8, fresh<State>());

  EXPECT_EQ(run(Type::State, fresh<State>(), {observer}), 0);

  EXPECT_EQ(other->model, withZeros);
  EXPECT_EQ(other->serialNumber, libraries.state.serialNumber);
  EXPECT_EQ(other->deviceStatus, kLeast);
  EXPECT_EQ(other->supplies, libraries.state.supplies);
  EXPECT_EQ(other->alerts, libraries.state.alerts);
}

TEST_F(HostileValuesTest, ATransferEndsOnlyWhereTheNumbersSaySoAndStaysWithinAHundredPercent) {
  for (const auto done : kNumbers) {
    for (const auto total : kNumbers) {
      SCOPED_TRACE(testing::Message() << done << " of " << total);
      libraries.first = {done, total};
      libraries.later = {0, 0};
      std::vector<std::int32_t> percents;
      const auto record = std::make_shared<FirmUp>();
      whileSleeping = [&] { percents.push_back(record->percent); };

      EXPECT_EQ(run(Type::FirmUpgrade, record), 0);

      whileSleeping = nullptr;
      EXPECT_EQ(libraries.polls, done >= total ? 1 : 2);
      EXPECT_TRUE(record->done && record->ok);
      EXPECT_TRUE(std::ranges::all_of(percents, [](auto percent) { return percent >= 0 && percent <= 100; }));
      EXPECT_TRUE(wasLogged("firmware upgrade progress: " + text(done) + ' ' + text(total)));
    }
  }
}

TEST_F(HostileValuesTest, AWifiJobEndsOnlyWhereTheNumbersSaySo) {
  for (const auto operation : {Type::GetWifiList, Type::SetWifiList}) {
    const bool sets = operation == Type::SetWifiList;
    for (const auto done : kNumbers) {
      for (const auto total : kNumbers) {
        SCOPED_TRACE(testing::Message() << handlerRowOf(operation).name << ", " << done << " of " << total);
        libraries.first = {done, total};
        libraries.later = {kMost, 0};
        const auto record = std::make_shared<WIFI>();

        EXPECT_EQ(run(operation, record), 0);

        EXPECT_EQ(libraries.polls, done >= total ? 1 : 2);
        EXPECT_TRUE(record->finished);
        EXPECT_TRUE(wasLogged((sets ? "Set wifi by start, ret: 0, total: " : "Get printer wifi start, ret: 0, total: ") +
                              text(total) + (sets ? "." : "")));
        EXPECT_TRUE(wasLogged((sets ? "Set wifi progress, ret: 0, segment: " : "Get Wifi progress, ret: 0, segment: ") +
                              text(done) + (sets ? "." : "")));
      }
    }
  }
}

// Neither text has an end; the module looks into neither.
TEST_F(HostileValuesTest, ANetworkListOfAnyLengthIsCountedAndLeftAsTheLibraryMadeIt) {
  WifiNetwork endless;
  endless.name.fill(L'%');
  endless.password.fill(L'n');
  endless.security = endless.signal = kLeast;
  for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{10'000}}) {
    SCOPED_TRACE(count);
    libraries.networks.assign(count, endless);
    const auto record = std::make_shared<WIFI>();

    EXPECT_EQ(run(Type::GetWifiList, record), 0);

    ASSERT_EQ(record->networks.size(), count);
    EXPECT_EQ(record->succeeded, count > 0);
    for (const auto& network : record->networks) ASSERT_EQ(network.name, endless.name);
    EXPECT_TRUE(wasLogged("Get Wifi List result: 0, wifi size: " + std::to_string(count)));
  }
}

TEST_F(HostileValuesTest, VersionTextsOfAnyLengthAreKeptWholeAndNotLogged) {
  libraries.versions = {std::wstring(std::size_t{1} << 20, L'%'), std::wstring(L"a\0b", 3), std::wstring(5000, L'c'), L""};
  const auto record = std::make_shared<FirmUp>(FirmUp{.triggered = true, .done = true, .ok = true});
  libraries.answers["AppSdk_TriggerFwUpgradeProcess"] = 1;
  libraries.during = [&](const std::string& function) {
    if (function == "AppSdk_TriggerFwUpgradeProcess") record->done = true;
  };

  EXPECT_EQ(run(Type::FirmNewCheck, record), 0);

  EXPECT_TRUE(record->newFirmware);
  EXPECT_EQ(record->versionText1, libraries.versions[0]);
  EXPECT_EQ(record->versionText2, libraries.versions[1]);
  EXPECT_TRUE(wasLogged("get firmware version result: 1, succeed: 1"));
}

}  // namespace
