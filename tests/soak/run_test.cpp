/// What the model accepts and finds within a run.

#include "Story.h"
#include "model/State.h"

namespace soak::test {
namespace {

constexpr std::string_view kSleepTime = "AppPrinterSdk_GetSleepTime";
constexpr std::string_view kSupplies = "AppPrinterSdk_GetSuppliesAlarm";
constexpr std::string_view kPaperAlarm = "AppPrinterSdk_GetPaperAlarm";
constexpr std::string_view kSilentMode = "AppPrinterSdk_GetSilentMode";
constexpr std::string_view kTimedClear = "AppPrinterSdk_GetTimedClear";
constexpr std::string_view kCheckStart = "AppSdk_TriggerFwUpgradeStart";
constexpr std::string_view kCheck = "AppSdk_TriggerFwUpgradeProcess";
constexpr std::string_view kCheckResult = "AppSdk_TriggerFwUpgradeResult";
constexpr std::string_view kTransfer = "AppPrinterSdk_UpgradeFwStart";
constexpr std::string_view kTransferred = "AppPrinterSdk_UpgradeFwProgress";
constexpr std::string_view kTransferExit = "AppPrinterSdk_UpgradeFwExit";
constexpr std::string_view kConnected = "AppPrinterSdk_IsNetConnected";
constexpr std::string_view kSearch = "AppMgr_GetPrinterWifiStart";
constexpr std::string_view kSearched = "AppMgr_GetPrinterWifiProgress";
constexpr std::string_view kNetworks = "AppMgr_GetPrinterWifiResult";
constexpr std::string_view kSearchExit = "AppMgr_GetPrinterWifiExit";
constexpr std::string_view kJoin = "AppMgr_PrinterWifiConfigStart";
constexpr std::string_view kJoined = "AppMgr_PrinterWifiConfigProgress";
constexpr std::string_view kJoinExit = "AppMgr_PrinterWifiConfigExit";

class Run : public Story {
 protected:
  TaskTraits reading(const Selection& selected) const {
    TaskTraits traits = repeating(Type::GetDevParam);
    traits.selected = selected;
    return traits;
  }
  using Story::call;
  /// One that tells how far its job is.
  void call(std::string_view function, int result, std::array<std::int32_t, 2> told) {
    Event end = callOf(function);
    seen(end);
    end.what = What::callEnd;
    end.value = result;
    end.told = told;
    seen(end);
  }
  void checked(std::string_view function, int result, bool told = false) {
    call(function, result, {told ? 1 : 0, 0});
    notice(1);
  }
};

TEST_F(Run, KeepsTheRecordOfATaskUntilThatLeaves) {
  State state;
  state.setRecord(1, {.triggered = true});
  state.setRecord(1, {.triggered = true, .ok = true});
  EXPECT_EQ(state.recordOf(1), (RecordFields{.triggered = true, .ok = true}));
  state.leave(1, 0, 0);
  EXPECT_EQ(state.recordOf(1), std::nullopt);
}

TEST_F(Run, OfParametersThatReadsWhatIsNotSelectedIsFound) {
  add(1, reading({true, false, false, true, false}));
  call(kSleepTime);
  refused(callOf(kSupplies), "a call of AppPrinterSdk_GetTimedClear is due");
}

TEST_F(Run, OfParametersThatLeavesASelectedOneOutIsFound) {
  add(1, reading({true, false, false, true, false}));
  call(kSleepTime);
  refused(noticeTo(1), "a call of AppPrinterSdk_GetTimedClear is due");
}

TEST_F(Run, OfParametersLeavesOutWhatAnEarlierReadOfItFailedFor) {
  add(1, reading({true, false, false, true, false}));
  call(kSleepTime, -3);
  call(kTimedClear);
  notice(1);
  refused(callOf(kSleepTime), "a call of AppPrinterSdk_GetTimedClear is due");
  call(kTimedClear, -3);
  notice(1);
  notice(1);
}

TEST_F(Run, OfParametersGoesByTheRecordOfTheCurrentTask) {
  add(1, reading({true, false, false, false, false}));
  add(2, reading({true, false, false, true, false}));
  call(kSleepTime, -3);
  notice(1, false);
  notice(2);
  released(1);
  refused(callOf(kTimedClear), "a call of AppPrinterSdk_GetSleepTime is due");
}

TEST_F(Run, OfParametersThatPausesTooShortIsFound) {
  add(1, reading({true, true, false, true, false}));
  call(kSleepTime);
  at(980);
  refused(callOf(kSupplies), "list 1 pauses in its run until");
}

TEST_F(Run, OfParametersPausesBeforeEachOfThem) {
  add(1, reading({true, true, true, true, true}));
  call(kSleepTime);
  at(1'000);
  call(kSupplies);
  at(2'000);
  call(kPaperAlarm);
  at(3'000);
  call(kTimedClear);
  at(4'000);
  call(kSilentMode);
  notice(1);
}

TEST_F(Run, OfParametersReadsTheTimedClearModeWithoutAPause) {
  add(1, reading({true, false, false, true, false}));
  call(kSleepTime);
  call(kTimedClear);
}

TEST_F(Run, OfACheckGoesOnFromTheRunBefore) {
  add(1, repeating(Type::FirmNewCheck));
  checked(kCheckStart, 1);
  checked(kCheck, 1);
  call(kCheck, 1, {1, 0});
  checked(kCheckResult, 0, true);
  call(kCheck, 1, {1, 0});
  checked(kCheckResult, 1, false);
  notice(1);
  refused(callOf(kCheck), "a notice to task 1 is due");
}

TEST_F(Run, OfACheckThatStartsTwiceIsFound) {
  add(1, repeating(Type::FirmNewCheck));
  checked(kCheckStart, 1);
  refused(callOf(kCheckStart), "a call of AppSdk_TriggerFwUpgradeProcess is due");
}

TEST_F(Run, OfACheckThatIsNotStartedIsFound) {
  add(1, repeating(Type::FirmNewCheck));
  refused(callOf(kCheck), "a call of AppSdk_TriggerFwUpgradeStart is due");
}

TEST_F(Run, OfACheckThatGoesOnAfterAFailedStartIsFound) {
  add(1, repeating(Type::FirmNewCheck));
  checked(kCheckStart, 0);
  refused(callOf(kCheck), "a notice to task 1 is due");
}

TEST_F(Run, OfACheckThatFetchesTheResultTooEarlyIsFound) {
  add(1, repeating(Type::FirmNewCheck));
  checked(kCheckStart, 1);
  call(kCheck, 1, {0, 0});
  refused(callOf(kCheckResult), "a notice to task 1 is due");
}

TEST_F(Run, OfACheckThatFetchesTheResultAfterAFailedCallIsFound) {
  add(1, repeating(Type::FirmNewCheck));
  checked(kCheckStart, 1);
  call(kCheck, 0, {1, 0});
  refused(callOf(kCheckResult), "a notice to task 1 is due");
}

TEST_F(Run, OfATransferThatGoesOnAfterItsTaskWasDeletedIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  at(10);
  setDelete(1);
  at(20);
  call(kTransferred, 0, {1, 2});  // it may have looked before the deletion
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

TEST_F(Run, OfATransferThatEndsBeforeItsTimeIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred, 0, {1, 2});
  notice(1);
  at(200);
  refused(callOf(kTransferExit), "a call of AppPrinterSdk_UpgradeFwProgress is due");
}

TEST_F(Run, OfATransferThatGoesOnAfterItsEndIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred, 0, {2, 2});
  notice(1);
  at(200);
  refused(callOf(kTransferred), "a call of AppPrinterSdk_UpgradeFwExit is due");
}

TEST_F(Run, OfATransferAfterAnotherWithTheSameRecordEndsAsItBegins) {
  add(1, repeating(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred, -3, {1, 2});
  call(kTransferExit);
  notice(1);
  call(kTransfer);
  refused(callOf(kTransferred), "a call of AppPrinterSdk_UpgradeFwExit is due");
  call(kTransferExit);
  notice(1);
}

TEST_F(Run, OfASearchThatEndsBeforeItsTimeIsFound) {
  add(1, once(Type::GetWifiList));
  call(kConnected, 0);
  call(kSearch, 0, {2, 0});
  call(kSearched, 0, {1, 0});
  refused(callOf(kNetworks), "a notice to task 1 is due");
}

TEST_F(Run, OfASearchThatGoesOnAfterItsEndIsFound) {
  add(1, once(Type::GetWifiList));
  call(kConnected, 0);
  call(kSearch, 0, {2, 0});
  call(kSearched, -3, {2, 0});
  refused(noticeTo(1), "a call of AppMgr_GetPrinterWifiResult is due");
  call(kNetworks);
  call(kSearchExit);
  notice(1);
}

TEST_F(Run, OfAJoinThatEndsBeforeItsTimeIsFound) {
  add(1, once(Type::SetWifiList));
  call(kJoin, 0, {2, 0});
  call(kJoined, 0, {1, 0});
  refused(callOf(kJoinExit), "a notice to task 1 is due");
}

TEST_F(Run, OfAJoinThatGoesOnAfterItsEndIsFound) {
  add(1, once(Type::SetWifiList));
  call(kJoin, -3);  // which leaves the number of segments at 0
  call(kJoined, 0);
  refused(noticeTo(1), "a call of AppMgr_PrinterWifiConfigExit is due");
  call(kJoinExit);
  notice(1);
}

TEST_F(Run, OfATransferThatDoesNotPauseIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  at(10);
  call(kTransferred, 0, {1, 2});
  notice(1);
  at(93);
  refused(callOf(kTransferred), "list 1 pauses in its run until");
  at(95);
  call(kTransferred, 0, {2, 2});
}

TEST_F(Run, OfATransferThatDoesNotPauseBeforeItsExitIsFound) {
  add(1, once(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred, 0, {2, 2});
  notice(1, false);
  at(80);
  refused(callOf(kTransferExit), "list 1 pauses in its run until");
}

TEST_F(Run, OfATransferCountsItsPauseFromTheLastNotice) {
  add(1, once(Type::FirmUpgrade));
  add(2, repeating(Type::FirmUpgrade));
  call(kTransfer);
  call(kTransferred, 0, {1, 2});
  notice(1);
  at(100);
  notice(2);
  at(150);
  refused(callOf(kTransferred), "list 1 pauses in its run until");
}

TEST_F(Run, OfASearchThatPausesTooShortIsFound) {
  add(1, once(Type::GetWifiList));
  call(kConnected, 0);
  call(kSearch, 0, {2, 0});
  call(kSearched, 0, {1, 0});
  notice(1);
  at(480);
  refused(callOf(kSearched), "list 1 pauses in its run until");
}

TEST_F(Run, OfAJoinThatPausesTooShortIsFound) {
  add(1, once(Type::SetWifiList));
  call(kJoin, 0, {2, 0});
  call(kJoined, 0, {1, 0});
  notice(1);
  at(480);
  refused(callOf(kJoined), "list 1 pauses in its run until");
}

TEST_F(Run, OfAWatchThatPausesTooShortIsFound) {
  add(1, once(Type::FirmUpCheck));
  call(kRead);
  notice(1);
  at(30);
  refused(callOf(kRead), "list 1 pauses in its run until");
  at(40);
  call(kRead);
}

}  // namespace
}  // namespace soak::test
