#include "Records.h"
#include "common/Operations.h"

namespace examples {
namespace {

using AppComm::Type;
using AppPrinterSdk::PushScanPara;

Report parametersReport(const PushScanPara& record, const qzstd::PrinterInfo& /*printer*/) {
  return {.results = {number(L"resolution", record.resolution), number(L"color mode", record.colorMode),
                      number(L"file format", record.fileFormat), number(L"paper size", record.paperSize)}};
}

}  // namespace

std::unique_ptr<Operation> newPushscanRegister(const Request& /*request*/) {
  return newRegistration(Type::RegPushscan, &AppComm::State::pushScanRegistered);
}

std::unique_ptr<Operation> newPushscanGet(const Request& /*request*/) {
  return std::make_unique<RecordOperation<PushScanPara>>(Type::GetPushscan, PushScanPara{}, parametersReport,
                                                         Operation::Notifies::OnSuccess);
}

}  // namespace examples
