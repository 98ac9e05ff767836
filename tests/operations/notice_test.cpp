#include "operations/Notice.h"

#include "operations/OperationTest.h"

namespace {

class NoticeTest : public OperationTest {
 protected:
  NoticeTest() : OperationTest("none") {}
};

TEST_F(NoticeTest, TellsTheTaskAndEveryObserverInOrderEachWithItsOwnCode) {
  const auto entry = entryOf({task(30, {}), task(10, {}), task(-20, {})});
  notice_caller(*entry);
  EXPECT_EQ(journal.entries(), (Texts{"notice 30", "notice 10", "notice -20"}));
}

TEST_F(NoticeTest, ARefusalMarksOnlyTheTaskOfThatWindow) {
  for (std::size_t refusing = 0; refusing < 3; ++refusing) {
    SCOPED_TRACE(refusing);
    std::vector<std::shared_ptr<AppComm::Node>> tasks;
    for (std::size_t index = 0; index < 3; ++index) tasks.push_back(task(static_cast<long>(index), {}, index != refusing));

    notice_caller(*entryOf(tasks));

    for (std::size_t index = 0; index < 3; ++index) {
      EXPECT_EQ(tasks[index]->getDelete(), index == refusing);
      EXPECT_TRUE(tasks[index]->getUpdate());
    }
  }
  EXPECT_EQ(journal.entries().size(), 9U);
}

TEST_F(NoticeTest, MarksTheTaskUpdatedBeforeItsWindowIsTold) {
  std::vector<bool> seen;
  std::vector<std::shared_ptr<AppComm::Node>> tasks;
  for (std::size_t index = 0; index < 2; ++index) {
    const auto window = std::make_shared<NoticeWindow>([&, index](long) {
      seen.push_back(tasks[index]->getUpdate());
      return true;
    });
    tasks.push_back(AppComm::Node::Instance(printer, window, 1, type));
  }

  notice_caller(*entryOf(tasks));

  EXPECT_EQ(seen, (std::vector<bool>{true, true}));
}

TEST_F(NoticeTest, TellsAnObserverThatJoinsDuringTheWalk) {
  std::shared_ptr<comm::CNode> entry;
  const auto joining = std::make_shared<NoticeWindow>([&](long code) {
    journal.add("notice " + std::to_string(code));
    if (entry->tasks().size() < 4) entry->addObserver(task(code + 2, {}));
    return true;
  });
  entry = entryOf({AppComm::Node::Instance(printer, joining, 1, type), AppComm::Node::Instance(printer, joining, 2, type)});

  notice_caller(*entry);

  EXPECT_EQ(journal.entries(), (Texts{"notice 1", "notice 2", "notice 3", "notice 4"}));
}

TEST_F(NoticeTest, NoLatchIsHeldWhileAWindowIsTold) {
  std::shared_ptr<comm::CNode> entry;
  std::size_t seen = 0;
  const auto looking = std::make_shared<NoticeWindow>([&](long) {
    seen = entry->tasks().size();  // would not return
    return true;
  });
  entry = entryOf({AppComm::Node::Instance(printer, looking, 1, type)});
  notice_caller(*entry);
  EXPECT_EQ(seen, 1U);
}

TEST_F(NoticeTest, ReleasesEveryReference) {
  auto first = task(1, {});
  auto second = task(2, {}, false);
  const std::weak_ptr<AppWnd::CWnd> windows[] = {first->getWnd(), second->getWnd()};
  const std::weak_ptr<AppComm::Node> tasks[] = {first, second};
  auto entry = entryOf({std::move(first), std::move(second)});
  first.reset();
  second.reset();

  notice_caller(*entry);
  entry.reset();

  for (const auto& task : tasks) EXPECT_TRUE(task.expired());
  for (const auto& window : windows) EXPECT_TRUE(window.expired());
}

}  // namespace
