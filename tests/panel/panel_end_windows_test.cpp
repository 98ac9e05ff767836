/// How printer-panel.exe begins and ends.

#include "PanelTest.h"

namespace {

using namespace std::chrono_literals;

using paneltest::contains;
using paneltest::Page;
using paneltest::PanelTest;
using paneltest::printer;

constexpr auto kSoon = 15s;  // of a busy machine; the panel itself waits 3 s at most
constexpr const char* kStateHangs = "<call function='AppPrinterSdk_GetState'><hang/></call>";

TEST_F(PanelTest, ClosesAtOnceWhenNothingIsUnderWay) {
  start({printer("Desk"), printer("Hall")});
  awaitCard(0, L"Desk: ready");
  click(ID_CLOSE);
  EXPECT_EQ(panel().wait(kSoon), 0U);
}

TEST_F(PanelTest, ClosesByTheSystemsMessage) {
  start({printer("Desk")});
  ::PostMessageW(window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(panel().wait(kSoon), 0U);
}

TEST_F(PanelTest, WindowIsGoneAtOnceWhenItIsClosedWhileAPrinterHangs) {
  start({printer("Desk", "", kStateHangs), printer("Hall")});
  awaitCard(1, L"Hall: ready");
  const HWND closed = window();
  click(ID_CLOSE);
  EXPECT_TRUE(eventually([closed] { return ::IsWindowVisible(closed) == 0; }));
  EXPECT_EQ(panel().wait(0ms), std::nullopt) << "it gives the printer some time";
  EXPECT_EQ(panel().wait(kSoon), 0U);
}

TEST_F(PanelTest, ClosesWhileATransferIsUnderWay) {
  start({printer("Desk", "", "<firmware size='1000000' rate='10000'/>")});
  show(Page::Firmware);
  click(ID_FIRMWARE_SEND);
  EXPECT_TRUE(eventually([this] { return text(ID_FIRMWARE_BAR) > L"0 %"; }));
  click(ID_CLOSE);
  EXPECT_EQ(panel().wait(kSoon), 0U);
}

TEST_F(PanelTest, EscapeClosesNothing) {
  start({printer("Desk")});
  click(ID_CARD_FIRST);
  key(control(ID_CARD_FIRST), VK_ESCAPE);
  show(Page::Settings);  // after the key
  EXPECT_NE(::IsWindowVisible(window()), 0);
}

TEST_F(PanelTest, MistakeInTheScenarioIsToldWithItsLine) {
  startWith("<scenario>\n  <printer uid='p' manager-id='m' connection='wifi'/>\n</scenario>\n");
  const HWND box = awaitWindow(L"#32770");
  ASSERT_NE(box, nullptr);
  std::wstring told;
  for (HWND child = nullptr; (child = ::FindWindowExW(box, child, nullptr, nullptr)) != nullptr;) told += textOf(child) + L"\n";
  EXPECT_TRUE(contains(told, L"scenario.xml:2: ")) << testing::PrintToString(told);
  EXPECT_TRUE(contains(told, L"'wifi'")) << testing::PrintToString(told);
  ::PostMessageW(box, WM_COMMAND, IDOK, 0);
  EXPECT_EQ(panel().wait(kSoon), 2U);
}

TEST_F(PanelTest, MistakeInTheScenarioIsWrittenWhereNobodyIsThereToReadABox) {
  startWith("<scenario>\n  <printer uid='p' manager-id='m' connection='wifi'/>\n</scenario>\n", {L"--unattended"});
  EXPECT_EQ(panel().wait(kSoon), 2U);
  EXPECT_NE(panel().errors().find("scenario.xml:2: "), std::string::npos) << panel().errors();
}

TEST_F(PanelTest, ScenarioOptionWithoutAFileIsAMistake) {
  startWith("<scenario/>", {L"--scenario", L"--unattended"});
  EXPECT_EQ(panel().wait(kSoon), 2U);
  EXPECT_NE(panel().errors().find("takes --scenario FILE"), std::string::npos) << panel().errors();
}

TEST_F(PanelTest, UnknownOptionIsToldWithTheRightOnes) {
  startWith("<scenario/>", {L"--unattended", L"--color"});
  EXPECT_EQ(panel().wait(kSoon), 2U);
  EXPECT_NE(panel().errors().find("takes --scenario FILE"), std::string::npos) << panel().errors();
}

}  // namespace
