#include <algorithm>
#include <atomic>
#include <set>
#include <thread>
#include <tuple>
#include <utility>

#include "operations/StateTest.h"

namespace {

// What a run does by connection kind, jobs, request, control port and push scan. A condition without a value is of no account:
// the row holds for either.
struct Branch {
  const char* name;
  std::vector<std::int32_t> kinds;
  std::vector<int> jobs;
  std::optional<bool> request;
  std::optional<bool> ctrlPort;
  std::optional<bool> pushScan;
  Texts work;  // between the question for jobs and the notice; # stands for the number of jobs
  bool queried;
};

constexpr const char* kUsbRequest = "DBG get usb printer (request) state result: 23";
constexpr const char* kUsbPushScan = "DBG get usb printer (push scan) state result: 23";
constexpr const char* kUsbCtrlPort = "DBG get usb printer (ctrl port) state result: 23";
constexpr const char* kNetRequest = "DBG get net printer (request) state result: 23";
constexpr const char* kNetPrinting = "DBG get net printer (printing) state result: 23";
constexpr const char* kNewJobs = "DBG new job: #, old job: 41";

const Branch kBranches[] = {
    {"USB, idle, requested", {kUsb}, {0}, true, {}, {}, {kReadsState, kUsbRequest}, true},
    {"USB, idle, push scan", {kUsb}, {0}, false, {}, true, {kAsksPushScan, kReadsState, kUsbPushScan}, true},
    {"USB, idle, no push scan", {kUsb}, {0}, false, {}, false, {kAsksPushScan}, false},
    {"USB, printing, control port", {kUsb}, {-1, 1, 2}, {}, true, {}, {kReadsState, kUsbCtrlPort}, true},
    {"USB, printing, no control port", {kUsb}, {-1, 1, 2}, {}, false, {}, {}, false},
    {"network, requested", {kNetwork}, {-1, 0, 1, 2}, true, {}, {}, {kChecksAddress, kReadsState, kNetRequest}, true},
    {"network, printing", {kNetwork}, {1, 2}, false, {}, {}, {kChecksAddress, kNewJobs, kReadsState, kNetPrinting}, true},
    {"network, idle", {kNetwork}, {-1, 0}, false, {}, {}, {kChecksAddress}, false},
    {"another kind", {-1, 2}, {-1, 0, 1, 2}, {}, {}, {}, {}, false},
};
constexpr std::size_t kCombinations = 4 * 4 * 2 * 2 * 2;  // kinds, jobs, and the three conditions

std::vector<bool> values(std::optional<bool> condition) {
  return condition ? std::vector<bool>{*condition} : std::vector<bool>{false, true};
}

class StateBranchTest : public StateTest {
 protected:
  void runBranch(const Branch& branch, std::int32_t kind, int jobs) {
    for (const bool request : values(branch.request)) {
      for (const bool ctrlPort : values(branch.ctrlPort)) {
        for (const bool pushScan : values(branch.pushScan)) {
          SCOPED_TRACE(testing::Message() << branch.name << ": kind " << kind << ", jobs " << jobs << ", request " << request
                                          << ", control port " << ctrlPort << ", push scan " << pushScan);
          request ? current->setReqNPA() : current->resetReqNPA();
          printer->connectionKind = kind;
          printer->hasCtrlPort = ctrlPort;
          libraries.jobs = jobs;
          libraries.pushScan = pushScan;
          expectRun(branch, jobs);
          combinations.emplace(kind, jobs, request, ctrlPort, pushScan);
        }
      }
    }
  }

  std::set<std::tuple<std::int32_t, int, bool, bool, bool>> combinations;

 private:
  void expectRun(const Branch& branch, int jobs) {
    libraries.stateResult = 23;
    record->jobs = 41;
    record->result = 99;
    record->queried = !branch.queried;
    record->pushScanRegistered = record->upgradeRegistered = jobs > 0;
    current->setNPAFlag();
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());

    EXPECT_EQ(run(), 0);

    Texts expected{kAsksJobs};
    for (auto entry : branch.work) {
      if (const auto place = entry.find('#'); place != std::string::npos) entry.replace(place, 1, std::to_string(jobs));
      expected.push_back(entry);
    }
    expected.insert(expected.end(), {kNoticeLine, "notice 7"});
    const auto entries = journal.entries();
    EXPECT_EQ(Texts(entries.begin() + before, entries.end()), expected);
    EXPECT_EQ(record->jobs, jobs);
    EXPECT_EQ(record->queried, branch.queried);
    EXPECT_EQ(record->result, branch.queried ? 23 : 99);
    EXPECT_EQ(current->getNPAFlag(), branch.queried);
    EXPECT_EQ(record->pushScanRegistered, jobs > 0);
    EXPECT_EQ(record->upgradeRegistered, jobs > 0);
    EXPECT_FALSE(record->busy);
  }
};

