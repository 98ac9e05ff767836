#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>

#include "npa/CommandAccess.h"

struct MaxFrameLength : support::PrivateMember<MaxFrameLength, const std::int32_t*> {};
template struct support::Expose<MaxFrameLength, &NPA::CParse::MAX_FRAME_LENGTH>;

namespace {

using NPA::CCmd;
using NPA::CParse;

static_assert(!std::is_polymorphic_v<CCmd> && std::is_standard_layout_v<CCmd>);
static_assert(!std::is_polymorphic_v<CParse> && std::is_standard_layout_v<CParse>);
static_assert(std::is_trivially_copyable_v<CParse> && std::is_trivially_destructible_v<CParse>);
static_assert(std::is_same_v<decltype(&CCmd::GetLen), unsigned long (CCmd::*)() const>);
static_assert(std::is_same_v<decltype(&CCmd::GetCmd), unsigned char* (CCmd::*)() const>);
static_assert(std::is_same_v<decltype(&CParse::GetSize), unsigned long (CParse::*)() const>);
static_assert(std::is_same_v<decltype(&CParse::GetBuf), unsigned char* (CParse::*)() const>);

constexpr std::array<std::uint8_t, 3> kBytes{7, 8, 9};

/// An object in memory of the test's own, which can be looked at when the object has ended. Before it began it held 0xAB.
template <class Object>
class InMemory {
 public:
  template <class... Arguments>
  explicit InMemory(Arguments... arguments) {
    m_bytes.fill(0xAB);
    m_object = new (m_bytes.data()) Object(arguments...);
  }
  ~InMemory() { destroy(); }
  InMemory(const InMemory&) = delete;
  InMemory& operator=(const InMemory&) = delete;

  Object* operator->() { return m_object; }
  Object& operator*() { return *m_object; }
  void destroy() {
    if (m_object != nullptr) std::destroy_at(std::exchange(m_object, nullptr));
  }

  template <class Value>
  Value at(std::size_t offset) const {
    Value value{};
    std::memcpy(&value, m_bytes.data() + offset, sizeof value);
    return value;
  }
  std::uint64_t buffer() const { return at<std::uint64_t>(0); }
  std::uint32_t field(std::size_t offset) const { return at<std::uint32_t>(offset); }

