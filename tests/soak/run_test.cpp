/// What the model accepts and finds within a run.

#include "Story.h"

namespace soak::test {
namespace {

constexpr std::string_view kTransfer = "AppPrinterSdk_UpgradeFwStart";
constexpr std::string_view kTransferred = "AppPrinterSdk_UpgradeFwProgress";
constexpr std::string_view kTransferExit = "AppPrinterSdk_UpgradeFwExit";

class Run : public Story {};

TEST_F(Run, OfATransferThatGoesOnAfterItsTaskWasDeletedIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  at(10);
  setDelete(1);
  at(20);
  call(kTransferred);  // it may have looked before the deletion
  notice(1);
  at(200);
  refused(callOf(kTransferred), "a call of AppPrinterSdk_UpgradeFwExit is due");
}

TEST_F(Run, OfATransferWhoseWindowRefusesEndsWithoutALastNotice) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred);
  notice(1, false);
  at(200);
  call(kTransferExit);
  refused(noticeTo(1), "the end of the run is due");
}

}  // namespace
}  // namespace soak::test
