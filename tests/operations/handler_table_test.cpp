#include "operations/HandlerTable.h"

#include <gtest/gtest.h>

#include "comm/HandlerTable.h"
#include "operations/Handlers.h"

namespace {

using AppComm::Type;
using operations::kHandlerTable;

TEST(HandlerTable, HasOneRowPerTypeInTheOrderOfTheValues) {
  const struct {
    Type type;
    const char* name;
  } expected[] = {
      {Type::State, "comm_thread_state"},
      {Type::GetAlarm, "comm_thread_getAlarm"},
      {Type::GetDevParam, "comm_thread_getDevParam"},
      {Type::SetSupplyAlarm, "comm_thread_setSupplyAlarm"},
      {Type::SetSleepTime, "comm_thread_setSleepTime"},
      {Type::SetPaperAlarm, "comm_thread_setPaperAlarm"},
      {Type::SetSilentMode, "comm_thread_setSilentMode"},
      {Type::SetTimedClear, "comm_thread_setTimedClear"},
      {Type::GetPushscan, "comm_thread_getPushscan"},
      {Type::RegPushscan, "comm_thread_regPushscan"},
      {Type::RegUpgrade, "comm_thread_regUpgrade"},
      {Type::PrintAdjust, "comm_thread_printAdjust"},
      {Type::PrintClean, "comm_thread_printClean"},
      {Type::PrintQRcode, "comm_thread_printQRcode"},
      {Type::GetNetwork, "comm_thread_getNetwork"},
      {Type::SetNetwork, "comm_thread_setNetwork"},
      {Type::SetAdjust, "comm_thread_setAdjust"},
      {Type::FirmNewCheck, "comm_thread_firmNewCheck"},
      {Type::FirmUpgrade, "comm_thread_firmUpgrade"},
      {Type::FirmUpCheck, "comm_thread_firmUpCheck"},
      {Type::GetWifiList, "comm_thread_getWifiList"},
      {Type::SetWifiList, "comm_thread_setWifiList"},
  };
  ASSERT_EQ(kHandlerTable.size(), std::size(expected));
  for (std::size_t index = 0; index < kHandlerTable.size(); ++index) {
    EXPECT_EQ(kHandlerTable[index].type, expected[index].type) << index;
    EXPECT_STREQ(kHandlerTable[index].name, expected[index].name) << index;
    EXPECT_NE(kHandlerTable[index].handler, nullptr) << index;
  }
}

TEST(HandlerTable, StateIsServedByItsHandler) { EXPECT_EQ(kHandlerTable[0].handler, comm_thread_state); }

TEST(HandlerTable, AListGetsEveryRowUnderTheValueOfItsType) {
  std::unordered_map<int, comm::Handler> handlers;

  comm::registerHandlers(handlers);

  EXPECT_EQ(handlers.size(), 22U);
  for (int value = 0; value < 22; ++value) {
    ASSERT_EQ(handlers.count(value), 1U) << value;
    const auto* function = handlers[value].target<int (*)(std::shared_ptr<comm::CNode>)>();
    EXPECT_EQ(function == nullptr ? nullptr : *function, kHandlerTable[static_cast<std::size_t>(value)].handler) << value;
  }
}

}  // namespace
