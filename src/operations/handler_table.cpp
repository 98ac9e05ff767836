#include "operations/HandlerTable.h"

#include "comm/HandlerTable.h"
#include "operations/Handlers.h"

namespace operations {

using AppComm::Type;

// One row a line.
// clang-format off
constexpr std::array<HandlerRow, kTaskTypes> kHandlerTable{{
    {Type::State, "comm_thread_state", comm_thread_state},
    {Type::GetAlarm, "comm_thread_getAlarm", nullptr},
    {Type::GetDevParam, "comm_thread_getDevParam", nullptr},
    {Type::SetSupplyAlarm, "comm_thread_setSupplyAlarm", nullptr},
    {Type::SetSleepTime, "comm_thread_setSleepTime", nullptr},
    {Type::SetPaperAlarm, "comm_thread_setPaperAlarm", nullptr},
    {Type::SetSilentMode, "comm_thread_setSilentMode", nullptr},
    {Type::SetTimedClear, "comm_thread_setTimedClear", nullptr},
    {Type::GetPushscan, "comm_thread_getPushscan", nullptr},
    {Type::RegPushscan, "comm_thread_regPushscan", nullptr},
    {Type::RegUpgrade, "comm_thread_regUpgrade", nullptr},
    {Type::PrintAdjust, "comm_thread_printAdjust", nullptr},
    {Type::PrintClean, "comm_thread_printClean", nullptr},
    {Type::PrintQRcode, "comm_thread_printQRcode", nullptr},
    {Type::GetNetwork, "comm_thread_getNetwork", nullptr},
    {Type::SetNetwork, "comm_thread_setNetwork", nullptr},
    {Type::SetAdjust, "comm_thread_setAdjust", nullptr},
    {Type::FirmNewCheck, "comm_thread_firmNewCheck", nullptr},
    {Type::FirmUpgrade, "comm_thread_firmUpgrade", nullptr},
    {Type::FirmUpCheck, "comm_thread_firmUpCheck", nullptr},
    {Type::GetWifiList, "comm_thread_getWifiList", nullptr},
    {Type::SetWifiList, "comm_thread_setWifiList", nullptr},
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
