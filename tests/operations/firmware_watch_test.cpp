#include <atomic>
#include <thread>

#include "operations/FirmwareTest.h"

namespace {

using AppComm::FirmUp;

constexpr const char* kReadsState = "AppPrinterSdk_GetState(printer-1)";
constexpr std::size_t kSleepsPerPause = 100;
constexpr std::size_t kMomentsPerPoll = 2 + kSleepsPerPause;

Texts wholePoll() {
  Texts entries{kReadsState, "notice 7"};
  entries.insert(entries.end(), kSleepsPerPause, "sleep 10 us");
  return entries;
}

class FirmwareWatchTest : public FirmwareTest {
 protected:
  FirmwareWatchTest() : FirmwareTest("comm_thread_firmUpCheck", comm_thread_firmUpCheck) {}

  // `meanwhile` for a caller that ends the watch at a moment of a name, when that comes for the `count`th time.
  std::function<void(const std::string&)> doneAt(std::string name, std::size_t count) {
    return [this, name = std::move(name), count](const std::string& moment) mutable {
      if (moment == name && --count == 0) std::atomic_ref(record->done).store(true);
    };
  }
};

TEST_F(FirmwareWatchTest, QueriesNotifiesAndPausesInHundredShortSleepsUntilTheCallerIsDone) {
  meanwhile = doneAt("notice 7", 2);
  EXPECT_EQ(run(), joined(wholePoll(), wholePoll()));
  EXPECT_TRUE(record->done);
  EXPECT_TRUE(current->getUpdate());
}

TEST_F(FirmwareWatchTest, OkSaysInEachNoticeWhetherThePrinterAnswered) {
  libraries.states = {-1, 0, 1, 0};
  Texts told;
  const auto endAfterFour = doneAt("notice 7", libraries.states.size());
  meanwhile = [&](const std::string& moment) {
    if (moment == "notice 7") told.emplace_back(record->ok ? "ok" : "failed");
    endAfterFour(moment);
  };

  run();

  EXPECT_EQ(told, (Texts{"failed", "ok", "failed", "ok"}));
}

TEST_F(FirmwareWatchTest, OkIsTheFormerOneUntilThePrinterHasAnswered) {
  record->ok = true;
  libraries.states = {-1};
  bool before = false;
  meanwhile = [&](const std::string& moment) {
    if (moment == kReadsState) before = record->ok;
    record->done = true;
  };

  run();

  EXPECT_TRUE(before);
  EXPECT_FALSE(record->ok);
}

TEST_F(FirmwareWatchTest, OfADoneRecordDoesNothing) {
  record->done = true;
  EXPECT_EQ(run(), Texts{});
  EXPECT_FALSE(record->ok);
  EXPECT_FALSE(current->getUpdate());
}

TEST_F(FirmwareWatchTest, OfADeletedTaskDoesNothing) {
  current->setDelete();
  meanwhile = doneAt(kReadsState, 1);  // should it ever come to that
  EXPECT_EQ(run(), Texts{});
  EXPECT_FALSE(record->done);
}

TEST_F(FirmwareWatchTest, ThatADeletionEndsIsNotDone) {
  meanwhile = [this, end = doneAt(kReadsState, 3)](const std::string& moment) {
    current->setDelete();
    end(moment);  // should it ever come to that
  };
  EXPECT_EQ(run(), (Texts{kReadsState, "notice 7"}));
  EXPECT_FALSE(record->done);
}

TEST_F(FirmwareWatchTest, DoneIsLookedAtOnceAtTheTopOfAPoll) {
  for (const std::string moment : {"sleep", "notice 7", kReadsState}) {
    SCOPED_TRACE(moment);
    renew();
    meanwhile = doneAt(moment, 1);
    EXPECT_EQ(run(), wholePoll());
  }
}

TEST_F(FirmwareWatchTest, DoneThatIsTakenBackWithinAPollIsNotSeen) {
  std::size_t sleeps = 0;
  meanwhile = [&](const std::string& moment) {
    if (moment == "sleep") ++sleeps;
    record->done = sleeps != kSleepsPerPause;
  };

  EXPECT_EQ(run(), joined(wholePoll(), wholePoll()));  // at the top of the third it is set
}

TEST_F(FirmwareWatchTest, DeletionIsNoticedWithinOneSleepAndEndsItWithoutAnotherNotice) {
  arrange = [this] { meanwhile = doneAt(kReadsState, 5); };  // should it ever come to that
  Texts four;
  for (int poll = 0; poll < 4; ++poll) four = joined(four, wholePoll());
  for (std::size_t poll = 0; poll < 4; ++poll) {
    for (const std::size_t place : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{50},
                                    kMomentsPerPoll - 2, kMomentsPerPoll - 1}) {
      const auto moment = poll * kMomentsPerPoll + place;
      const auto last = place == 0 ? moment + 1 : moment;  // what was read is told
      expectDeletionAt(moment, four[moment], {four.begin(), four.begin() + static_cast<std::ptrdiff_t>(last) + 1});
    }
  }
}

TEST_F(FirmwareWatchTest, ObserversAreToldEveryTimeAndHaveNoSay) {
  meanwhile = doneAt("notice 7", 2);
  const auto observed = std::make_shared<FirmUp>();
  observed->done = true;
  const auto refusing = task(9, {}, false);

  const auto entries = run({task(8, observed), refusing});

  EXPECT_EQ(entries.size(), 2 * (kMomentsPerPoll + 2));
  EXPECT_EQ(Texts(entries.begin(), entries.begin() + 4), (Texts{kReadsState, "notice 7", "notice 8", "notice 9"}));
  EXPECT_FALSE(observed->ok);
  EXPECT_TRUE(refusing->getDelete());
  EXPECT_FALSE(current->getDelete());
}

TEST_F(FirmwareWatchTest, WritesNothingButOk) {
  fillForeignMembers(*record);
  record->percent = 42;
  meanwhile = doneAt("notice 7", 1);
  run();
  expectForeignMembers(*record);
  EXPECT_EQ(shownFlags(*record), "triggered done ok new 42");
}

// ThreadSanitizer looks on.
TEST_F(FirmwareWatchTest, EndsWhenAnotherThreadSetsDone) {
  std::atomic<int> polls{0};
  std::thread caller([&] {
    polls.wait(0);
    std::atomic_ref(record->done).store(true);
  });
  meanwhile = [&](const std::string& moment) {
    if (moment == kReadsState) {
      ++polls;
      polls.notify_all();
    } else {
      std::this_thread::yield();
    }
  };

  const auto entries = run();
  caller.join();

  EXPECT_GE(polls.load(), 1);
  EXPECT_EQ(entries.size() % kMomentsPerPoll, 0U);
}

}  // namespace
