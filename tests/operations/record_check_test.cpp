#include <set>
#include <vector>

#include "operations/TableTest.h"

namespace {

using AppComm::Type;

struct Resource {
  const char* name;
  std::any value;
};

// All that the operations with a `Record` must refuse, but for the empty resource.
template <class Record>
std::vector<Resource> othersThan() {
  std::vector<Resource> resources{
      {"State", fresh<AppComm::State>()},
      {"DevParam", fresh<AppComm::DevParam>()},
      {"PushScanPara", fresh<AppPrinterSdk::PushScanPara>()},
      {"Maintain", fresh<AppComm::Maintain>()},
      {"QRCode", fresh<AppComm::QRCode>()},
      {"NetWork", fresh<AppComm::NetWork>()},
      {"SetAdjust", fresh<AppComm::SetAdjust>()},
      {"FirmUp", fresh<AppComm::FirmUp>()},
      {"WIFI", fresh<AppComm::WIFI>()},
  };
  std::erase_if(resources, [](const Resource& other) { return other.value.type() == typeid(std::shared_ptr<Record>); });
  EXPECT_EQ(resources.size(), 8U);
  resources.push_back({"the record itself", Record()});
  resources.push_back({"a constant record", std::make_shared<const Record>()});
  resources.push_back({"a plain pointer", static_cast<Record*>(nullptr)});
  resources.push_back({"no record at all", 5});
  return resources;
}

struct Row {
  Type type;
  const char* name;
  const char* mismatch;
  std::any (*record)();
  std::vector<Resource> (*others)();
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

template <class Record>
Row rowOf(Type type, const char* name, const char* mismatch) {
  return {type, name, mismatch, fresh<Record>, othersThan<Record>};
}

constexpr const char* kNotState = "ERR resource type is NOT state";
constexpr const char* kNotParameter = "ERR resource type is NOT device parameter.";
constexpr const char* kNotMaintain = "ERR resource type is NOT device maintain.";
constexpr const char* kNotNetwork = "ERR resource type is NOT network";
constexpr const char* kNotFirmware = "ERR resource type is NOT firmware upgrade";
constexpr const char* kNotWifi = "ERR resource type is NOT WIFI";

const Row kRows[] = {
    rowOf<AppComm::State>(Type::State, "state", kNotState),
    rowOf<AppComm::DevParam>(Type::GetDevParam, "getDevParam", kNotParameter),
    rowOf<AppComm::DevParam>(Type::SetSupplyAlarm, "setSupplyAlarm", "ERR resource type is NOT device device parameter."),
    rowOf<AppComm::DevParam>(Type::SetSleepTime, "setSleepTime", kNotParameter),
    rowOf<AppComm::DevParam>(Type::SetPaperAlarm, "setPaperAlarm", kNotParameter),
    rowOf<AppComm::DevParam>(Type::SetSilentMode, "setSilentMode", kNotParameter),
    rowOf<AppComm::DevParam>(Type::SetTimedClear, "setTimedClear", kNotParameter),
    rowOf<AppPrinterSdk::PushScanPara>(Type::GetPushscan, "getPushscan", "ERR resource type is NOT push scan parameter."),
    rowOf<AppComm::State>(Type::RegPushscan, "regPushscan", kNotState),
    rowOf<AppComm::State>(Type::RegUpgrade, "regUpgrade", kNotState),
    rowOf<AppComm::Maintain>(Type::PrintAdjust, "printAdjust", kNotMaintain),
    rowOf<AppComm::Maintain>(Type::PrintClean, "printClean", kNotMaintain),
    rowOf<AppComm::QRCode>(Type::PrintQRcode, "printQRcode", "ERR resource type is NOT QRCode."),
    rowOf<AppComm::NetWork>(Type::GetNetwork, "getNetwork", kNotNetwork),
    rowOf<AppComm::NetWork>(Type::SetNetwork, "setNetwork", kNotNetwork),
    rowOf<AppComm::SetAdjust>(Type::SetAdjust, "setAdjust", "ERR resource type is NOT adjust cmd"),
    rowOf<AppComm::FirmUp>(Type::FirmNewCheck, "firmNewCheck", kNotFirmware),
    rowOf<AppComm::FirmUp>(Type::FirmUpgrade, "firmUpgrade", kNotFirmware),
    rowOf<AppComm::FirmUp>(Type::FirmUpCheck, "firmUpCheck", kNotFirmware),
    rowOf<AppComm::WIFI>(Type::GetWifiList, "getWifiList", kNotWifi),
    rowOf<AppComm::WIFI>(Type::SetWifiList, "setWifiList", kNotWifi),
};

TEST(RecordCheck, IsTestedForEveryOperationButTheAlarmReadWhichTakesNone) {
  std::set<Type> types{Type::GetAlarm};
  for (const auto& row : kRows) types.insert(row.type);
  EXPECT_EQ(types.size(), operations::kTaskTypes);
  EXPECT_EQ(std::size(kRows), operations::kTaskTypes - 1);
}

class RecordCheckTest : public TableTest<Row> {
 protected:
  // An observer has the right record: only the task's own counts.
  void expectRefusal(const std::any& resource, bool mark) {
    const auto current = task(7, resource);
    const auto observer = task(8, row().record());
    for (const auto& each : {current, observer}) {
      if (mark) each->setNPAFlag();
      if (mark) each->setReqNPA();
    }

    EXPECT_EQ(run(entryOf({current, observer})), 2);

    for (const auto& each : {current, observer}) {
      EXPECT_TRUE(each->getOnce());
      EXPECT_EQ(each->getNPAFlag(), mark);
      EXPECT_EQ(each->getReqNPA(), mark);
      EXPECT_FALSE(each->getUpdate());
      EXPECT_FALSE(each->getDelete());
    }
  }
};

TEST_P(RecordCheckTest, EmptyResourceIsRefusedWithTheErrorLineAndNothingElse) {
  expectRefusal({}, true);
  expectRefusal({}, false);
  EXPECT_EQ(journal.entries(), (Texts{row().mismatch, row().mismatch}));
}

TEST_P(RecordCheckTest, EveryOtherResourceIsRefusedWithTheErrorLineAndNothingElse) {
  Texts expected;
  for (const auto& resource : row().others()) {
    SCOPED_TRACE(resource.name);
    for (const bool mark : {true, false}) {
      expectRefusal(resource.value, mark);
      expected.emplace_back(row().mismatch);
    }
  }
  EXPECT_EQ(journal.entries(), expected);
}

INSTANTIATE_TEST_SUITE_P(Operations, RecordCheckTest, testing::ValuesIn(kRows), RowName());

}  // namespace
