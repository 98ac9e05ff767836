#include "Node.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "AppWindow.h"
#include "PrinterInfo.h"
#include "support/PlainWindow.h"

namespace {

using AppComm::Node;
using AppComm::Type;

std::shared_ptr<qzstd::PrinterInfo> newPrinter() {
  auto printer = std::make_shared<qzstd::PrinterInfo>();
  printer->uid = L"printer-1";
  printer->interval = 5000;
  return printer;
}

using support::PlainWindow;

std::shared_ptr<PlainWindow> newWindow() { return std::make_shared<PlainWindow>(); }

std::shared_ptr<Node> newTask() { return Node::Instance(newPrinter(), newWindow(), 7, Type::State); }

// The exported names carry these types.
template <auto Member, class Expected>
constexpr bool has = std::is_same_v<decltype(Member), Expected>;
static_assert(has<&Node::getOnce, const bool (Node::*)() const> && has<&Node::getDelete, bool (Node::*)() const> &&
              has<&Node::getUpdate, bool (Node::*)()> && has<&Node::getReqNPA, bool (Node::*)() const> &&
              has<&Node::getNPAFlag, bool (Node::*)() const> && has<&Node::Interval, const long (Node::*)() const> &&
              has<&Node::getCode, const long (Node::*)() const> && has<&Node::getType, const Type (Node::*)() const> &&
              has<&Node::getUID, const std::wstring& (Node::*)() const> &&
              has<&Node::getInfo, std::shared_ptr<qzstd::PrinterInfo> (Node::*)() const> &&
              has<&Node::getWnd, const std::shared_ptr<AppWnd::CWnd> (Node::*)() const> &&
              has<&Node::setResource, void (Node::*)(std::any)> && has<&Node::getResource, std::any (Node::*)() const>);
static_assert(!std::is_polymorphic_v<Node> && std::is_same_v<std::underlying_type_t<Type>, std::int32_t>);

TEST(Node, IsFreshAfterConstruction) {
  const auto task = newTask();

  EXPECT_TRUE(task->getOnce());
  EXPECT_FALSE(task->getDelete());
  EXPECT_FALSE(task->getReqNPA());
  EXPECT_FALSE(task->getNPAFlag());
  EXPECT_FALSE(task->getUpdate());
  EXPECT_FALSE(task->getResource().has_value());
}

TEST(Node, InstanceKeepsWhatItIsGiven) {
  const auto printer = newPrinter();
  const auto window = newWindow();

  const auto task = Node::Instance(printer, window, -3, Type::PrintQRcode);

  EXPECT_EQ(task->getInfo(), printer);
  EXPECT_EQ(task->getWnd(), window);
  EXPECT_EQ(task->getCode(), -3);
  EXPECT_EQ(task->getType(), Type::PrintQRcode);
  EXPECT_EQ(task->getUID(), L"printer-1");
  EXPECT_EQ(printer.use_count(), 2);
  EXPECT_EQ(window.use_count(), 2);
}

TEST(Node, ConstructorHoldsNoReferenceBeyondItsTwo) {
  const auto printer = newPrinter();
  const auto window = newWindow();

  // Within the full expression, where the parameters of the call still exist.
  const auto counts = (Node(printer, window, 1, Type::State), std::pair(printer.use_count(), window.use_count()));

  EXPECT_EQ(counts, std::pair(2L, 2L));
}

TEST(Node, AcceptsNoWindow) {
  const auto task = Node::Instance(newPrinter(), nullptr, 1, Type::State);
  EXPECT_EQ(task->getWnd(), nullptr);
}

TEST(Node, SetOnceTakesSetRepeatBack) {
  const auto task = newTask();
  task->setRepeat();
  EXPECT_FALSE(task->getOnce());
  task->setOnce();
  EXPECT_TRUE(task->getOnce());
}

TEST(Node, SetDeleteCannotBeUndone) {
  const auto task = newTask();
  task->setDelete();

  task->setOnce();
  task->setRepeat();
  task->resetReqNPA();
  task->resetNPAFlag();
  task->getUpdate();
  task->setResource(1);
  task->setDelete();

  EXPECT_TRUE(task->getDelete());
}

TEST(Node, GetUpdateIsTrueOnceAfterAnyNumberOfUpdates) {
  const auto task = newTask();
  for (int updates = 1; updates <= 3; ++updates) {
    for (int update = 0; update < updates; ++update) task->setUpdate();
    EXPECT_TRUE(task->getUpdate());
    EXPECT_FALSE(task->getUpdate());
    EXPECT_FALSE(task->getUpdate());
  }
}

TEST(Node, EachFlagIsItsOwn) {
  const auto task = newTask();
  task->setReqNPA();
  EXPECT_TRUE(task->getReqNPA());
  EXPECT_FALSE(task->getNPAFlag());
  task->setNPAFlag();
  task->resetReqNPA();
  EXPECT_FALSE(task->getReqNPA());
  EXPECT_TRUE(task->getNPAFlag());
  task->resetNPAFlag();
  EXPECT_FALSE(task->getNPAFlag());
  EXPECT_FALSE(task->getUpdate());
  EXPECT_FALSE(task->getDelete());
  EXPECT_TRUE(task->getOnce());
}

TEST(Node, IntervalFollowsThePrinterAndUidDoesNot) {
  const auto printer = newPrinter();
  const auto task = Node::Instance(printer, nullptr, 1, Type::State);

  printer->interval = -600000;
  printer->uid = L"another";

  EXPECT_EQ(task->Interval(), -600000);
  EXPECT_EQ(task->getUID(), L"printer-1");
}

TEST(Node, TwoTasksOfOnePrinterShareItAndItsUid) {
  const auto printer = newPrinter();
  const auto first = Node::Instance(printer, nullptr, 1, Type::State);
  const auto second = Node::Instance(printer, nullptr, 2, Type::PrintClean);

  EXPECT_EQ(first->getInfo(), second->getInfo());
  EXPECT_EQ(first->getUID(), second->getUID());
}

TEST(Node, ResourceReachesTheSameRecord) {
  const auto task = newTask();
  const auto record = std::make_shared<int>(1);
  task->setResource(record);

  *std::any_cast<std::shared_ptr<int>>(task->getResource()) = 2;  // as a handler does

  EXPECT_EQ(*record, 2);
}

TEST(Node, SetResourceLeavesItsArgumentEmpty) {
  const auto task = newTask();
  const auto record = std::make_shared<int>(1);
  std::any argument = record;

  // Within the full expression, where the parameter of the call still exists: one in `record`, one in the task.
  const long references = (task->setResource(std::move(argument)), record.use_count());

  EXPECT_EQ(references, 2);
  EXPECT_FALSE(argument.has_value());
}

// Notes each move into a new place, and the end of one that was not moved on. Small enough to live within `std::any` itself,
// so that it takes part in the holder's moves.
struct Trace {
  std::string name;
  std::vector<std::string>& notes;
};

class Traced {
 public:
  explicit Traced(Trace& trace) : m_trace(&trace) {}
  Traced(const Traced&) = default;
  Traced(Traced&& other) noexcept : m_trace(std::exchange(other.m_trace, nullptr)) {
    m_trace->notes.push_back(m_trace->name + " moved");
  }
  ~Traced() {
    if (m_trace != nullptr) m_trace->notes.push_back(m_trace->name + " destroyed");
  }

