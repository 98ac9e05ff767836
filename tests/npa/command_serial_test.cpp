#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "fakes/Windows.h"
#include "npa/CommandAccess.h"

namespace {

class OnlyTicks : public fakes::Windows {
 public:
  explicit OnlyTicks(ULONGLONG ticks) : m_ticks(ticks) {}
  ULONGLONG GetTickCount64() override { return m_ticks; }

 private:
  const ULONGLONG m_ticks;
};

struct Case {
  ULONGLONG ticks;
  std::vector<unsigned> serial;
};

void PrintTo(const Case& tested, std::ostream* out) { *out << std::hex << "0x" << tested.ticks; }

class CommandSerial : public testing::TestWithParam<Case> {};

TEST_P(CommandSerial, IsTheLow32BitsOfTheTickCountMostSignificantByteFirst) {
  OnlyTicks ticks(GetParam().ticks);
  const fakes::Installed installed(ticks);
  NPA::CCmd command;
  setSerial(command);
  EXPECT_EQ(serialOf(command), GetParam().serial);
}

INSTANTIATE_TEST_SUITE_P(Ticks, CommandSerial,
                         testing::Values(Case{0x12345678, {0x12, 0x34, 0x56, 0x78}},
                                         Case{0x9'12345678, {0x12, 0x34, 0x56, 0x78}},
                                         Case{0x89ABCDEF, {0x89, 0xAB, 0xCD, 0xEF}}, Case{0, {0, 0, 0, 0}},
                                         Case{0xFFFFFFFF, {0xFF, 0xFF, 0xFF, 0xFF}}, Case{0x1'00000000, {0, 0, 0, 0}}),
                         [](const auto& tested) { return "Case" + std::to_string(tested.index); });

TEST(CommandSerials, OfOneMillisecondAreTheSame) {
  OnlyTicks ticks(77);
  const fakes::Installed installed(ticks);
  NPA::CCmd one;
  NPA::CCmd other;
  setSerial(one);
  setSerial(other);
  EXPECT_EQ(serialOf(one), serialOf(other));
}

TEST(CommandSerials, SettingOneLeavesBufferLengthAndSize) {
  OnlyTicks ticks(77);
  const fakes::Installed installed(ticks);
  FilledCommand command(16);
  command.fill(std::array<std::uint8_t, 2>{1, 2});
  const unsigned char* const buffer = command.GetCmd();
  setSerial(command);
  EXPECT_EQ(command.GetCmd(), buffer);
  EXPECT_EQ(command.GetLen(), 2U);
  EXPECT_EQ(command.size(), 16U);
}

}  // namespace
