#include "examples/panel/Courier.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <thread>

#include "fakes/MessageWindows.h"
#include "fakes/ThreadStartFault.h"
#include "support/ThreadCount.h"

namespace {

using namespace std::chrono_literals;
using panel::Courier;

/// A courier on a platform whose messages the test takes, told of notices as the module tells it: on another thread.
class CourierTest : public testing::Test {
 protected:
  CourierTest() { EXPECT_TRUE(newCourier()); }
  ~CourierTest() override {
    windows.takeSent();
    EXPECT_TRUE(rests());
    courier.reset();
    EXPECT_TRUE(support::waitForThreadCount(1, std::chrono::steady_clock::now() + 20s)) << "a sender is left";
  }

  bool newCourier() {
    courier = std::make_unique<Courier>(
        [this] {
          noticedOn = std::this_thread::get_id();
          return wanted;
        },
        [this] {
          ++arrivals;
          arrivedOn = std::this_thread::get_id();
        });
    return courier->Create(nullptr);
  }
  bool notice() {
    return std::async(std::launch::async, [this] { return courier->Notice(1); }).get();
  }
  /// The end of a sender announces itself to no one.
  bool rests() const {
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!courier->isResting() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    return courier->isResting();
  }

  fakes::MessageWindows windows;
  const fakes::Installed installed{windows};
  std::unique_ptr<Courier> courier;
  bool wanted = true;
  int arrivals = 0;
  std::thread::id noticedOn;
  std::thread::id arrivedOn;
};

TEST_F(CourierTest, NoticeIsLookedAtWithinAndArrivesLaterOnTheThreadOfTheWindow) {
  const auto here = std::this_thread::get_id();
  notice();
  EXPECT_NE(noticedOn, std::thread::id());
  EXPECT_NE(noticedOn, here);
  EXPECT_EQ(arrivals, 0);

  ASSERT_TRUE(windows.awaitSent(1));
  windows.takeSent();
  EXPECT_EQ(arrivals, 1);
  EXPECT_EQ(arrivedOn, here);
  EXPECT_EQ(windows.posted(), 0U);
}

TEST_F(CourierTest, NoticeAnswersWhetherMoreAreWanted) {
  for (const bool answer : {true, false}) {
    wanted = answer;
    EXPECT_EQ(notice(), answer);
  }
  ASSERT_TRUE(windows.awaitSent(2));
}

TEST_F(CourierTest, OtherMessagesArriveNowhere) {
  EXPECT_EQ(::SendMessageW(courier->GetWnd(), WM_APP, 0, 0), FALSE);
  EXPECT_EQ(arrivals, 0);
}

TEST_F(CourierTest, RestsUntilANoticeAndAgainWhenItHasArrived) {
  EXPECT_TRUE(courier->isResting());
  notice();
  EXPECT_FALSE(courier->isResting()) << "also before its sender has begun";
  ASSERT_TRUE(windows.awaitSent(1));
  EXPECT_FALSE(courier->isResting()) << "the sender waits for its answer";

  windows.takeSent();
  EXPECT_TRUE(rests());
}

TEST_F(CourierTest, RestsOnlyWhenTheLastOfSeveralHasArrived) {
  for (int number = 0; number < 3; ++number) notice();
  ASSERT_TRUE(windows.awaitSent(3));
  windows.takeSent();
  notice();
  ASSERT_TRUE(windows.awaitSent(1));
  // The first three have gone: what is counted now is the fourth.
  ASSERT_TRUE(support::waitForThreadCount(2, std::chrono::steady_clock::now() + 20s));
  EXPECT_FALSE(courier->isResting());
  windows.takeSent();
  EXPECT_TRUE(rests());
  EXPECT_EQ(arrivals, 4);
}

// What the sanitizers look at: no sender touches a courier that rests.
TEST_F(CourierTest, MayBeDestroyedAsSoonAsItRests) {
  for (int round = 0; round < 200; ++round) {
    notice();
    ASSERT_TRUE(windows.awaitSent(1));
    windows.takeSent();
    ASSERT_TRUE(rests());
    ASSERT_TRUE(newCourier());
    ASSERT_EQ(windows.count(), 1U);
  }
}

TEST_F(CourierTest, NoticeWhoseSenderCannotStartIsPosted) {
  {
    const fakes::ThreadStartFault fault;
    // On this thread: the fault would keep another one from starting.
    EXPECT_NO_THROW(EXPECT_TRUE(courier->Notice(1)));
  }
  EXPECT_EQ(noticedOn, std::this_thread::get_id());
  EXPECT_TRUE(courier->isResting()) << "no sender is under way";
  EXPECT_EQ(arrivals, 0);
  EXPECT_EQ(windows.sent(), 0U);

  EXPECT_EQ(windows.takePosted(), 1U);
  EXPECT_EQ(arrivals, 1);
}

TEST_F(CourierTest, AnotherSenderIsStillCountedWhenOneCannotStart) {
  notice();
  ASSERT_TRUE(windows.awaitSent(1));
  {
    const fakes::ThreadStartFault fault;
    courier->Notice(2);
  }
  EXPECT_FALSE(courier->isResting());

  windows.takeSent();
  EXPECT_TRUE(rests());
  windows.takePosted();
  EXPECT_EQ(arrivals, 2);
}

TEST_F(CourierTest, PokeWaitsForNothingAndStartsNoThread) {
  const fakes::ThreadStartFault fault;
  Courier::poke(courier->GetWnd());
  EXPECT_EQ(arrivals, 0);
  EXPECT_TRUE(courier->isResting());

  EXPECT_EQ(windows.takePosted(), 1U);
  EXPECT_EQ(arrivals, 1);
}

TEST_F(CourierTest, PokeOfAWindowThatIsGoneHarmsNobody) {
  const HWND window = courier->GetWnd();
  courier->Destroy();
  Courier::poke(window);
  EXPECT_EQ(windows.posted(), 0U);
  EXPECT_EQ(arrivals, 0);
}

}  // namespace