TEST_F(StateBranchTest, EveryCombinationCallsLogsAndRecordsAsItsBranchSays) {
  for (const auto& branch : kBranches) {
    for (const auto kind : branch.kinds) {
      for (const int jobs : branch.jobs) runBranch(branch, kind, jobs);
    }
  }
  EXPECT_EQ(combinations.size(), kCombinations);
}

TEST_F(StateTest, IdleUsbPrinterWithoutRequestAndPushScanIsNotRead) {
  record->queried = true;
  record->jobs = 3;

  EXPECT_EQ(run(), 0);

  EXPECT_EQ(journal.entries(), (Texts{kAsksJobs, kAsksPushScan, kNoticeLine, "notice 7"}));
  EXPECT_FALSE(record->queried);
  EXPECT_EQ(record->jobs, 0);
}

TEST_F(StateTest, PrintingUsbPrinterIsReadThroughItsControlPortOnly) {
  libraries.jobs = 1;
  run();
  EXPECT_FALSE(record->queried);

  printer->hasCtrlPort = true;
  run();
  EXPECT_TRUE(record->queried);
}

TEST_F(StateTest, IdleNetworkPrinterWithoutRequestKeepsItsResult) {
  printer->connectionKind = kNetwork;
  record->result = 5;

  EXPECT_EQ(run(), 0);

  EXPECT_EQ(journal.entries(), (Texts{kAsksJobs, kChecksAddress, kNoticeLine, "notice 7"}));
  EXPECT_EQ(record->result, 5);
}

TEST_F(StateTest, NetworkPrinterThatBeginsToPrintLogsNewAndOldJobs) {
  printer->connectionKind = kNetwork;
  run();
  libraries.jobs = 2;
  run();

  const auto entries = journal.entries();
  EXPECT_EQ(Texts(entries.begin() + 4, entries.end()),
            (Texts{kAsksJobs, kChecksAddress, "DBG new job: 2, old job: 0", kReadsState,
                   "DBG get net printer (printing) state result: 0", kNoticeLine, "notice 7"}));
  EXPECT_EQ(record->jobs, 2);
}

TEST_F(StateTest, BusySkipsTheRunWithoutAnyLibraryCall) {
  record->busy = true;
  record->jobs = 3;
  record->result = 4;
  record->queried = true;
  record->ipChanged = true;
  current->setReqNPA();

  EXPECT_EQ(runWith({task(8, std::make_shared<State>())}), 1);

  EXPECT_EQ(journal.entries(), Texts{"DBG printer is busy, skip state query."});
  EXPECT_FALSE(current->getNPAFlag());
  EXPECT_FALSE(current->getUpdate());
  EXPECT_TRUE(record->busy && record->queried && record->ipChanged);
  EXPECT_EQ(record->jobs, 3);
  EXPECT_EQ(record->result, 4);
}

TEST_F(StateTest, BusyIsReadOncePerRunAtItsStart) {
  libraries.whileAskingJobs = [&] { std::atomic_ref(record->busy).store(true); };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(journal.entries().back(), "notice 7");
}

// ThreadSanitizer looks on.
TEST_F(StateTest, BusyMayBeSetFromAnotherThreadAtAnyTime) {
  std::atomic<bool> done{false};
  std::thread caller([&] {
    for (bool busy = true; !done.load(); busy = !busy) std::atomic_ref(record->busy).store(busy);
  });

  for (int round = 0; round < 50; ++round) {
    const int result = run();
    EXPECT_TRUE(result == 0 || result == 1) << result;
  }

  done.store(true);
  caller.join();
}

TEST_F(StateTest, OtherRecordIsRefusedAndTheNPAMarkStays) {
  current->setResource(std::make_shared<int>(1));

  EXPECT_EQ(runWith({task(8, record)}), 2);

  EXPECT_EQ(journal.entries(), Texts{"ERR resource type is NOT state"});
  EXPECT_TRUE(current->getNPAFlag());
}

TEST_F(StateTest, NPAMarkIsClearedOnlyAfterTheJobsWereAsked) {
  bool marked = false;
  libraries.whileAskingJobs = [&] { marked = current->getNPAFlag(); };
  run();
  EXPECT_TRUE(marked);
  EXPECT_FALSE(current->getNPAFlag());
}

