#include <algorithm>

#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {
namespace {

std::int32_t segmentsAfter(milliseconds age, milliseconds segmentTime, std::int32_t segments) {
  if (segmentTime == milliseconds::zero()) return segments;
  return static_cast<std::int32_t>(std::min<std::int64_t>(segments, age / segmentTime));
}

std::int32_t segmentsSeen(const Call& call) {
  const Wifi& wifi = call.printer().wifi;
  return segmentsAfter(call.job().age, wifi.segmentTime, wifi.segments);
}

template <std::size_t capacity>
std::wstring_view textIn(const std::array<wchar_t, capacity>& characters) {
  return {characters.begin(), std::ranges::find(characters, L'\0')};
}

AppMgr::WifiNetwork networkOf(const AccessPoint& point) {
  AppMgr::WifiNetwork network;
  std::ranges::copy(point.name, network.name.begin());
  network.security = point.security;
  network.signal = point.signal;
  return network;
}

void fillNetworks(std::vector<AppMgr::WifiNetwork>& networks, const Wifi& wifi, std::int32_t segments) {
  networks.clear();
  for (const AccessPoint& point : wifi.accessPoints) {
    if (point.segment <= segments) networks.push_back(networkOf(point));
  }
}

bool lets(const AccessPoint& point, const AppMgr::WifiNetwork& network) {
  constexpr std::int32_t open = 0;
  return point.name == textIn(network.name) && (point.security == open || point.password == textIn(network.password));
}

Job joinOf(const AppMgr::WifiNetwork* network, const Wifi& wifi) {
  if (network == nullptr) return {.willSucceed = false};
  const bool right = std::ranges::any_of(wifi.accessPoints, [&](const AccessPoint& point) { return lets(point, *network); });
  return {.subject = std::wstring(textIn(network->name)), .segments = wifi.joinSegments, .willSucceed = right};
}

}  // namespace

int getPrinterWifiStart(const qzstd::PrinterInfo* printer, std::int32_t* total) {
  const Target target = telling(with(byManagerId(printer), total), total);
  return answer(Function::getPrinterWifiStart, target, [total](const Call& call) {
    call.startJob(JobKind::wifiList);
    *total = call.garbage() ? garbage::segmentTotal(call.number()) : call.printer().wifi.segments;
    return success;
  });
}

int getPrinterWifiProgress(std::int32_t* segment) {
  const Target target = telling(with(ofThread(JobKind::wifiList), segment), segment);
  return answer(Function::getPrinterWifiProgress, target, [segment](const Call& call) {
    *segment = call.garbage() ? garbage::segment(call.number()) : segmentsSeen(call);
    return success;
  });
}

int getPrinterWifiResult(std::vector<AppMgr::WifiNetwork>* networks) {
  return answer(Function::getPrinterWifiResult, with(ofThread(JobKind::wifiList), networks), [networks](const Call& call) {
    if (call.garbage()) {
      garbage::fillNetworks(*networks);
    } else {
      fillNetworks(*networks, call.printer().wifi, segmentsSeen(call));
    }
    return success;
  });
}

void getPrinterWifiExit() {
  answerNothing(Function::getPrinterWifiExit, ofThread(JobKind::wifiList), [](const Call& call) { call.endJob(); });
}

int printerWifiConfigStart(const qzstd::PrinterInfo* printer, const AppMgr::WifiNetwork* network, std::int32_t* total) {
  const Target target = telling(with(byManagerId(printer), total), total);
  return answer(Function::printerWifiConfigStart, target, [=](const Call& call) {
    Job join = joinOf(network, call.printer().wifi);
    *total = call.garbage() ? garbage::segmentTotal(call.number()) : join.segments;
    call.startJob(JobKind::wifiJoin, std::move(join));
    return success;
  });
}

int printerWifiConfigProgress(std::int32_t* segment) {
  const Target target = telling(with(ofThread(JobKind::wifiJoin), segment), segment);
  return answer(Function::printerWifiConfigProgress, target, [segment](const Call& call) {
    if (call.garbage()) {
      *segment = garbage::segment(call.number());
      return success;
    }
    const auto [job, age] = call.job();
    *segment = segmentsAfter(age, call.printer().wifi.joinTime, job.segments);
    if (*segment < job.segments) return success;
    if (!job.willSucceed) return notJoined;
    call.onState([&](PrinterState& state, milliseconds) {
      state.contents.joinedNetwork = job.subject;
      state.contents.netConnected = true;
    });
    return success;
  });
}

void printerWifiConfigExit() {
  answerNothing(Function::printerWifiConfigExit, ofThread(JobKind::wifiJoin), [](const Call& call) { call.endJob(); });
}

}  // namespace simulator
