#include "comm/CList.h"

#include <gtest/gtest.h>

#include "PrinterInfo.h"
#include "fakes/ScriptedClock.h"

namespace {

using namespace std::chrono_literals;
using AppComm::Type;
using comm::CList;
using comm::CNode;

class CListTest : public testing::Test {
 protected:
  void append(std::initializer_list<Type> types) {
    for (const auto type : types) {
      list.append(std::make_shared<CNode>(
          AppComm::Node::Instance(std::make_shared<qzstd::PrinterInfo>(), nullptr, static_cast<long>(type), type)));
    }
  }

  std::vector<long> order() const {
    std::vector<long> codes;
    for (std::size_t index = 0; const auto entry = list.entry(index); ++index) codes.push_back(entry->current()->getCode());
    return codes;
  }

  fakes::ScriptedClock clock;
  CList list{L"P1", 1000};
};

TEST_F(CListTest, IsMadeNeitherRunningNorCountingAndBackDated) {
  EXPECT_FALSE(list.m_running.load());
  EXPECT_EQ(list.m_idleCountdown.load(), 0);
  EXPECT_TRUE(list.empty());
  EXPECT_TRUE(list.m_handlers.empty());
  EXPECT_EQ(list.m_uid, L"P1");
  EXPECT_EQ(list.m_interval, 1000);
  EXPECT_EQ(clock.present() - list.m_lastCheck, 600s);
  EXPECT_EQ(clock.present() - list.m_lastNPA, 1200s);
}

TEST_F(CListTest, FindsTheEntryOfAType) {
  append({Type::State, Type::GetAlarm});
  EXPECT_EQ(list.find(Type::GetAlarm), list.entry(1));
  EXPECT_EQ(list.find(Type::SetNetwork), nullptr);
}

TEST_F(CListTest, MovingAnEntryToTheFrontKeepsTheOrderOfTheOthers) {
  append({Type::State, Type::GetAlarm, Type::GetDevParam, Type::SetSupplyAlarm});
  list.moveToFront(2);
  EXPECT_EQ(order(), (std::vector<long>{2, 0, 1, 3}));
  list.moveToFront(0);
  EXPECT_EQ(order(), (std::vector<long>{2, 0, 1, 3}));
  list.moveFrontToBack();
  EXPECT_EQ(order(), (std::vector<long>{0, 1, 3, 2}));
}

TEST_F(CListTest, TakesEntriesOut) {
  append({Type::State, Type::GetAlarm, Type::GetDevParam});
  EXPECT_EQ(list.take(1)->type(), Type::GetAlarm);
  EXPECT_EQ(order(), (std::vector<long>{0, 2}));
  std::deque<std::shared_ptr<CNode>> entries;
  list.swapAll(entries);
  EXPECT_EQ(entries.size(), 2U);
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.entry(0), nullptr);
}

}  // namespace