 private:
  Trace* m_trace;
};

TEST(Node, SetResourceDestroysThePreviousValueBeforeItStoresTheNewOne) {
  std::vector<std::string> notes;
  Trace previous{"previous", notes};
  Trace next{"next", notes};
  const auto task = newTask();
  task->setResource(std::make_any<Traced>(previous));
  std::any argument = std::make_any<Traced>(next);
  notes.clear();

  task->setResource(std::move(argument));

  // The first move is the one into the parameter.
  EXPECT_EQ(notes, (std::vector<std::string>{"next moved", "previous destroyed", "next moved"}));
}

TEST(Node, ReleasesResourceThenWindowThenPrinter) {
  std::vector<std::string> released;
  const auto noting = [&](const char* name) {
    return [&released, name](auto* object) {
      released.emplace_back(name);
      delete object;
    };
  };
  auto task = Node::Instance(std::shared_ptr<qzstd::PrinterInfo>(new qzstd::PrinterInfo, noting("printer")),
                             std::shared_ptr<AppWnd::CWnd>(new PlainWindow, noting("window")), 1, Type::State);
  task->setResource(std::shared_ptr<int>(new int(0), noting("resource")));

  task.reset();

  EXPECT_EQ(released, (std::vector<std::string>{"resource", "window", "printer"}));
}

TEST(Type, HasTheValuesOfTheInterface) {
  // In the order of the values, 0 to 21.
  const Type types[] = {Type::State,         Type::GetAlarm,      Type::GetDevParam,   Type::SetSupplyAlarm, Type::SetSleepTime,
                        Type::SetPaperAlarm, Type::SetSilentMode, Type::SetTimedClear, Type::GetPushscan,    Type::RegPushscan,
                        Type::RegUpgrade,    Type::PrintAdjust,   Type::PrintClean,    Type::PrintQRcode,    Type::GetNetwork,
                        Type::SetNetwork,    Type::SetAdjust,     Type::FirmNewCheck,  Type::FirmUpgrade,    Type::FirmUpCheck,
                        Type::GetWifiList,   Type::SetWifiList};
  ASSERT_EQ(std::size(types), 22U);
  for (int value = 0; value < 22; ++value) EXPECT_EQ(static_cast<int>(types[value]), value);
}

// The threads hammer all flags at once; ThreadSanitizer looks on.
TEST(Node, FlagsMayBeUsedFromAnyThread) {
  constexpr int kRounds = 2000;
  const auto task = newTask();
  const auto user = [&task] {
    for (int round = 0; round < kRounds; ++round) {
      task->setOnce();
      task->setRepeat();
      task->setReqNPA();
      task->resetReqNPA();
      task->setNPAFlag();
      task->resetNPAFlag();
      task->setUpdate();
      task->getUpdate();
      if (round == kRounds / 2) task->setDelete();
      static_cast<void>(task->getOnce() || task->getReqNPA() || task->getNPAFlag() || task->getDelete());
    }
  };

  std::vector<std::thread> users;
  for (int index = 0; index < 4; ++index) users.emplace_back(user);
  for (auto& thread : users) thread.join();

  EXPECT_FALSE(task->getOnce());
  EXPECT_FALSE(task->getReqNPA());
  EXPECT_FALSE(task->getNPAFlag());
  EXPECT_FALSE(task->getUpdate());
  EXPECT_TRUE(task->getDelete());
}

}  // namespace
