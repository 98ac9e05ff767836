#include "Records.h"
#include "common/Operations.h"

namespace examples {
namespace {

using AppComm::Maintain;
using AppComm::QRCode;
using AppComm::SetAdjust;
using AppComm::Type;

template <class Record>
Report reportResult(const Record& record, const qzstd::PrinterInfo& /*printer*/) {
  return record.result == 0 ? Report{} : failure(record.result);
}

std::unique_ptr<Operation> newMaintain(Type type) {
  return std::make_unique<ChangeOperation<Maintain>>(type, Maintain{}, reportResult<Maintain>);
}

Report imageReport(const QRCode& record, const qzstd::PrinterInfo& /*printer*/) {
  return record.printFailed == 0 ? Report{} : failure(L"the image was sent and not printed");
}

}  // namespace

std::unique_ptr<Operation> newAlignPrint(const Request& /*request*/) { return newMaintain(Type::PrintAdjust); }
std::unique_ptr<Operation> newClean(const Request& /*request*/) { return newMaintain(Type::PrintClean); }

std::unique_ptr<Operation> newAlignValues(const Request& request) {
  SetAdjust record;
  auto& corrections = record.values.corrections;
  for (std::size_t i = 0; i < corrections.size(); ++i) {
    corrections[i] =
        static_cast<std::int32_t>(parseNumber(L"N" + std::to_wstring(i + 1), request.operands[i], INT32_MIN, INT32_MAX));
  }
  return std::make_unique<ChangeOperation<SetAdjust>>(Type::SetAdjust, record, reportResult<SetAdjust>);
}

std::unique_ptr<Operation> newQr(const Request& request) {
  return std::make_unique<ChangeOperation<QRCode>>(Type::PrintQRcode, QRCode{.image = request.operands[0]}, imageReport);
}

}  // namespace examples
