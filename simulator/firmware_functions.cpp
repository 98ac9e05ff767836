#include <algorithm>

#include "simulator/Call.h"
#include "simulator/Garbage.h"
#include "simulator/LibraryFunctions.h"

namespace simulator {
namespace {

std::int32_t sentAfter(const Firmware& firmware, milliseconds age) {
  const std::int64_t size = firmware.size;
  if (age.count() >= size * 1000 / firmware.rate + 1) return firmware.size;  // keeps the product small
  return static_cast<std::int32_t>(std::min<std::int64_t>(size, age.count() * firmware.rate / 1000));
}

bool failedAfter(const Firmware& firmware, std::int32_t sent) { return firmware.failAt && sent >= *firmware.failAt; }

}  // namespace

int upgradeFwStart(const qzstd::PrinterInfo* printer, const std::wstring* firmware) {
  return answer(Function::upgradeFwStart, with(byUid(printer), firmware), [firmware](const Call& call) {
    if (!call.garbage()) call.startJob(JobKind::transfer, {.subject = *firmware});
    return success;
  });
}

int upgradeFwProgress(std::int32_t* current, std::int32_t* total) {
  const Target target = telling(with(ofThread(JobKind::transfer), current, total), current, total);
  return answer(Function::upgradeFwProgress, target, [=](const Call& call) {
    const Firmware& firmware = call.printer().firmware;
    const std::int32_t sent = sentAfter(firmware, call.job().age);
    if (call.garbage()) {
      const auto hostile = garbage::transferProgress(call.number());
      *current = hostile.current;
      *total = hostile.total;
      return success;
    }
    if (failedAfter(firmware, sent)) return transferFailed;
    *current = sent;
    *total = firmware.size;
    return success;
  });
}

void upgradeFwExit() {
  answerNothing(Function::upgradeFwExit, ofThread(JobKind::transfer), [](const Call& call) {
    const Firmware& firmware = call.printer().firmware;
    const Call::JobNow last = call.endJob();
    const std::int32_t sent = sentAfter(firmware, last.age);
    if (sent < firmware.size || failedAfter(firmware, sent)) return;
    call.onState([&](PrinterState& state, milliseconds at) { state.restart(firmware.version.value_or(last.job.subject), at); });
  });
}

}  // namespace simulator
