// Passwords of wireless networks never reach the log: every operation, with its levels all on, on every way that it can go,
// with records and answers that hold a password wherever one can be.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "comm/EntryPoint.h"
#include "log/Log.h"
#include "operations/TableTest.h"

namespace {

using AppComm::Type;
using AppMgr::WifiNetwork;

// No four characters of it stand in a row anywhere else.
constexpr std::wstring_view kPassword = L"qZ7#vX9!kJ4@wM2$";
constexpr std::size_t kTellingPart = 4;

// A password that fills its field to the last unit.
WifiNetwork networkWithPassword(const wchar_t* name) {
  WifiNetwork network;
  std::copy_n(name, std::wcslen(name), network.name.begin());
  for (std::size_t index = 0; index < network.password.size(); ++index) {
    network.password[index] = kPassword[index % kPassword.size()];
  }
  return network;
}

template <class Unit>
std::string bytesOf(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t character : text) {
    const auto unit = static_cast<Unit>(character);
    bytes.append(reinterpret_cast<const char*>(&unit), sizeof unit);
  }
  return bytes;
}

// Whether any part of the password is in the bytes, whatever the width of its characters.
bool holdsPassword(const std::string& bytes) {
  for (std::size_t start = 0; start + kTellingPart <= kPassword.size(); ++start) {
    const auto part = kPassword.substr(start, kTellingPart);
    for (const auto& form : {bytesOf<std::uint8_t>(part), bytesOf<std::uint16_t>(part), bytesOf<std::uint32_t>(part)}) {
      if (bytes.find(form) != std::string::npos) return true;
    }
  }
  return false;
}

// Answers as `AnsweringPrinter` does, ends each job with its second poll, and sees passwords itself.
class TellingPrinter : public AnsweringPrinter {
 public:
  using AnsweringPrinter::AnsweringPrinter;

  int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* printer, std::int32_t* total) override {
    return begin(total, AnsweringPrinter::AppMgr_GetPrinterWifiStart(printer, total));
  }
  int AppMgr_GetPrinterWifiProgress(std::int32_t* segment) override {
    return goOn(segment, AnsweringPrinter::AppMgr_GetPrinterWifiProgress(segment));
  }
  int AppMgr_GetPrinterWifiResult(std::vector<WifiNetwork>* networks) override {
    networks->assign(3, networkWithPassword(L"told"));
    return AnsweringPrinter::AppMgr_GetPrinterWifiResult(networks);
  }
  int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* printer, WifiNetwork* network, std::int32_t* total) override {
    return begin(total, AnsweringPrinter::AppMgr_PrinterWifiConfigStart(printer, network, total));
  }
  int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment) override {
    return goOn(segment, AnsweringPrinter::AppMgr_PrinterWifiConfigProgress(segment));
  }
  int AppPrinterSdk_UpgradeFwProgress(std::int32_t* current, std::int32_t* total) override {
    *total = 2;
    return goOn(current, AnsweringPrinter::AppPrinterSdk_UpgradeFwProgress(current, total));
  }

 private:
  int begin(std::int32_t* total, int result) {
    m_polls = 0;
    *total = 2;
    return result;
  }
  int goOn(std::int32_t* done, int result) {
    *done = ++m_polls;
    return result;
  }

  std::int32_t m_polls = 0;
};

std::any wifi() {
  const auto record = std::make_shared<AppComm::WIFI>();
  record->networks = {networkWithPassword(L"asked"), networkWithPassword(L"another")};
  return record;
}

// A code for a phone that joins the network holds the password too.
std::any image() {
  const auto record = std::make_shared<AppComm::QRCode>();
  record->image = L"WIFI:T:WPA;S:Office;P:" + std::wstring(kPassword) + L";;";
  return record;
}

std::any started() {
  const auto record = std::make_shared<AppComm::FirmUp>();
  record->triggered = record->ok = record->done = true;
  return record;
}

std::any parameters() {
  const auto record = std::make_shared<AppComm::DevParam>();
  record->sleepTimeOk = record->supplyAlarmOk = record->paperAlarmOk = record->timedClearOk = record->silentModeOk = true;
  return record;
}

// The resources that an operation takes.
std::vector<std::any> resourcesFor(Type type) {
  switch (type) {
    case Type::State:
    case Type::RegPushscan:
    case Type::RegUpgrade:
      return {fresh<AppComm::State>()};
    case Type::GetAlarm:
      return {std::any()};
    case Type::GetDevParam:
    case Type::SetSupplyAlarm:
    case Type::SetSleepTime:
    case Type::SetPaperAlarm:
    case Type::SetSilentMode:
    case Type::SetTimedClear:
      return {parameters()};
    case Type::GetPushscan:
      return {fresh<AppPrinterSdk::PushScanPara>()};
    case Type::PrintAdjust:
    case Type::PrintClean:
      return {fresh<AppComm::Maintain>()};
    case Type::PrintQRcode:
      return {image()};
    case Type::GetNetwork:
    case Type::SetNetwork:
      return {fresh<AppComm::NetWork>()};
    case Type::SetAdjust:
      return {fresh<AppComm::SetAdjust>()};
    case Type::FirmNewCheck:
      return {fresh<AppComm::FirmUp>(), started()};
    case Type::FirmUpgrade:
    case Type::FirmUpCheck:
      return {fresh<AppComm::FirmUp>()};
    case Type::GetWifiList:
    case Type::SetWifiList:
      return {wifi(), fresh<AppComm::WIFI>()};
  }
  return {};
}

