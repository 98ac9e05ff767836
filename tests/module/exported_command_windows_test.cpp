/// The command classes through the module's import library, with the real tick count.

#include <gtest/gtest.h>

#include <array>

#include "AppCommunication.h"
#include "module/InModule.h"
#include "npa/CommandAccess.h"

namespace {

TEST(ExportedCommand, IsUsedThroughTheLibrary) {
  FilledCommand command;
  EXPECT_EQ(command.GetCmd(), nullptr);
  command.SetSize(16);
  command.fill(std::array<std::uint8_t, 3>{7, 8, 9});
  EXPECT_EQ(command.GetLen(), 3U);
  EXPECT_EQ(command.GetCmd()[2], 9);
  FilledCommand shared(1);
  shared = command;
  EXPECT_EQ(shared.GetCmd(), command.GetCmd());
  shared = NPA::CCmd();
  release(command);
  EXPECT_EQ(command.GetCmd(), nullptr);
  EXPECT_EQ(command.size(), 0U);
}

TEST(ExportedCommand, AFrameIsSeenThroughTheLibrary) {
  std::array<std::uint8_t, 5> received{};
  FilledFrame frame;
  EXPECT_EQ(frame.GetBuf(), nullptr);
  frame.fill(received);
  EXPECT_EQ(frame.GetBuf(), received.data());
  EXPECT_EQ(frame.GetSize(), 5U);
}

TEST(ExportedCommand, TheFrameLimitIsExportedAndReads255) {
  const auto* const limit = reinterpret_cast<const std::int32_t*>(
      ::GetProcAddress(::GetModuleHandleW(L"AppCommunication.dll"), "_ZN3NPA6CParse16MAX_FRAME_LENGTHE"));
  ASSERT_NE(limit, nullptr);
  EXPECT_TRUE(isInModule(limit));
  EXPECT_EQ(*limit, 255);
}

TEST(ExportedCommand, TheSerialLiesBetweenTwoReadingsOfTheTickCount) {
  NPA::CCmd command;
  const auto before = static_cast<std::uint32_t>(::GetTickCount64());
  setSerial(command);
  const auto after = static_cast<std::uint32_t>(::GetTickCount64());
  std::uint32_t serial = 0;
  for (const unsigned byte : serialOf(command)) serial = serial << 8 | byte;
  EXPECT_LE(serial - before, after - before) << "before " << before << ", serial " << serial << ", after " << after;
}

}  // namespace
