/// Which lists the module still finds.

#include "Story.h"

namespace soak::test {
namespace {

class Registry : public Story {};

TEST_F(Registry, ThatStillHasANewListAfterAnOldWorkersEndIsADifference) {
  endOldWorkerBesideANewList();
  add(3, repeating(Type::GetNetwork));
  runsOn(kNewHelper);
  call(kNetwork);
  notice(2);
  refused(noticeTo(3), "in the run of GetNetwork of task 2, where all windows have been told");
}

TEST_F(Registry, ThatStopHasClearedMayHaveAListThatAPauseFoundBefore) {
  add(1, {.type = Type::State, .once = false, .npaRequested = true});
  seen({.what = What::pauseBegin, .thread = kCaller + 1, .traits = {.type = Type::State}});
  seen(callOf(kJobs));
  stop();
  seen({.what = What::callEnd, .thread = kHelper, .function = kJobs});
  call(kScan);  // it marked its tasks only now
  notice(1);
  seen({.what = What::pauseEnd, .thread = kCaller + 1});
}

}  // namespace
}  // namespace soak::test
