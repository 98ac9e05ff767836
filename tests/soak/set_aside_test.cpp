/// A printer that the model cannot follow.

#include "Story.h"

namespace soak::test {
namespace {

class PrinterModelSetsAside : public Story {
 protected:
  void follow(std::size_t mostWays) { m_model = std::make_unique<PrinterModel>(PrinterTraits{}, mostWays); }
};

TEST_F(PrinterModelSetsAside, APrinterWithTooManyWays) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  EXPECT_TRUE(m_model->isSetAside());
}

TEST_F(PrinterModelSetsAside, NoPrinterThatItCanFollow) {
  follow(2);
  add(1, repeating(Type::GetNetwork));
  EXPECT_FALSE(m_model->isSetAside());
}

TEST_F(PrinterModelSetsAside, APrinterThatItJudgesNoMore) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  call(kAlarm);
  ticks(1'000);
  released(1);
  seen(endOf(kHelper));
  expectRest();
  EXPECT_EQ(m_model->runs(), 0U);
}

TEST_F(PrinterModelSetsAside, APrinterWhoseTasksAreStillToBeLetGoOf) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  released(1);
  EXPECT_EQ(m_model->atRest({}), "the module has not let go of these tasks: 2\n");
}

TEST_F(PrinterModelSetsAside, APrinterWhoseCallsAreStillToReturn) {
  const struct {
    What begin;
    What end;
    const char* name;
  } calls[] = {{What::addBegin, What::addEnd, "Add"},
               {What::stopBegin, What::stopEnd, "Stop"},
               {What::startBegin, What::startEnd, "StartNPA"},
               {What::pauseBegin, What::pauseEnd, "PauseNPA"}};
  for (const auto& call : calls) {
    follow(1);
    add(1, repeating(Type::GetNetwork));
    seen({.what = call.begin, .thread = kCaller, .task = 2, .traits = repeating(Type::GetNetwork)});
    seen({.what = call.begin, .thread = kCaller + 1, .task = 3, .traits = repeating(Type::GetNetwork)});
    seen({.what = call.end, .thread = kCaller, .task = 2});
    ticks(30);
    refused({.what = What::tick}, std::string(call.name) + " has not returned");
    seen({.what = call.end, .thread = kCaller + 1, .task = 3});
    ticks(100);
  }
}

TEST_F(PrinterModelSetsAside, APrinterWithACallThatBeganBefore) {
  follow(2);
  seen({.what = What::startBegin, .thread = kCaller, .traits = {.type = Type::State}});
  ticks(10);
  ASSERT_FALSE(m_model->isSetAside());
  for (ThreadId other = 100; !m_model->isSetAside(); ++other) {
    seen({.what = What::addBegin, .thread = other, .task = other, .traits = repeating(Type::GetNetwork)});
    seen({.what = What::addEnd, .thread = other, .task = other});
  }
  ticks(20);
  refused({.what = What::tick}, "StartNPA has not returned");
}

}  // namespace
}  // namespace soak::test
