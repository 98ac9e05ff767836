#pragma once

#include <memory>
#include <string>
#include <vector>

#include "common/Operation.h"
#include "common/Request.h"
#include "common/Values.h"

/// From the words of a command to its operation. Each throws `OptionsError` when an operand or an option is wrong; how many
/// operands there are has been checked before.
namespace examples {

/// An operand that has several meanings: one of them, as help says it.
struct OperandHelp {
  std::wstring usage;
  std::wstring help;
};

std::unique_ptr<Operation> newState(const Request& request);
std::unique_ptr<Operation> newAlarm(const Request& request);
std::unique_ptr<Operation> newGet(const Request& request);
std::unique_ptr<Operation> newSet(const Request& request);
std::vector<OperandHelp> helpOfSet();

std::unique_ptr<Operation> newAlignPrint(const Request& request);
std::unique_ptr<Operation> newAlignValues(const Request& request);
std::unique_ptr<Operation> newClean(const Request& request);
std::unique_ptr<Operation> newQr(const Request& request);

std::unique_ptr<Operation> newNetworkGet(const Request& request);
std::unique_ptr<Operation> newNetworkSet(const Request& request);

std::unique_ptr<Operation> newFirmwareRegister(const Request& request);
std::unique_ptr<Operation> newFirmwareCheck(const Request& request);
std::unique_ptr<Operation> newFirmwareUpgrade(const Request& request);
std::unique_ptr<Operation> newFirmwareWatch(const Request& request);

std::unique_ptr<Operation> newPushscanRegister(const Request& request);
std::unique_ptr<Operation> newPushscanGet(const Request& request);

std::unique_ptr<Operation> newWifiList(const Request& request);
std::unique_ptr<Operation> newWifiJoin(const Request& request);

}  // namespace examples
