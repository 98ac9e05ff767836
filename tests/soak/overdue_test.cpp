/// What the model misses when it does not come.

#include "Story.h"

namespace soak::test {
namespace {

class PrinterModelMisses : public Story {};

TEST_F(PrinterModelMisses, AWakeUpThatDoesNotEndTheWait) {
  add(1, repeating(Type::State, 300'000));
  unreadState(1);
  startNpa();
  ticks(30);
  refused({.what = What::tick}, "list 1 was woken and does not run its next entry");
}

TEST_F(PrinterModelMisses, AWakeUpThatDoesNotEndTheWaitHoweverManyTasksCome) {
  add(1, repeating(Type::State, 300'000));
  unreadState(1);
  startNpa();
  for (TaskId task = 2; task < 32; ++task) {
    add(task, repeating(Type::State));
    ticks(1);
  }
  refused({.what = What::tick}, "list 1 was woken and does not run its next entry");
}

TEST_F(PrinterModelMisses, ATaskThatIsNotLetGoOfWhereAWakeUpDoesNotEndTheWait) {
  add(1, repeating(Type::State, 300'000));
  unreadState(1);
  startNpa();
  setDelete(1);
  add(2, repeating(Type::State));  // behind task 1, or where the list was tidied in its place
  ticks(30);
  refused({.what = What::tick}, "has left its list, and the module has not let go of it");
}

TEST_F(PrinterModelMisses, NothingOverdueSoonAfterAWakeUpInALongPause) {
  add(1, repeating(Type::State, 300'000));
  unreadState(1);
  ticks(200);
  startNpa();
  ticks(30);
}

TEST_F(PrinterModelMisses, AStopThatDoesNotEndTheWait) {
  add(1, repeating(Type::State, 300'000));
  unreadState(1);
  stop();
  ticks(30);
  refused({.what = What::tick}, "list 1 was stopped and has not ended");
}

TEST_F(PrinterModelMisses, NothingOverdueWhereAWakeUpDoesNotEndTheWait) {
  add(1, repeating(Type::GetNetwork, 60'000));
  network(1);
  startNpa();
  ticks(100);
  stop();
  ticks(100);
}

TEST_F(PrinterModelMisses, ARunThatDoesNotCome) {
  add(1, repeating(Type::GetNetwork, 100));
  network(1);
  ticks(31);
  refused({.what = What::tick}, "list 1 does not go on with its run, nor with anything after it");
}

TEST_F(PrinterModelMisses, NothingOverdueWhileALibraryCallHangs) {
  add(1, repeating(Type::GetNetwork, 100));
  seen(callOf(kNetwork));
  ticks(600);
}

TEST_F(PrinterModelMisses, AnEmptyListThatDoesNotEnd) {
  add(1, once(Type::GetNetwork, 100));
  network(1);
  released(1);
  ticks(31);
  refused({.what = What::tick}, "list 1 is empty and has not ended");
}

TEST_F(PrinterModelMisses, NothingOverdueWhereTheMachineStoodStill) {
  add(1, repeating(Type::GetNetwork, 100));
  network(1);
  ticks(1);
  at(600'000);
  ticks(1);
}

TEST_F(PrinterModelMisses, ACallThatDoesNotReturn) {
  struct Case {
    What begin;
    std::string_view text;
  };
  constexpr Case cases[] = {{What::addBegin, "Add has not returned"},
                            {What::stopBegin, "Stop has not returned"},
                            {What::startBegin, "StartNPA has not returned"},
                            {What::pauseBegin, "PauseNPA has not returned"}};
  for (const Case& one : cases) {
    m_model = std::make_unique<PrinterModel>(PrinterTraits{});
    seen({.what = one.begin, .thread = kCaller, .task = 1});
    ticks(30);
    refused({.what = What::tick}, one.text);
  }
}

}  // namespace
}  // namespace soak::test
