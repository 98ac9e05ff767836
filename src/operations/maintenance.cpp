#include <utility>

#include "AppPrinterSdk.h"
#include "AppSdk.h"
#include "Records.h"
#include "operations/Handlers.h"
#include "operations/SendCommand.h"

namespace {

using AppComm::Maintain;
using AppComm::QRCode;
using AppComm::SetAdjust;
using operations::Command;
using operations::sendCommand;

constexpr const wchar_t* kNotMaintain = L"resource type is NOT device maintain.";

constexpr Command<Maintain> kAlignmentPage{
    kNotMaintain, [](qzstd::PrinterInfo* printer, Maintain&) { return AppPrinterSdk_SetAlignPage(printer); },
    L" notice caller the result of send adjust cmd."};
constexpr Command<Maintain> kClean{kNotMaintain,
                                   [](qzstd::PrinterInfo* printer, Maintain&) { return AppPrinterSdk_SetClean(printer); },
                                   L" notice caller the result of send clean cmd."};
constexpr Command<SetAdjust> kAlignment{
    L"resource type is NOT adjust cmd",
    [](qzstd::PrinterInfo* printer, SetAdjust& record) { return AppPrinterSdk_SetAlignCmd(printer, &record); },
    L" notice caller the result of set adjust cmd."};

// Not a command like the others: the printer is asked less, goes by the manager's name for it, and answers yes or no.
int printImage(const operations::Run<QRCode>& run) {
  auto& record = run.record;
  if (operations::acceptsImage(run.printer, record.busy, record.statusOne)) {
    record.printFailed = AppSdk_PrintBmp(run.printer.managerId.c_str(), &record) ? 0 : 1;
  }
  return operations::finish(run, __LINE__, L" notice caller the result of print qrcode.");
}

}  // namespace

int comm_thread_printAdjust(std::shared_ptr<comm::CNode> entry) {
  return sendCommand(std::move(entry), __func__, kAlignmentPage);
}
int comm_thread_printClean(std::shared_ptr<comm::CNode> entry) { return sendCommand(std::move(entry), __func__, kClean); }
int comm_thread_setAdjust(std::shared_ptr<comm::CNode> entry) { return sendCommand(std::move(entry), __func__, kAlignment); }

int comm_thread_printQRcode(std::shared_ptr<comm::CNode> entry) {
  return operations::inFrame<QRCode>(std::move(entry), __func__, __LINE__, L"resource type is NOT QRCode.", printImage);
}
