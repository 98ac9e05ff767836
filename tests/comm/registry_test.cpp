#include "comm/Registry.h"

#include <gtest/gtest.h>

#include "fakes/ScriptedClock.h"

namespace {

using comm::CList;
using comm::Registry;

class RegistryTest : public testing::Test {
 protected:
  std::shared_ptr<CList> add(const std::wstring& uid) {
    auto list = std::make_shared<CList>(uid, 1000);
    const std::lock_guard lock(registry.lock);
    registry.lists.push_back(list);
    return list;
  }

  fakes::ScriptedClock clock;
  Registry registry;
};

TEST_F(RegistryTest, FindsTheFirstListWithTheUid) {
  add(L"P1");
  const auto first = add(L"P2");
  add(L"P2");

  const std::lock_guard lock(registry.lock);
  EXPECT_EQ(registry.findLocked(L"P2"), first);
  EXPECT_EQ(registry.findLocked(L"P"), nullptr);
}

TEST_F(RegistryTest, TakesEveryListWithTheUidAndKeepsTheOrderOfTheOthers) {
  const auto first = add(L"P2");
  const auto kept = add(L"P1");
  const auto second = add(L"P2");
  const auto alsoKept = add(L"P3");

  const std::lock_guard lock(registry.lock);
  EXPECT_EQ(registry.takeLocked(L"P2"), (std::list{first, second}));
  EXPECT_EQ(registry.lists, (std::list{kept, alsoKept}));
  EXPECT_TRUE(registry.takeLocked(L"P2").empty());
}

}  // namespace
