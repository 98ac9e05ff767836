#include "model/Holdups.h"

#include <algorithm>
#include <chrono>

#include "model/Describe.h"

namespace soak {
namespace {

using namespace std::chrono_literals;

constexpr auto kLong = 1s;
constexpr auto kTimeEnough = 500ms;  // for a call of a control function
constexpr auto kLately = 1s;
constexpr std::ptrdiff_t kBusy = 3;  // printers
constexpr int kEnough = 3;           // long calls, one after the other: no machine stands still three times and otherwise never
// A list that `Stop` has taken out of the registry ends with the run that it is in; hardly any takes longer.
constexpr auto kLongestRun = 10s;

constexpr std::array<std::string_view, 4> kWhat{"library call for another printer", "Add for the same printer",
                                                "StartNPA or PauseNPA for the same printer", "Stop"};

}  // namespace

// The printers of the calls just before have tasks, unless `Stop` has come.
bool Holdups::areOthersBusy(const Event& event) const {
  if (m_lastStop && event.time - *m_lastStop < kLately) return false;
  return std::ranges::count_if(m_lastCall, [&](const auto& last) {
           return last.first != event.printer && event.time - last.second < kLately;
         }) >= kBusy;
}

// An old worker of the printer that ends takes newer lists out of the registry.
bool Holdups::isRegistered(const Event& event) const {
  if (m_lastStop && event.time - *m_lastStop < kLongestRun) return false;
  const auto end = m_lastEnd.find(event.printer);
  return end == m_lastEnd.end() || end->second < m_firstCall.at(event.thread);
}

void Holdups::beginCall(const Event& event) {
  m_firstCall.try_emplace(event.thread, event.number);
  m_calls[event.thread] = {.begin = event, .othersAreBusy = areOthersBusy(event), .registered = isRegistered(event)};
}

std::optional<Holdups::Kind> Holdups::kindOf(What control) {
  switch (control) {
    case What::addBegin:
    case What::addEnd:
      return add;
    case What::startBegin:
    case What::startEnd:
    case What::pauseBegin:
    case What::pauseEnd:
      return request;
    case What::stopBegin:
    case What::stopEnd:
      return stop;
    default:
      return std::nullopt;
  }
}

bool Holdups::concerns(Kind kind, const Call& call, const Event& event) {
  if (kind == otherCall) return call.begin.printer != event.printer;
  return kind == stop || (call.registered && call.begin.printer == event.printer);
}

void Holdups::beginControl(Kind kind, const Event& event) {
  m_control[event.thread] = event;
  for (auto& [thread, call] : m_calls) {
    if (concerns(kind, call, event) && !call.begun[kind]) call.begun[kind] = event.time;
  }
}

bool Holdups::isMissed(Kind kind, const Call& call, Moment end) {
  if (call.ended[kind] || end - call.begin.time < kLong || call.begin.time < m_scores[kind].until) return false;
  if (kind == otherCall) return call.othersAreBusy && (!m_lastStop || *m_lastStop < call.begin.time);
  return call.begun[kind] && end - *call.begun[kind] >= kTimeEnough;
}

// Of what has begun and ended during other calls.
void Holdups::endControl(Kind kind, const Event& begin) {
  for (auto& [thread, call] : m_calls) {
    if (!concerns(kind, call, begin) || begin.number < call.begin.number) continue;
    call.ended[kind] = true;
    if (proves(kind, call)) {
      m_scores[kind].seen = true;
    } else {
      m_scores[kind].missed = 0;  // where `Stop` comes often, nothing else tells that a machine was slow
    }
  }
}

std::optional<std::string> Holdups::endCall(const Event& event) {
  const auto place = m_calls.find(event.thread);
  if (place == m_calls.end()) return std::nullopt;
  const Call call = place->second;
  m_calls.erase(place);
  m_lastCall[event.printer] = event.time;
  endControl(otherCall, call.begin);
  for (const Kind kind : {otherCall, add, request, stop}) {
    Score& score = m_scores[kind];
    if (!isMissed(kind, call, event.time)) continue;
    score.until = event.time;
    if (++score.missed < kEnough || score.seen) continue;
    return "difference:\nno " + std::string(kWhat[kind]) + " has ever begun and ended during a library call, although " +
           std::to_string(score.missed) + " of them took long enough for one; the last of these:\n  " + textOf(call.begin) +
           "\n  " + textOf(event) + "\n";
  }
  return std::nullopt;
}

std::optional<std::string> Holdups::see(const Event& event) {
  switch (event.what) {
    case What::callBegin:
      beginCall(event);
      break;
    case What::callEnd:
      return endCall(event);
    case What::stopBegin:
      m_lastStop = event.time;
      [[fallthrough]];
    case What::addBegin:
    case What::startBegin:
    case What::pauseBegin:
      beginControl(*kindOf(event.what), event);
      break;
    case What::stopEnd:
    case What::addEnd:
    case What::startEnd:
    case What::pauseEnd:
      if (const auto begun = m_control.extract(event.thread)) endControl(*kindOf(event.what), begun.mapped());
      break;
    case What::threadEnded:
      m_lastEnd[event.printer] = event.number;
      m_firstCall.erase(event.thread);
      break;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace soak
