#include <algorithm>
#include <array>

#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {
namespace {

struct ByteParameter {
  Function get;
  Function set;
  std::uint8_t DeviceParameters::*member;
};
constexpr std::array byteParameters{
    ByteParameter{Function::getSuppliesAlarm, Function::setSuppliesAlarm, &DeviceParameters::suppliesAlarm},
    ByteParameter{Function::getPaperAlarm, Function::setPaperAlarm, &DeviceParameters::paperAlarm},
    ByteParameter{Function::getTimedClear, Function::setTimedClear, &DeviceParameters::timedClear},
    ByteParameter{Function::getSilentMode, Function::setSilentMode, &DeviceParameters::silentMode},
};

template <typename Value>
int get(Function function, const qzstd::PrinterInfo* printer, Value DeviceParameters::*member, Value* value, Value hostile) {
  return answer(function, with(byUid(printer), value), [=](const Call& call) {
    const auto read = [=](const PrinterState& state, milliseconds) { return state.contents.parameters.*member; };
    *value = call.garbage() ? hostile : call.onState(read);
    return success;
  });
}

template <typename Value>
int set(Function function, const qzstd::PrinterInfo* printer, Value DeviceParameters::*member, const Value* value) {
  return answer(function, with(byUid(printer), value), [=](const Call& call) {
    const auto keep = [=](PrinterState& state, milliseconds) { state.contents.parameters.*member = *value; };
    if (!call.garbage()) call.onState(keep);
    return success;
  });
}

}  // namespace

bool isSupportSuppliesAlarm(const qzstd::PrinterInfo* printer) {
  return answerYesNo(Function::isSupportSuppliesAlarm, byUid(printer),
                     [](const Call& call) { return call.printer().suppliesAlarm != call.garbage(); });
}

int getSleepTime(const qzstd::PrinterInfo* printer, std::int32_t* value) {
  return get(Function::getSleepTime, printer, &DeviceParameters::sleepTime, value, garbage::sleepTime);
}

int setSleepTime(const qzstd::PrinterInfo* printer, const std::int32_t* value) {
  return set(Function::setSleepTime, printer, &DeviceParameters::sleepTime, value);
}

int getParameter(Function function, const qzstd::PrinterInfo* printer, std::uint8_t* value) {
  const auto parameter = std::ranges::find(byteParameters, function, &ByteParameter::get);
  return get(function, printer, parameter->member, value, garbage::byteParameter);
}

int setParameter(Function function, const qzstd::PrinterInfo* printer, const std::uint8_t* value) {
  const auto parameter = std::ranges::find(byteParameters, function, &ByteParameter::set);
  return set(function, printer, parameter->member, value);
}

}  // namespace simulator
