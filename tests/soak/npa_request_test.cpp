/// What the model makes of a request to read the state, and of what the records say of it.

#include "Story.h"

namespace soak::test {
namespace {

class NpaRequest : public Story {
 protected:
  // Both tasks are of one entry, whose first task is marked before the second.
  void begin(What call, ThreadId thread = kCaller) { seen({.what = call, .thread = thread, .traits = {.type = Type::State}}); }
};

TEST_F(NpaRequest, MayBeLookedForBeforeAStartThatHasReturnedMarksTheTask) {
  add(1, once(Type::State));
  add(2, repeating(Type::State));
  beginStart();
  call(kJobs);
  call(kRead);  // task 1 is marked, and the caller is stopped
  notice(1);
  notice(2);
  released(1);
  call(kJobs);  // task 2 is not, and the helper is stopped
  endStart();
  call(kScan);
}

TEST_F(NpaRequest, MayBeFoundBeforeAPauseThatHasReturnedTakesItBack) {
  add(1, once(Type::State));
  add(2, repeating(Type::State));
  startNpa();
  begin(What::pauseBegin);
  call(kJobs);
  call(kScan);
  notice(1);
  notice(2);
  released(1);
  call(kJobs);
  seen({.what = What::pauseEnd, .thread = kCaller});
  call(kRead);
}

TEST_F(NpaRequest, MayBeLookedForBeforeAStartMarksTheTaskOfAListThatWasStoppedMeanwhile) {
  serveFirstOfTwoDuringAStart(2);
  call(kJobs);
  stop();
  endStart(2);
  call(kScan);
}

TEST_F(NpaRequest, ThatAStartHasMadeIsFoundByARunThatBeginsLater) {
  serveFirstOfTwoDuringAStart();
  endStart();
  call(kJobs);
  refused(callOf(kScan), "a call of AppPrinterSdk_GetState is due");
}

TEST_F(NpaRequest, IsToldInTheRecordsOfAllObservers) {
  add(1, repeating(Type::State));
  add(2, repeating(Type::State));
  startNpa();
  call(kJobs);
  call(kRead);
  seen(noticeTo(1, 1));
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  refused(noticeTo(2, 0), "`queried` true");
}

TEST_F(NpaRequest, MayBeMissingInTheRecordOfAnObserverThatCameAfterTheRead) {
  add(1, repeating(Type::State));
  startNpa();
  call(kJobs);
  call(kRead);
  add(2, repeating(Type::State));
  seen(noticeTo(1, 1));
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  seen(noticeTo(2, 0));
}

TEST_F(NpaRequest, ThatAWindowMakesWhileItIsToldIsFoundByTheNextRun) {
  add(1, repeating(Type::State));
  call(kJobs);
  call(kScan);
  seen(noticeTo(1));
  beginStart(kHelper);
  endStart(kHelper);
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  call(kJobs);
  refused(callOf(kScan), "a call of AppPrinterSdk_GetState is due");
}

TEST_F(NpaRequest, ThatAWindowTakesBackWhileItIsToldIsGoneInTheNextRun) {
  add(1, repeating(Type::State));
  startNpa();
  call(kJobs);
  call(kRead);
  seen(noticeTo(1, 1));
  startNpa();  // on another thread
  begin(What::pauseBegin, kHelper);
  seen({.what = What::pauseEnd, .thread = kHelper});
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  call(kJobs);
  refused(callOf(kRead), "a call of AppPrinterSdk_IsSuppportPushScan is due");
}

TEST_F(NpaRequest, MayBeMadeByAWindowWhileACallerTakesItBack) {
  add(1, repeating(Type::State));
  call(kJobs);
  call(kScan);
  seen(noticeTo(1));
  beginStart(kHelper);
  begin(What::pauseBegin);
  endStart(kHelper);
  seen({.what = What::noticeEnd, .thread = kHelper, .task = 1, .value = 1});
  seen({.what = What::pauseEnd, .thread = kCaller});
  call(kJobs);
  call(kRead);
}

}  // namespace
}  // namespace soak::test
