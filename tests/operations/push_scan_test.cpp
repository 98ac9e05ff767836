#include <limits>

#include "Records.h"
#include "operations/Handlers.h"
#include "operations/LongOperationTest.h"

namespace {

using AppPrinterSdk::PushScanPara;

class PushScanPrinter : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  int result = 0;
  const PushScanPara* given = nullptr;

  int AppPrinterSdk_GetPushScanPara(qzstd::PrinterInfo* /*printer*/, PushScanPara* parameters) override {
    given = parameters;
    parameters->resolution = 600;
    return result;
  }
};

constexpr const char* kReads = "AppPrinterSdk_GetPushScanPara(printer-1, 300)";

class PushScanTest : public OperationTestWith<PushScanPrinter> {
 protected:
  PushScanTest() : OperationTestWith("comm_thread_getPushscan") { record->resolution = 300; }

  int run() { return comm_thread_getPushscan(entryOf({current, first, second})); }

  // A task like `current` whose window does what the test says.
  std::shared_ptr<AppComm::Node> taskWith(NoticeWindow::Action action) {
    auto made = AppComm::Node::Instance(printer, std::make_shared<NoticeWindow>(std::move(action)), 7, type);
    made->setResource(record);
    return made;
  }

  const std::shared_ptr<PushScanPara> record = std::make_shared<PushScanPara>();
  const std::shared_ptr<AppComm::Node> first = task(8, std::make_shared<PushScanPara>());
  const std::shared_ptr<AppComm::Node> second = task(9, {});
  std::shared_ptr<AppComm::Node> current = task(7, record);
};

TEST_F(PushScanTest, SuccessIsToldToTheTaskAlone) {
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(journal.entries(), (Texts{kReads, "DBG get push scan parameter result: 0", "notice 7"}));
  EXPECT_TRUE(current->getUpdate());
  EXPECT_FALSE(current->getDelete());
}

TEST_F(PushScanTest, FillsTheTasksOwnRecordAndNoObservers) {
  run();
  EXPECT_EQ(libraries.given, record.get());
  EXPECT_EQ(record->resolution, 600);
  EXPECT_EQ(std::any_cast<std::shared_ptr<PushScanPara>>(first->getResource())->resolution, 0);
}

TEST_F(PushScanTest, SuccessDropsEveryObserverUnservedWhateverItHolds) {
  run();
  for (const auto& observer : {first, second}) {
    EXPECT_TRUE(observer->getDelete());
    EXPECT_FALSE(observer->getUpdate());
  }
}

TEST_F(PushScanTest, ARefusingWindowDeletesItsTaskAndTheObserversAreDroppedAllTheSame) {
  current = task(7, record, false);
  EXPECT_EQ(run(), 0);
  for (const auto& each : {current, first, second}) EXPECT_TRUE(each->getDelete());
}

TEST_F(PushScanTest, ObserversAreDroppedAfterTheNotice) {
  bool updated = false;
  bool dropped = true;
  std::int32_t resolution = 0;
  current = taskWith([&](long) {
    updated = current->getUpdate();
    dropped = first->getDelete() || second->getDelete();
    resolution = record->resolution;
    return true;
  });

  run();

  EXPECT_TRUE(updated);
  EXPECT_FALSE(dropped);
  EXPECT_EQ(resolution, 600);
}

TEST_F(PushScanTest, AnObserverThatJoinsDuringTheNoticeIsDroppedToo) {
  std::shared_ptr<comm::CNode> entry;
  current = taskWith([&](long) {
    entry->addObserver(first);
    return true;
  });
  entry = entryOf({current});

  comm_thread_getPushscan(entry);

  EXPECT_TRUE(first->getDelete());
}

TEST_F(PushScanTest, FailureReturnsTheLibrarysOwnResultAndTellsNobody) {
  for (const int result : {-7, -1, 1, 2, 300, std::numeric_limits<int>::min()}) {
    SCOPED_TRACE(result);
    libraries.result = result;
    record->resolution = 300;
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());

    EXPECT_EQ(run(), result);

    const auto entries = journal.entries();
    EXPECT_EQ(Texts(entries.begin() + before, entries.end()),
              (Texts{kReads, filled("DBG get push scan parameter result: %d", {result})}));
    for (const auto& each : {current, first, second}) {
      EXPECT_FALSE(each->getUpdate());
      EXPECT_FALSE(each->getDelete());
    }
  }
}

}  // namespace