using Answers = std::map<std::string, int>;

// How the printer takes it: its answers, jobs in progress, its status. A function that is not named answers 0, or false.
struct Way {
  const char* name;
  Answers answers;
  std::int32_t status = 0;
};

const Answers kYes{{"AppPrinterSdk_IsSuppportSuppliesAlarm", 1},
                   {"AppPrinterSdk_IsSuppportPushScan", 1},
                   {"AppSdk_PrintBmp", 1},
                   {"AppSdk_SetPrinterUpgradeInfo", 1},
                   {"AppSdk_TriggerFwUpgradeStart", 1},
                   {"AppSdk_TriggerFwUpgradeProcess", 1},
                   {"AppSdk_TriggerFwUpgradeResult", 1}};

Answers failing() {
  Answers answers;
#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  if (std::is_same_v<result, int>) answers[#name] = -6;
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
  return answers;
}

const Way kWays[] = {
    {"good", kYes},      {"failing", failing()}, {"printing", {{"AppMgr_GetPrintingJob", 2}}},
    {"status 1", {}, 1}, {"status 5", {}, 5},    {"in the network", {{"AppPrinterSdk_IsNetConnected", 1}}},
};

struct Row {
  Type type;
  std::string name;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

std::vector<Row> rows() {
  std::vector<Row> made;
  for (const auto& handler : operations::kHandlerTable) {
    made.push_back({handler.type, std::string(handler.name).substr(std::string_view("comm_thread_").size())});
  }
  return made;
}

class PasswordTest : public OperationTestWith<TellingPrinter>, public testing::WithParamInterface<Row> {
 protected:
  PasswordTest() : OperationTestWith(handlerRowOf(GetParam().type).name) {
    type = GetParam().type;
    logging.windows().writeFile(L"C:\\log\\orva_config.ini", "[Corvane]\r\nError=1\r\nWarning=1\r\nDebug=1\r\nInfo=1\r\n");
    comm::detachProcess();
    comm::attachProcess(nullptr);
    EXPECT_EQ(g_logMask, LOG_ERROR | LOG_WARNING | LOG_DEBUG | LOG_INFO);
  }

  // Ends with the second notice at the latest: an operation that would go on is told that its task is not wanted any more.
  int run(const std::any& resource) {
    int notices = 0;
    const auto window = std::make_shared<NoticeWindow>([&notices](long) { return ++notices < 2; });
    const auto current = AppComm::Node::Instance(printer, window, 7, type);
    current->setResource(resource);
    return handlerRowOf(type).handler(entryOf({current, task(8, wifi())}));
  }

  void runEveryWay() {
    for (const auto& way : kWays) {
      libraries.answers = way.answers;
      printer->deviceStatus = way.status;
      for (const std::int32_t kind : {0, 1}) {
        printer->connectionKind = kind;
        for (const auto& resource : resourcesFor(type)) run(resource);
      }
    }
  }

  std::string log() { return logging.windows().fileBytes(L"C:\\log\\Corvane.log").value_or(""); }
};

INSTANTIATE_TEST_SUITE_P(Operations, PasswordTest, testing::ValuesIn(rows()), RowName());

TEST_P(PasswordTest, IsNotInTheLogHoweverTheOperationGoes) {
  const auto before = logging.lines().all().size();

  runEveryWay();

  EXPECT_EQ(logging.lines().all().size() > before, type != Type::FirmUpCheck) << "the watch alone says nothing";
  EXPECT_FALSE(holdsPassword(log()));
}

TEST_P(PasswordTest, IsNotInTheLogWhenTheRecordIsRefused) {
  const bool takesIt = type == Type::GetWifiList || type == Type::SetWifiList;
  const auto refused = takesIt ? image() : wifi();

  const int result = run(refused);

  EXPECT_EQ(result, type == Type::GetAlarm ? 0 : 2);  // that one takes no record, and so refuses none
  EXPECT_FALSE(holdsPassword(log()));
}

// What the tests above rely on: that the way through an operation hands the password out, and that the search sees it.
class PasswordSearchTest : public PasswordTest {};

INSTANTIATE_TEST_SUITE_P(Wifi, PasswordSearchTest, testing::Values(Row{Type::SetWifiList, "setWifiList"}));

TEST_P(PasswordSearchTest, FindsAPartOfThePasswordInALineOfTheRun) {
  libraries.during = [](const std::string& function) {
    if (function != "AppMgr_PrinterWifiConfigStart") return;
    WriteLog(LOG_INFO, "test", 1, L"joining with %ws", std::wstring(kPassword.substr(5, kTellingPart)).c_str());
  };

  runEveryWay();

  EXPECT_TRUE(holdsPassword(log()));
}

TEST_P(PasswordSearchTest, FindsItInEveryWidth) {
  const auto part = kPassword.substr(9, kTellingPart);
  EXPECT_TRUE(holdsPassword("x" + bytesOf<std::uint8_t>(part) + "x"));
  EXPECT_TRUE(holdsPassword("x" + bytesOf<std::uint16_t>(part) + "x"));
  EXPECT_TRUE(holdsPassword("x" + bytesOf<std::uint32_t>(part) + "x"));
  EXPECT_FALSE(holdsPassword(bytesOf<std::uint8_t>(kPassword.substr(0, kTellingPart - 1))));
}

}  // namespace
