/// The mark that a task has to carry when its window is told.

#include "Story.h"

namespace soak::test {
namespace {

constexpr std::string_view kWhy = "it should have been marked as updated before its window is told";

class NoticeWithoutTheMark : public Story {
 protected:
  Event unmarkedNoticeTo(TaskId task) const {
    Event event = noticeTo(task);
    event.updated = false;
    return event;
  }
};

TEST_F(NoticeWithoutTheMark, OfTheCurrentTaskIsADifference) {
  add(1, once(Type::GetNetwork));
  call(kNetwork);
  refused(unmarkedNoticeTo(1), kWhy);
}

TEST_F(NoticeWithoutTheMark, OfAnObserverIsADifference) {
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  call(kNetwork);
  notice(1);
  refused(unmarkedNoticeTo(2), kWhy);
}

TEST_F(NoticeWithoutTheMark, OfThePushScanOperationIsADifference) {
  add(1, once(Type::GetPushscan));
  call("AppPrinterSdk_GetPushScanPara");
  refused(unmarkedNoticeTo(1), kWhy);
}

}  // namespace
}  // namespace soak::test
