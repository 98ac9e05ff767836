/// A printer that the model cannot follow.

#include "Story.h"

namespace soak::test {
namespace {

class PrinterModelSetsAside : public Story {
 protected:
  void follow(std::size_t mostWays) { m_model = std::make_unique<PrinterModel>(PrinterTraits{}, mostWays); }
};

TEST_F(PrinterModelSetsAside, APrinterWithTooManyWays) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  EXPECT_TRUE(m_model->isSetAside());
}

TEST_F(PrinterModelSetsAside, NoPrinterThatItCanFollow) {
  follow(2);
  add(1, repeating(Type::GetNetwork));
  EXPECT_FALSE(m_model->isSetAside());
}

TEST_F(PrinterModelSetsAside, APrinterThatItJudgesNoMore) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  call(kAlarm);
  ticks(1'000);
  released(1);
  seen(endOf(kHelper));
  expectRest();
  EXPECT_EQ(m_model->runs(), 0U);
}

TEST_F(PrinterModelSetsAside, APrinterWhoseTasksAreStillToBeLetGoOf) {
  follow(1);
  add(1, repeating(Type::GetNetwork));
  add(2, repeating(Type::GetNetwork));
  released(1);
  EXPECT_EQ(m_model->atRest({}), "the module has not let go of these tasks: 2\n");
}

}  // namespace
}  // namespace soak::test