 private:
  alignas(Object) std::array<std::uint8_t, sizeof(Object)> m_bytes;
  Object* m_object = nullptr;
};

constexpr std::size_t kSize = 8;
constexpr std::size_t kLength = 12;
constexpr std::size_t kReserved = 16;
constexpr std::size_t kSerial = 20;

TEST(Command, HasNoBufferAndA256ByteSizeByDefault) {
  const InMemory<CCmd> command;
  EXPECT_EQ(command.buffer(), 0U);
  EXPECT_EQ(command.field(kSize), 256U);
  EXPECT_EQ(command.field(kLength), 0U);
  EXPECT_EQ(command.field(kReserved), 0U);
  EXPECT_EQ(command.field(kSerial), 0U);
}

TEST(Command, NotesTheSizeAndAllocatesNothing) {
  InMemory<CCmd> command(0x12345678UL);
  EXPECT_EQ(command.field(kSize), 0x12345678U);
  EXPECT_EQ(command->GetCmd(), nullptr);
  EXPECT_EQ(command->GetLen(), 0U);
}

// `unsigned long` has 64 bits on the host only.
constexpr auto kBeyond32Bits = static_cast<unsigned long>(0x1'00000010ULL);

TEST(Command, CutsItsSizeTo32Bits) { EXPECT_EQ(FilledCommand(kBeyond32Bits).size(), 0x10U); }

TEST(Command, DestroyingADefaultOneFreesNothingAndLeavesItsSize) {
  InMemory<CCmd> command;
  command.destroy();
  EXPECT_EQ(command.buffer(), 0U);
  EXPECT_EQ(command.field(kSize), 256U);
}

TEST(Command, DestroyingOneWithABufferFreesItAndLeavesNeitherBufferNorSize) {
  InMemory<CCmd> command;
  FilledCommand filled(16);
  filled.fill(kBytes);
  *command = filled;
  filled = CCmd();
  ASSERT_NE(command->GetCmd(), nullptr);

  command.destroy();

  EXPECT_EQ(command.buffer(), 0U);
  EXPECT_EQ(command.field(kSize), 0U);
}

TEST(Command, AfterReleaseHasNeitherBufferNorSize) {
  FilledCommand command(16);
  command.fill(kBytes);
  release(command);
  EXPECT_EQ(command.GetCmd(), nullptr);
  EXPECT_EQ(command.size(), 0U);
}

TEST(Command, ReleaseKeepsLengthAndSerial) {
  FilledCommand command(16);
  command.fill(kBytes);
  command.setSerialBytes({1, 2, 3, 4});
  release(command);
  EXPECT_EQ(command.GetLen(), kBytes.size());
  EXPECT_EQ(serialOf(command), (std::vector{1U, 2U, 3U, 4U}));
}

TEST(Command, ASecondReleaseDoesNothing) {
  FilledCommand command(16);
  command.fill(kBytes);
  release(command);
  command.SetSize(5);
  release(command);
  EXPECT_EQ(command.GetCmd(), nullptr);
  EXPECT_EQ(command.size(), 5U);
}

TEST(Command, ReleaseWithoutABufferLeavesTheSize) {
  FilledCommand command(16);
  release(command);
  EXPECT_EQ(command.size(), 16U);
}

// The sanitizers see a buffer that is freed twice, or never.
TEST(Command, FreesABufferFromMallocExactlyOnce) {
  {
    FilledCommand command;
    command.fill(kBytes);
  }
  FilledCommand command;
  command.fill(kBytes);
  release(command);
  EXPECT_EQ(command.GetCmd(), nullptr);
}

TEST(Command, SetSizeLeavesTheBuffer) {
  FilledCommand command;
  command.fill(kBytes);
  const unsigned char* const buffer = command.GetCmd();
  command.SetSize(1);
  EXPECT_EQ(command.size(), 1U);
  EXPECT_EQ(command.GetCmd(), buffer);
  EXPECT_EQ(command.GetLen(), kBytes.size());
  EXPECT_EQ(std::memcmp(buffer, kBytes.data(), kBytes.size()), 0);
}

TEST(Command, SetSizeCutsTheSizeTo32Bits) {
  FilledCommand command;
  command.SetSize(kBeyond32Bits);
  EXPECT_EQ(command.size(), 0x10U);
}

TEST(Command, GetSerialGivesFourBytesFirstByteFirst) {
  FilledCommand command;
  command.setSerialBytes({1, 2, 3, 4});
  std::array<unsigned char, 6> out{};
  out.fill(0xEE);
  command.GetSerial(out.data() + 1);
  EXPECT_EQ(out, (std::array<unsigned char, 6>{0xEE, 1, 2, 3, 4, 0xEE}));
}

TEST(Command, AssignmentSharesTheBufferAndCopiesAllElse) {
  FilledCommand original(16);
  original.fill(kBytes);
  original.setSerialBytes({1, 2, 3, 4});
  FilledCommand shared;

  shared = original;

  EXPECT_EQ(shared.GetCmd(), original.GetCmd());
  EXPECT_EQ(shared.size(), 16U);
  EXPECT_EQ(shared.GetLen(), kBytes.size());
  EXPECT_EQ(serialOf(shared), serialOf(original));
  shared = CCmd();  // one of the two lets go
}

TEST(Command, ACopySharesTheBuffer) {
  FilledCommand original(16);
  original.fill(kBytes);
  FilledCommand copy(original);
  EXPECT_EQ(copy.GetCmd(), original.GetCmd());
  EXPECT_EQ(copy.size(), 16U);
  EXPECT_EQ(copy.GetLen(), kBytes.size());
  copy = CCmd();
}

TEST(Command, AMovedOneSharesTheBufferToo) {
  FilledCommand original(16);
  original.fill(kBytes);
  FilledCommand moved(std::move(original));
  EXPECT_EQ(moved.GetCmd(), original.GetCmd());
  moved = CCmd();
}

TEST(Command, AssigningAnEmptyOneLetsGoOfTheBufferWithoutFreeingIt) {
  FilledCommand original;
  original.fill(kBytes);
  FilledCommand shared;
  shared = original;

  shared = CCmd();

  EXPECT_EQ(shared.GetCmd(), nullptr);
  EXPECT_EQ(shared.size(), 256U);
  ASSERT_NE(original.GetCmd(), nullptr);
  EXPECT_EQ(original.GetCmd()[2], 9);
}

TEST(CommandLayout, HasBufferSizeLengthReservedAndSerialInThisOrder) {
  InMemory<FilledCommand> command(0x11111111UL);
  command->SetSize(16);
  command->fill(kBytes);
  command->setSerialBytes({1, 2, 3, 4});
  command->SetSize(0x11111111UL);
  EXPECT_EQ(sizeof(CCmd), 24U);
  EXPECT_EQ(command.buffer(), reinterpret_cast<std::uintptr_t>(command->GetCmd()));
  EXPECT_EQ(command.field(kSize), 0x11111111U);
  EXPECT_EQ(command.field(kLength), kBytes.size());
  EXPECT_EQ(command.field(kReserved), 0U);
  EXPECT_EQ((command.at<std::array<std::uint8_t, 4>>(kSerial)), (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
}

TEST(Frame, IsEmptyAtFirst) {
  InMemory<CParse> frame;
  EXPECT_EQ(frame->GetBuf(), nullptr);
  EXPECT_EQ(frame->GetSize(), 0U);
}

TEST(Frame, IsSeenWhereItWasReceived) {
  std::array<std::uint8_t, 5> received{};
  FilledFrame frame;
  frame.fill(received);
  EXPECT_EQ(frame.GetBuf(), received.data());
  EXPECT_EQ(frame.GetSize(), received.size());
}

TEST(Frame, CopiesAreViewsOfTheSameBytesAndFreeNothing) {
  std::array<std::uint8_t, 5> received{1, 2, 3, 4, 5};
  FilledFrame frame;
  frame.fill(received);
  {
    const CParse copy(frame);
    CParse assigned;
    assigned = frame;
    EXPECT_EQ(copy.GetBuf(), received.data());
    EXPECT_EQ(copy.GetSize(), received.size());
    EXPECT_EQ(assigned.GetBuf(), received.data());
    EXPECT_EQ(assigned.GetSize(), received.size());
  }
  EXPECT_EQ(frame.GetBuf(), received.data());
  EXPECT_EQ(received, (std::array<std::uint8_t, 5>{1, 2, 3, 4, 5}));
}

TEST(FrameLayout, HasTheSizeAfterThePointerAndTwoFields) {
  std::array<std::uint8_t, 5> received{};
  InMemory<FilledFrame> frame;
  frame->fill(received);
  EXPECT_EQ(sizeof(CParse), 24U);
  EXPECT_EQ(frame.buffer(), reinterpret_cast<std::uintptr_t>(received.data()));
  EXPECT_EQ(frame.field(8), 0U);
  EXPECT_EQ(frame.field(12), 0U);
  EXPECT_EQ(frame.field(16), received.size());
}

// By its address, so that it takes a definition.
TEST(Frame, HasAtMost255Bytes) { EXPECT_EQ(*privateMember(MaxFrameLength()), 255); }

}  // namespace
