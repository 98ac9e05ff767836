#include "operations/Frame.h"

#include <stdexcept>
#include <utility>

#include "Records.h"
#include "operations/OperationTest.h"

namespace {

struct Derived : AppComm::State {};

class FrameTest : public OperationTest {
 protected:
  FrameTest() : OperationTest("comm_thread_test") {}

  using Run = operations::Run<AppComm::State>;

  template <class Work>
  static int run(std::shared_ptr<comm::CNode> entry, Work&& work) {
    return operations::inFrame<AppComm::State>(std::move(entry), "comm_thread_test", 77, L"resource type is NOT state",
                                               std::forward<Work>(work));
  }

  static int mustNotRun(const Run&) {
    ADD_FAILURE() << "the operation ran";
    return 0;
  }
};

TEST_F(FrameTest, HandsTheEntryItsTaskThePrinterAndTheSharedRecordToTheOperation) {
  const auto record = std::make_shared<AppComm::State>();
  const auto current = task(1, record);
  const auto entry = entryOf({current, task(2, record)});

  const int result = run(entry, [&](const Run& given) {
    EXPECT_EQ(&given.entry, entry.get());
    EXPECT_EQ(&given.task, current.get());
    EXPECT_EQ(&given.printer, printer.get());
    EXPECT_EQ(&given.record, record.get());
    return 5;
  });

  EXPECT_EQ(result, 5);
  EXPECT_TRUE(journal.entries().empty());
}

TEST_F(FrameTest, RefusesEveryOtherResource) {
  const struct {
    const char* name;
    std::any resource;
  } rows[] = {
      {"empty", {}},
      {"another record", std::make_shared<int>(1)},
      {"the record itself", AppComm::State{}},
      {"a plain pointer", static_cast<AppComm::State*>(nullptr)},
      {"a record of a derived type", std::make_shared<Derived>()},
      {"a constant record", std::make_shared<const AppComm::State>()},
      {"a weak pointer", std::weak_ptr<AppComm::State>()},
      {"a holder in a holder", std::make_any<std::shared_ptr<std::any>>(std::make_shared<std::any>())},
  };
  std::vector<std::string> expected;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(run(entryOf({task(1, row.resource), task(2, std::make_shared<AppComm::State>())}), mustNotRun), 2);
    expected.emplace_back("ERR resource type is NOT state");  // and no notice
  }
  EXPECT_EQ(journal.entries(), expected);
  EXPECT_EQ(logging.lines().count("comm_thread_test", 77), std::size(rows));
}

TEST_F(FrameTest, ARefusedTaskStaysAsItIs) {
  const auto refused = task(1, std::any());
  refused->setRepeat();
  refused->setNPAFlag();
  refused->setReqNPA();

  run(entryOf({refused}), mustNotRun);

  EXPECT_FALSE(refused->getOnce());
  EXPECT_TRUE(refused->getNPAFlag());
  EXPECT_TRUE(refused->getReqNPA());
  EXPECT_FALSE(refused->getDelete());
  EXPECT_FALSE(refused->getUpdate());
}

TEST_F(FrameTest, ReadsTheTaskThatIsCurrentNow) {
  const auto entry = entryOf({task(1, std::any()), task(2, std::make_shared<AppComm::State>())});
  entry->promoteObserver();
  EXPECT_EQ(run(entry, [](const Run& given) { return static_cast<int>(given.task.getCode()); }), 2);
}

// What one handler run is given, with nobody else to keep it alive.
struct Given {
  std::shared_ptr<comm::CNode> entry;
  std::weak_ptr<comm::CNode> weakEntry;
  std::weak_ptr<AppComm::Node> task;
  std::weak_ptr<AppComm::State> record;

  bool allReleased() const { return weakEntry.expired() && task.expired() && record.expired(); }
};

Given given(std::shared_ptr<AppComm::Node> task, std::shared_ptr<AppComm::State> record) {
  auto entry = entryOf({task});
  return {entry, entry, task, record};
}

TEST_F(FrameTest, KeepsEverythingAliveForTheRunAndReleasesItOnReturn) {
  auto record = std::make_shared<AppComm::State>();
  auto alone = given(task(1, record), record);
  record.reset();
  const long before = printer.use_count();

  // The caller drops the entry, and the task its list; the run goes on with all of it.
  run(std::move(alone.entry), [&](const Run& given) {
    EXPECT_FALSE(alone.weakEntry.expired());
    EXPECT_FALSE(alone.task.expired());
    EXPECT_FALSE(alone.record.expired());
    given.record.jobs = 1;
    return 0;
  });

  EXPECT_TRUE(alone.allReleased());
  EXPECT_EQ(printer.use_count(), before - 1);
}

TEST_F(FrameTest, KeepsTheRecordAliveWhenTheTaskGetsAnother) {
  auto record = std::make_shared<AppComm::State>();
  const std::weak_ptr<AppComm::State> weakRecord = record;
  const auto current = task(1, std::move(record));

  run(entryOf({current}), [&](const Run&) {
    current->setResource({});
    EXPECT_FALSE(weakRecord.expired());
    return 0;
  });

  EXPECT_TRUE(weakRecord.expired());
}

TEST_F(FrameTest, KeepsTheTaskAndItsPrinterAliveWhenTheTaskLeavesTheEntry) {
  std::weak_ptr<qzstd::PrinterInfo> otherPrinter;
  const auto makeTask = [&] {
    const auto made = newPrinter(L"printer-2");
    otherPrinter = made;
    return taskFor(made, 1, std::make_shared<AppComm::State>());
  };
  const auto entry = entryOf({makeTask(), task(2, std::make_shared<AppComm::State>())});

  run(entry, [&](const Run& given) {
    entry->promoteObserver();
    EXPECT_EQ(given.task.getCode(), 1);
    EXPECT_FALSE(otherPrinter.expired());
    return 0;
  });

  EXPECT_TRUE(otherPrinter.expired());
}

TEST_F(FrameTest, ReleasesEverythingWhenItRefuses) {
  auto alone = given(task(1, std::any()), nullptr);
  run(std::move(alone.entry), mustNotRun);
  EXPECT_TRUE(alone.allReleased());
}

TEST_F(FrameTest, ReleasesEverythingWhenTheOperationThrows) {
  auto record = std::make_shared<AppComm::State>();
  auto alone = given(task(1, record), record);
  record.reset();
  EXPECT_THROW(run(std::move(alone.entry), [](const Run&) -> int { throw std::runtime_error("out of memory"); }),
               std::runtime_error);
  EXPECT_TRUE(alone.allReleased());
}

}  // namespace
