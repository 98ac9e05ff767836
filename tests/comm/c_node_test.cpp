#include "comm/CNode.h"

#include <gtest/gtest.h>

#include "PrinterInfo.h"

namespace {

using comm::CNode;
using comm::Task;

Task task(long code) {
  return AppComm::Node::Instance(std::make_shared<qzstd::PrinterInfo>(), nullptr, code, AppComm::Type::GetNetwork);
}

std::vector<long> codes(const std::vector<Task>& tasks) {
  std::vector<long> all;
  for (const auto& each : tasks) all.push_back(each->getCode());
  return all;
}

TEST(CNodeTest, TakesItsTypeFromItsTask) {
  const CNode entry(task(1));
  EXPECT_EQ(entry.type(), AppComm::Type::GetNetwork);
  EXPECT_EQ(entry.current()->getCode(), 1);
  EXPECT_EQ(entry.observer(0), nullptr);
}

TEST(CNodeTest, FirstObserverIsPromotedAndTheFormerTaskHandedBack) {
  CNode entry(task(1));
  entry.addObserver(task(2));
  entry.addObserver(task(3));

  EXPECT_EQ(entry.promoteObserver()->getCode(), 1);
  EXPECT_EQ(codes(entry.tasks()), (std::vector<long>{2, 3}));
}

TEST(CNodeTest, WithoutObserversNothingIsPromoted) {
  CNode entry(task(1));
  EXPECT_EQ(entry.promoteObserver(), nullptr);
  EXPECT_EQ(entry.current()->getCode(), 1);
}

TEST(CNodeTest, TakesOutTheChosenObserversAndKeepsTheOrderOfTheRest) {
  CNode entry(task(0));
  for (long code = 1; code <= 6; ++code) entry.addObserver(task(code));

  const auto taken = entry.takeObservers([](const AppComm::Node& each) { return each.getCode() % 2 == 0; });

  EXPECT_EQ(codes(taken), (std::vector<long>{2, 4, 6}));
  EXPECT_EQ(codes(entry.tasks()), (std::vector<long>{0, 1, 3, 5}));
  EXPECT_EQ(entry.takeObserver(1)->getCode(), 3);
  EXPECT_EQ(codes(entry.tasks()), (std::vector<long>{0, 1, 5}));
}

TEST(CNodeTest, AWalkByIndexMeetsAnObserverThatJoinsMeanwhile) {
  CNode entry(task(0));
  entry.addObserver(task(1));
  std::vector<long> met;
  for (std::size_t index = 0; const auto observer = entry.observer(index); ++index) {
    met.push_back(observer->getCode());
    if (index == 0) entry.addObserver(task(2));
  }
  EXPECT_EQ(met, (std::vector<long>{1, 2}));
}

}  // namespace
