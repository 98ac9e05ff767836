// What the operations that register, go on for long, or read push-scan parameters have in common in runs of some length,
// whether the printer does well or fails. The shortest run of every operation is looked at where the notices are tested, and
// the refusals where the records are.

#include "operations/Handlers.h"

#include <algorithm>

#include "Records.h"
#include "operations/LongOperationTest.h"

namespace {

using AppComm::FirmUp;
using AppComm::State;
using AppComm::WIFI;
using AppPrinterSdk::PushScanPara;

// Every call is answered at once, for good or bad, and every job ends with its second poll at the latest.
class WaysOutPrinter : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  bool good = true;
  std::weak_ptr<FirmUp> watched;  // done once the state was read

  int AppPrinterSdk_GetState(qzstd::PrinterInfo* /*printer*/) override {
    if (const auto record = watched.lock()) record->done = true;
    return result();
  }
  int AppPrinterSdk_RegisterPushScanUSB(qzstd::PrinterInfo* /*printer*/) override { return result(); }
  int AppPrinterSdk_GetPushScanPara(qzstd::PrinterInfo* /*printer*/, PushScanPara* /*parameters*/) override { return result(); }
  int AppPrinterSdk_UpgradeFwStart(qzstd::PrinterInfo* /*printer*/, std::wstring* /*firmware*/) override { return result(); }
  int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total) override { return answer(current, total); }
  void AppPrinterSdk_UpgradeFwExit() override {}
  bool AppPrinterSdk_IsNetConnected(qzstd::PrinterInfo* /*printer*/, int /*option*/) override { return false; }

  int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* /*printer*/, std::int32_t* total) override { return start(total); }
  int AppMgr_GetPrinterWifiProgress(std::int32_t* segment) override { return answer(segment, nullptr); }
  int AppMgr_GetPrinterWifiResult(std::vector<AppMgr::WifiNetwork>* /*networks*/) override { return result(); }
  void AppMgr_GetPrinterWifiExit() override {}
  int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* /*printer*/, AppMgr::WifiNetwork* /*network*/,
                                    std::int32_t* total) override {
    return start(total);
  }
  int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment) override { return answer(segment, nullptr); }
  void AppMgr_PrinterWifiConfigExit() override {}

  bool AppSdk_SetPrinterUpgradeInfo(qzstd::PrinterInfo* /*printer*/) override { return good; }
  bool AppSdk_TriggerFwUpgradeStart(qzstd::PrinterInfo* /*printer*/) override { return good; }

 private:
  int result() const { return good ? 0 : -6; }
  int start(std::int32_t* total) const {
    *total = 2;
    return result();
  }
  int answer(std::int32_t* done, std::int32_t* total) {
    *done = static_cast<std::int32_t>(++polls);
    if (total != nullptr) *total = 2;
    return result();
  }
};

template <class Record>
std::any holder() {
  return std::make_shared<Record>();
}

struct Row {
  const char* name;
  int (*handler)(std::shared_ptr<comm::CNode>);
  std::any (*resource)();
  int failed;  // the result when the printer fails
};

constexpr Row kRows[] = {
    {"comm_thread_regUpgrade", comm_thread_regUpgrade, holder<State>, 1},
    {"comm_thread_firmNewCheck", comm_thread_firmNewCheck, holder<FirmUp>, 0},
    {"comm_thread_firmUpgrade", comm_thread_firmUpgrade, holder<FirmUp>, 0},
    {"comm_thread_firmUpCheck", comm_thread_firmUpCheck, holder<FirmUp>, 0},
    {"comm_thread_regPushscan", comm_thread_regPushscan, holder<State>, 1},
    {"comm_thread_getPushscan", comm_thread_getPushscan, holder<PushScanPara>, -6},
    {"comm_thread_getWifiList", comm_thread_getWifiList, holder<WIFI>, 0},
    {"comm_thread_setWifiList", comm_thread_setWifiList, holder<WIFI>, 0},
};

class WaysOutTest : public OperationTestWith<WaysOutPrinter>, public testing::WithParamInterface<Row> {
 protected:
  WaysOutTest() : OperationTestWith(GetParam().name) {}

  // A resource for the operation, fresh.
  std::any resource() {
    auto made = GetParam().resource();
    if (const auto* record = std::any_cast<std::shared_ptr<FirmUp>>(&made)) libraries.watched = *record;
    libraries.polls = 0;
    return made;
  }
};

INSTANTIATE_TEST_SUITE_P(Each, WaysOutTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name).substr(sizeof("comm_thread_") - 1); });

TEST_P(WaysOutTest, LeavesTheNPAMarksAsTheWorkerSetThem) {
  for (const bool good : {true, false}) {
    for (const bool mark : {true, false}) {
      SCOPED_TRACE(testing::Message() << "good " << good << ", mark " << mark);
      libraries.good = good;
      const auto current = task(7, resource());
      const auto observer = task(8, std::any());
      for (const auto& each : {current, observer}) {
        mark ? each->setNPAFlag() : each->resetNPAFlag();
        mark ? each->setReqNPA() : each->resetReqNPA();
      }

      EXPECT_EQ(GetParam().handler(entryOf({current, observer})), good ? 0 : GetParam().failed);

      for (const auto& each : {current, observer}) {
        EXPECT_EQ(each->getNPAFlag(), mark);
        EXPECT_EQ(each->getReqNPA(), mark);
      }
    }
  }
}

TEST_P(WaysOutTest, ReleasesEveryReferenceOnEveryWayOut) {
  const struct {
    const char* name;
    bool good;
    bool wanted;
    bool refused;
  } ways[] = {{"done", true, true, false},
              {"failed", false, true, false},
              {"deleted", true, false, false},
              {"refused", true, true, true}};
  for (const auto& way : ways) {
    SCOPED_TRACE(way.name);
    libraries.good = way.good;
    auto held = way.refused ? std::any(std::make_shared<int>(1)) : resource();
    auto own = task(7, held, way.wanted);
    auto observer = taskFor(newPrinter(L"printer-2"), 8, std::move(held));
    auto entry = entryOf({own, observer});
    const std::weak_ptr<void> parts[] = {entry, own, observer, own->getWnd(), observer->getWnd(), observer->getInfo()};
    own.reset();
    observer.reset();

    // Asked within the full expression, where the call's own parameter still exists.
    int result = -1;
    const bool released = (result = GetParam().handler(std::move(entry)),
                           std::all_of(std::begin(parts), std::end(parts), [](const auto& part) { return part.expired(); }));

    EXPECT_EQ(result, way.refused ? 2 : way.good ? 0 : GetParam().failed);
    EXPECT_TRUE(released);
  }
  EXPECT_EQ(printer.use_count(), 1);  // the fixture's own
}

}  // namespace
