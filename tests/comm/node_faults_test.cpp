#include <gtest/gtest.h>

#include <memory>
#include <new>

#include "Node.h"
#include "PrinterInfo.h"
#include "fakes/StepFault.h"
#include "support/PlainWindow.h"

namespace {

TEST(NodeFaults, EachAllocationOfInstanceLeavesItsArgumentsReleasedAndTheNextOneWorks) {
  const auto info = std::make_shared<qzstd::PrinterInfo>();
  info->uid = L"a name that is too long for the string itself";
  const auto window = std::make_shared<support::PlainWindow>();
  std::size_t failed = 0;
  for (bool happened = true; happened;) {
    ASSERT_LT(failed, 20U);
    std::shared_ptr<AppComm::Node> node;
    {
      const fakes::StepFault fault(fakes::Step::allocation, failed + 1);
      try {
        node = AppComm::Node::Instance(info, window, 7, AppComm::Type::State);
      } catch (const std::bad_alloc&) {
        ++failed;
      }
      happened = fault.happened();
    }
    EXPECT_EQ(node == nullptr, happened);
    EXPECT_EQ(info.use_count(), happened ? 1 : 2);
    EXPECT_EQ(window.use_count(), happened ? 1 : 2);
    if (happened) node = AppComm::Node::Instance(info, window, 7, AppComm::Type::State);
    EXPECT_EQ(node->getUID(), info->uid);
    EXPECT_EQ(node->getCode(), 7);
  }
  EXPECT_EQ(failed, 2U) << "the task with its reference count, and the printer's name";
}

}  // namespace
