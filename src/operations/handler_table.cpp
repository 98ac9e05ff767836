#include "operations/HandlerTable.h"

#include "comm/HandlerTable.h"
#include "operations/Handlers.h"

namespace operations {

using AppComm::Type;

// One row a line.
// clang-format off
constexpr std::array<HandlerRow, kTaskTypes> kHandlerTable{{
    {Type::State, "comm_thread_state", comm_thread_state},
    {Type::GetAlarm, "comm_thread_getAlarm", comm_thread_getAlarm},
    {Type::GetDevParam, "comm_thread_getDevParam", comm_thread_getDevParam},
    {Type::SetSupplyAlarm, "comm_thread_setSupplyAlarm", comm_thread_setSupplyAlarm},
    {Type::SetSleepTime, "comm_thread_setSleepTime", comm_thread_setSleepTime},
    {Type::SetPaperAlarm, "comm_thread_setPaperAlarm", comm_thread_setPaperAlarm},
    {Type::SetSilentMode, "comm_thread_setSilentMode", comm_thread_setSilentMode},
    {Type::SetTimedClear, "comm_thread_setTimedClear", comm_thread_setTimedClear},
    {Type::GetPushscan, "comm_thread_getPushscan", comm_thread_getPushscan},
    {Type::RegPushscan, "comm_thread_regPushscan", comm_thread_regPushscan},
    {Type::RegUpgrade, "comm_thread_regUpgrade", comm_thread_regUpgrade},
    {Type::PrintAdjust, "comm_thread_printAdjust", comm_thread_printAdjust},
    {Type::PrintClean, "comm_thread_printClean", comm_thread_printClean},
    {Type::PrintQRcode, "comm_thread_printQRcode", comm_thread_printQRcode},
    {Type::GetNetwork, "comm_thread_getNetwork", comm_thread_getNetwork},
    {Type::SetNetwork, "comm_thread_setNetwork", comm_thread_setNetwork},
    {Type::SetAdjust, "comm_thread_setAdjust", comm_thread_setAdjust},
    {Type::FirmNewCheck, "comm_thread_firmNewCheck", comm_thread_firmNewCheck},
    {Type::FirmUpgrade, "comm_thread_firmUpgrade", comm_thread_firmUpgrade},
    {Type::FirmUpCheck, "comm_thread_firmUpCheck", comm_thread_firmUpCheck},
    {Type::GetWifiList, "comm_thread_getWifiList", comm_thread_getWifiList},
    {Type::SetWifiList, "comm_thread_setWifiList", comm_thread_setWifiList},
}};
// clang-format on

namespace {

// std::array fills missing rows with zeroes: every row must be there, in the order of the values.
constexpr bool isComplete(const std::array<HandlerRow, kTaskTypes>& table) {
  for (std::size_t index = 0; index < table.size(); ++index) {
    if (static_cast<std::size_t>(table[index].type) != index || table[index].name == nullptr) return false;
  }
  return true;
}
static_assert(isComplete(kHandlerTable), "one row per task type, in the order of the values");

}  // namespace
}  // namespace operations

namespace comm {

void registerHandlers(std::unordered_map<int, Handler>& handlers) {
  handlers.reserve(operations::kHandlerTable.size());
  for (const auto& row : operations::kHandlerTable) handlers[static_cast<int>(row.type)] = row.handler;
}

}  // namespace comm
