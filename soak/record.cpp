#include "Record.h"

#include <array>
#include <chrono>
#include <memory>
#include <thread>

#include "Recorder.h"
#include "Records.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

/// What no operation takes. A handler copies the task's resource to look at it, so the copy is seen on the handler's thread.
/// With `slow` it takes a while: nothing else slows the runs of such a task down.
class Telltale {
 public:
  Telltale(PrinterId printer, TaskId code, bool slow) : m_printer(printer), m_code(code), m_slow(slow) {}
  Telltale(const Telltale& other) : Telltale(other.m_printer, other.m_code, other.m_slow) {
    Recorder::instance().belongsTo(m_printer);
    Recorder::instance().record({.what = What::recordCopied, .printer = m_printer, .task = m_code});
    if (m_slow) std::this_thread::sleep_for(2ms);
  }
  Telltale(Telltale&&) = default;
  Telltale& operator=(const Telltale&) = delete;
  ~Telltale() = default;

 private:
  PrinterId m_printer;
  TaskId m_code;
  bool m_slow;
};

std::shared_ptr<AppComm::DevParam> parameters(const Selection& selected) {
  auto record = std::make_shared<AppComm::DevParam>();
  const std::array flags{&AppComm::DevParam::sleepTimeOk, &AppComm::DevParam::supplyAlarmOk, &AppComm::DevParam::paperAlarmOk,
                         &AppComm::DevParam::timedClearOk, &AppComm::DevParam::silentModeOk};
  for (std::size_t one = 0; one < flags.size(); ++one) (*record).*flags[one] = selected[one];
  return record;
}

std::shared_ptr<AppComm::WIFI> drawNetwork(Random& random) {
  auto record = std::make_shared<AppComm::WIFI>();
  if (random.chance(70)) {
    AppMgr::WifiNetwork network;
    network.name = {L'n', L'e', L't'};
    record->networks.push_back(network);
  }
  return record;
}

}  // namespace

// The alarms and the silent mode are seldom among them: each may bring a pause of a second.
Selection drawSelection(Random& random) {
  return {random.chance(50), random.chance(8), random.chance(8), random.chance(50), random.chance(5)};
}

std::any drawRecord(Random& random, const TaskTraits& traits, PrinterId printer, TaskId code, bool slow) {
  if (traits.wrongRecord) return Telltale(printer, code, slow);
  if (traits.type == Type::GetAlarm) return {};
  switch (traits.type) {
    case Type::State:
    case Type::RegPushscan:
    case Type::RegUpgrade:
      return std::make_shared<AppComm::State>();
    case Type::GetPushscan:
      return std::make_shared<AppPrinterSdk::PushScanPara>();
    case Type::PrintAdjust:
    case Type::PrintClean:
      return std::make_shared<AppComm::Maintain>();
    case Type::PrintQRcode:
      return std::make_shared<AppComm::QRCode>();
    case Type::SetAdjust:
      return std::make_shared<AppComm::SetAdjust>();
    case Type::GetNetwork:
    case Type::SetNetwork:
      return std::make_shared<AppComm::NetWork>();
    case Type::FirmNewCheck:
    case Type::FirmUpgrade:
    case Type::FirmUpCheck:
      return std::make_shared<AppComm::FirmUp>();
    case Type::GetWifiList:
    case Type::SetWifiList:
      return drawNetwork(random);
    default:
      return parameters(traits.selected);
  }
}

}  // namespace soak