TEST_F(StateTest, NPAMarkIsSetAfterTheRead) {
  current->setReqNPA();
  bool markedWhileReading = true;
  libraries.whileReading = [&](qzstd::PrinterInfo&) { markedWhileReading = current->getNPAFlag(); };
  run();
  EXPECT_FALSE(markedWhileReading);
  EXPECT_TRUE(current->getNPAFlag());
}

TEST_F(StateTest, FailedReadIsRecordedAndStillCountsAsQueried) {
  current->setReqNPA();
  libraries.stateResult = -5;

  EXPECT_EQ(run(), 0);

  EXPECT_EQ(journal.entries(),
            (Texts{kAsksJobs, kReadsState, "DBG get usb printer (request) state result: -5", kNoticeLine, "notice 7"}));
  EXPECT_EQ(record->result, -5);
  EXPECT_TRUE(record->queried);
}

TEST_F(StateTest, AddressChangeIsLoggedWhenItIsTrueAfterTheCheck) {
  struct Row {
    bool before;
    std::optional<bool> answer;  // none: the call leaves the flag as it is
    bool after;
  };
  const Row rows[] = {{false, {}, false}, {false, false, false}, {false, true, true},
                      {true, {}, true},   {true, false, false},  {true, true, true}};
  printer->connectionKind = kNetwork;
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << "before " << row.before << ", answered " << row.answer.value_or(row.before));
    record->ipChanged = row.before;
    libraries.addressChanged = row.answer;
    const auto before = static_cast<std::ptrdiff_t>(journal.entries().size());

    run();

    Texts expected{kAsksJobs, std::string("AppMgr_CheckIpChange(printer-1, ") + (row.before ? "true)" : "false)")};
    if (row.after) expected.emplace_back("DBG net printer ip changed.");
    expected.insert(expected.end(), {kNoticeLine, "notice 7"});
    const auto entries = journal.entries();
    EXPECT_EQ(Texts(entries.begin() + before, entries.end()), expected);
    EXPECT_EQ(record->ipChanged, row.after);
  }
}

TEST_F(StateTest, ConnectionKindIsLookedAtOnceEvenIfAReadChangesIt) {
  current->setReqNPA();
  libraries.whileReading = [](qzstd::PrinterInfo& read) { read.connectionKind = kNetwork; };

  run();

  EXPECT_EQ(libraries.calls(), (Texts{kAsksJobs, kReadsState}));
}

TEST_F(StateTest, ConnectionKindIsTheOneAfterTheJobsWereAsked) {
  libraries.whileAskingJobs = [&] { printer->connectionKind = kNetwork; };
  run();
  EXPECT_EQ(libraries.calls(), (Texts{kAsksJobs, kChecksAddress}));
}

TEST_F(StateTest, LinesCarryTheNumbersOfTheirOwnPlaces) {
  current->setReqNPA();
  run();
  libraries.jobs = 1;
  printer->hasCtrlPort = true;
  run();

  const auto lines = logging.lines().all();  // after the one of the attach: read, notice, read, notice
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_NE(lines[1].number, lines[3].number);
  EXPECT_NE(lines[1].number, lines[2].number);
  EXPECT_EQ(lines[2].number, lines[4].number);
}

// References: nothing of a run outlives it, on any way out.

TEST_F(StateTest, ReleasesEveryReferenceOnEveryWayOut) {
  const struct {
    const char* name;
    bool busy;
    bool wrongRecord;
    int result;
  } rows[] = {{"done", false, false, 0}, {"skipped", true, false, 1}, {"refused", false, true, 2}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    auto ownRecord = std::make_shared<State>();
    ownRecord->busy = row.busy;
    auto own = task(1, row.wrongRecord ? std::any(std::make_shared<int>(1)) : std::any(ownRecord));
    auto observer = taskFor(newPrinter(L"printer-2"), 2, ownRecord);
    auto entry = entryOf({own, observer});
    const std::weak_ptr<void> held[] = {
        entry, own, observer, ownRecord, own->getWnd(), observer->getWnd(), observer->getInfo()};
    ownRecord.reset();
    own.reset();
    observer.reset();
    const auto released = [&] {
      return std::all_of(std::begin(held), std::end(held), [](const auto& weak) { return weak.expired(); });
    };

    // Asked within the full expression, where the call's own parameter still exists.
    int result = -1;
    const bool releasedOnReturn = (result = comm_thread_state(std::move(entry)), released());

    EXPECT_EQ(result, row.result);
    EXPECT_TRUE(releasedOnReturn);
  }
  EXPECT_EQ(printer.use_count(), 2);  // the fixture's own and that of its task
}

}  // namespace
