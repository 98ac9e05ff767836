/// Lengths of received frames: the module tells what it was told, and reads none of the bytes.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "npa/CommandAccess.h"

namespace {

constexpr auto kMost = std::numeric_limits<std::uint32_t>::max();

// There is nothing at this address, so whoever looked would not come back.
TEST(HostileFrame, OfAnySizeIsOnlyPointedAt) {
  auto* const nowhere = reinterpret_cast<std::uint8_t*>(std::uintptr_t{16});
  for (const std::uint32_t size : {0U, 1U, 256U, kMost}) {
    SCOPED_TRACE(size);
    FilledFrame frame;
    frame.fill({nowhere, size});

    const NPA::CParse copy(frame);

    EXPECT_EQ(copy.GetBuf(), nowhere);
    EXPECT_EQ(copy.GetSize(), size);
  }
}

TEST(HostileCommand, OfAnySizeAllocatesNothing) {
  FilledCommand command(kMost);
  EXPECT_EQ(command.size(), kMost);
  EXPECT_EQ(command.GetCmd(), nullptr);
  EXPECT_EQ(command.GetLen(), 0U);
}

}  // namespace
