#include <string>
#include <vector>

#include "operations/WifiTest.h"

namespace {

class GetWifiListTest : public WifiTest {
 protected:
  GetWifiListTest() : WifiTest(kGet) {}

  static constexpr const char* kConnects = "AppPrinterSdk_IsNetConnected(printer-1, 0)";
};

TEST_F(GetWifiListTest, OfAPrinterInTheNetworkNotifiesOnceAndAsksForNoList) {
  libraries.connected = true;
  record->finished = record->succeeded = true;
  record->networks = {network(L"old")};

  EXPECT_EQ(run(), (Texts{kConnects, "notice 7"}));

  EXPECT_EQ(shown(*record), "connected ");
  EXPECT_EQ(namesOf(record->networks), std::vector<std::wstring>{L"old"});
}

TEST_F(GetWifiListTest, OfAPrinterInTheNetworkNotifiesADeletedTaskToo) {
  libraries.connected = true;
  current->setDelete();
  EXPECT_EQ(run(), (Texts{kConnects, "notice 7"}));
}

TEST_F(GetWifiListTest, ConnectedIsWhatThePrinterSaysNow) {
  record->connected = true;
  EXPECT_EQ(run(), whole({{0, 0}}).entries());
  EXPECT_EQ(shown(*record), "finished succeeded");
}

TEST_F(GetWifiListTest, FlagsAreClearedBeforeThePrinterIsAsked) {
  record->connected = record->finished = record->succeeded = true;
  libraries.connected = true;
  EXPECT_EQ(seen(shown), (Texts{std::string(kConnects) + ": ", "notice 7: connected "}));
}

TEST_F(GetWifiListTest, FlagsAreSetAfterTheListIsThere) {
  libraries.total = 1;
  libraries.progress = {{0, 0}, {0, 1}};
  const std::string progress = kGet.progress;
  EXPECT_EQ(seen(shown), (Texts{std::string(kConnects) + ": ", std::string(kGet.start) + ": ", progress + ": ",
                                "notice 7: ", "sleep: ", progress + ": ", kGet.after[0] + ": ",
                                std::string(kGet.exit) + ": finished succeeded", "notice 7: finished succeeded"}));
}

TEST_F(GetWifiListTest, SucceedsWithAResultOfNoneAndAtLeastOneNetwork) {
  for (const int result : {0, -1, 1}) {
    for (const std::size_t count : {0U, 1U, 2U}) {
      SCOPED_TRACE(testing::Message() << "result " << result << ", " << count << " networks");
      renew();
      libraries.listResult = result;
      libraries.list = std::vector<WifiNetwork>(count, network(L"home"));

      const auto entries = run();

      EXPECT_EQ(entries[entries.size() - 3],
                filled("DBG Get Wifi List result: %d, wifi size: %d", {result, static_cast<std::int32_t>(count)}));
      EXPECT_EQ(shown(*record), result == 0 && count > 0 ? "finished succeeded" : "finished ");
      EXPECT_EQ(record->networks.size(), count);
    }
  }
}

TEST_F(GetWifiListTest, ResultOfTheLastPollHasNoSay) {
  libraries.progress = {{-1, 0}};
  EXPECT_EQ(run(), whole(libraries.progress).entries());
  EXPECT_EQ(shown(*record), "finished succeeded");
}

TEST_F(GetWifiListTest, AnOldListIsNotClearedAndCountsAsFetched) {
  record->networks = {network(L"old"), network(L"older")};
  libraries.list.reset();

  const auto entries = run();

  EXPECT_EQ(entries[5], "AppMgr_GetPrinterWifiResult(2 networks)");
  EXPECT_EQ(entries[6], "DBG Get Wifi List result: 0, wifi size: 2");
  EXPECT_EQ(shown(*record), "finished succeeded");
  EXPECT_EQ(namesOf(record->networks), (std::vector<std::wstring>{L"old", L"older"}));
}

TEST_F(GetWifiListTest, FillsTheRecordsOwnList) {
  libraries.list = std::vector<WifiNetwork>{network(L"first"), network(L"second")};
  run();
  EXPECT_EQ(libraries.givenList, &record->networks);
  EXPECT_EQ(namesOf(record->networks), (std::vector<std::wstring>{L"first", L"second"}));
}

}  // namespace
