#include "Recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <thread>
#include <vector>

namespace soak::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// Takes until there are so many, or too long.
std::vector<Event> take(std::size_t count) {
  const auto deadline = steady_clock::now() + 60s;
  std::vector<Event> events;
  while (events.size() < count && steady_clock::now() < deadline) {
    std::ranges::copy(Recorder::instance().take(), std::back_inserter(events));
  }
  return events;
}

TEST(RecorderTest, GivesOutTheEventsOfAllThreadsInTheirOrderWhileTheyCome) {
  constexpr int each = 20'000;
  std::vector<std::thread> threads;
  for (PrinterId printer = 0; printer < 4; ++printer) {
    threads.emplace_back([printer] {
      for (int value = 0; value < each; ++value) {
        Recorder::instance().record({.what = What::callBegin, .printer = printer, .value = value});
      }
    });
  }
  const auto events = take(4 * each);
  for (std::thread& thread : threads) thread.join();

  ASSERT_EQ(events.size(), 4U * each);
  std::map<PrinterId, int> next;
  for (std::size_t place = 0; place < events.size(); ++place) {
    ASSERT_EQ(events[place].number, events.front().number + place);
    ASSERT_EQ(events[place].value, next[events[place].printer]++);
  }
}

TEST(RecorderTest, TellsOfTheEndOfAThreadThatWorkedForAPrinter) {
  std::thread([] {
    Recorder::instance().belongsTo(7);
    Recorder::instance().record({.what = What::callBegin, .printer = 7});
  }).join();
  const auto events = take(2);
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[1].what, What::threadEnded);
  EXPECT_EQ(events[1].printer, 7U);
  EXPECT_EQ(events[1].thread, events[0].thread);
}

}  // namespace
}  // namespace soak::test
