/// `Stop` while an operation goes on for long: it marks no task deleted, so the operation goes on to its own end.

#include <any>
#include <mutex>
#include <string>
#include <vector>

#include "module/ModuleTest.h"
#include "support/PlainWindow.h"

namespace {

using application::loadPrinters;
using application::printer;

constexpr auto kStep = std::chrono::milliseconds(500);

/// A job that the simulated printer has done after two steps, and what its operation has come to at each notice.
struct LongOperation {
  const char* name;
  AppComm::Type type;
  std::any (*record)();
  bool (*isDone)(const std::any& record);
  const char* poll;  // functions
  const char* exit;
  std::vector<std::string> notices;
};

void PrintTo(const LongOperation& operation, std::ostream* out) { *out << operation.name; }

template <class Record>
std::any fresh() {
  return std::make_shared<Record>();
}

template <class Record, bool Record::*done>
bool isDone(const std::any& record) {
  return std::any_cast<const std::shared_ptr<Record>&>(record).get()->*done;
}

const LongOperation kOperations[] = {
    {"FirmwareTransfer",
     AppComm::Type::FirmUpgrade,
     fresh<AppComm::FirmUp>,
     isDone<AppComm::FirmUp, &AppComm::FirmUp::done>,
     "AppPrinterSdk_UpgradeFwProgress",
     "AppPrinterSdk_UpgradeFwExit",
     {"1 polls, 0 exits", "2 polls, 0 exits", "3 polls, 0 exits, done", "3 polls, 1 exits, done"}},
    {"NetworkList",
     AppComm::Type::GetWifiList,
     fresh<AppComm::WIFI>,
     isDone<AppComm::WIFI, &AppComm::WIFI::finished>,
     "AppMgr_GetPrinterWifiProgress",
     "AppMgr_GetPrinterWifiExit",
     {"1 polls, 0 exits", "2 polls, 0 exits", "3 polls, 1 exits, done"}},
};

/// One such operation, whose window calls `Stop` when it is told for the first time.
class StopTest : public ModuleTest, public testing::WithParamInterface<LongOperation> {
 protected:
  StopTest() {
    loadPrinters(printer("p", "connection='usb' interval='20'",
                         "<firmware size='1000' rate='1000'/><wifi segments='2' segment-time='500'/>"));
    simulator::holdTime();
    const auto info = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"p"));
    task = AppComm::Node::Instance(info, std::make_shared<Window>(*this), 1, GetParam().type);
    task->setResource(m_record);
  }

  ~StopTest() override {
    task->setDelete();  // without effect, unless the test failed
    endAll();
  }

  std::vector<std::string> notices() const {
    const std::lock_guard lock(m_mutex);
    return m_notices;
  }

  std::shared_ptr<AppComm::Node> task;

 private:
  class Window : public support::PlainWindow {
   public:
    explicit Window(StopTest& test) : m_test(test) {}

    bool Notice(long /*code*/) const override {
      if (m_test.takeNotice() == 1) Stop();
      simulator::advanceTime(kStep);
      return true;
    }

   private:
    StopTest& m_test;
  };

  /// Returns the number of notices.
  std::size_t takeNotice() {
    auto shown = std::to_string(begun(GetParam().poll, L"p")) + " polls, " + std::to_string(begun(GetParam().exit, L"p")) +
                 " exits" + (GetParam().isDone(m_record) ? ", done" : "") + (task->getDelete() ? ", deleted" : "");
    const std::lock_guard lock(m_mutex);
    m_notices.push_back(std::move(shown));
    return m_notices.size();
  }

  const std::any m_record = GetParam().record();
  mutable std::mutex m_mutex;
  std::vector<std::string> m_notices;  // guarded by it
};

TEST_P(StopTest, LetsTheOperationPollOnToItsEndAndMarksItsTaskNotDeleted) {
  Add(task);

  ASSERT_TRUE(threadsEnd()) << "the list ends with the operation";
  EXPECT_EQ(notices(), GetParam().notices);
  EXPECT_EQ(begun(GetParam().exit, L"p"), 1U);
  EXPECT_FALSE(task->getDelete());
}

INSTANTIATE_TEST_SUITE_P(Operations, StopTest, testing::ValuesIn(kOperations),
                         [](const auto& operation) { return std::string(operation.param.name); });

}  // namespace
