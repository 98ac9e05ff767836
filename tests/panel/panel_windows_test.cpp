/// printer-panel.exe: its list of printers, and that it goes on while one of them hangs.

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

#include "PanelTest.h"

namespace {

using namespace std::chrono_literals;

using paneltest::contains;
using paneltest::Page;
using paneltest::PanelTest;
using paneltest::printer;

constexpr const char* kStateHangs = "<call function='AppPrinterSdk_GetState'><hang/></call>";
constexpr const char* kSlowState = "<call function='AppPrinterSdk_GetState' latency='300'/>";

TEST_F(PanelTest, PrintersAppearWithTheirNamesAndStates) {
  start({printer("Desk"), printer("Hall", "status='7'")});
  awaitCard(0, L"Desk: ready");
  awaitCard(1, L"Hall: busy (status 7)");
}

TEST_F(PanelTest, CardFollowsThePrinter) {
  start({printer("Desk", "",
                 "<timeline><at ms='3000'><jobs count='2'/></at><at ms='5000'><jobs count='0'/><status value='11'/></at>"
                 "</timeline>")});
  awaitCard(0, L"Desk: ready");
  awaitCard(0, L"Desk: prints");
  awaitCard(0, L"Desk: takes changes");
}

TEST_F(PanelTest, CodeOfAFailedReadingIsOnTheCard) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_GetState'><fail code='-7'/></call>")});
  awaitCard(0, L"Desk: no answer (code -7)");
}

TEST_F(PanelTest, StatePageShowsWhatThePrinterTold) {
  start({printer("Desk", "model='Desk 200' serial='D-1' firmware='1.4'",
                 "<alert code='21'/><supply color='black' percent='62'/>")});
  awaitText(ID_FIELDS, L"Status: ready");
  for (const auto* part :
       {L"Jobs: 0", L"Model: Desk 200", L"Serial number: D-1", L"Firmware: 1.4", L"Supplies: black 62 %", L"Alerts: 21"}) {
    EXPECT_TRUE(contains(text(ID_FIELDS), part)) << testing::PrintToString(part);
  }
}

TEST_F(PanelTest, StatePageShowsTheChosenPrinterAndNoOther) {
  start({printer("Desk", "model='Desk 200'", "<timeline><at ms='4000'><status value='3'/></at></timeline>"),
         printer("Hall", "model='Hall 900' interval='60000'")});
  awaitText(ID_FIELDS, L"Model: Desk 200");
  awaitCard(1, L"Hall: ready");
  choose(1);
  awaitText(ID_FIELDS, L"Model: Hall 900");
  awaitCard(0, L"Desk: busy (status 3)");  // told many times meanwhile
  EXPECT_TRUE(contains(text(ID_FIELDS), L"Model: Hall 900")) << testing::PrintToString(text(ID_FIELDS));
}

TEST_F(PanelTest, HostileAnswersAreShownAndHarmNothing) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_GetState'><garbage from-call='2'/></call>"), printer("Hall")});
  awaitCard(0, L"Desk: busy (status -2147483648)");
  choose(1);
  awaitText(ID_FIELDS, L"Status: ready");
  EXPECT_TRUE(answers());
}

TEST_F(PanelTest, SilenceOfAPrinterIsOnItsCard) {
  start({printer("Desk", "", kStateHangs)});
  awaitCard(0, L"Desk: no answer yet");
  awaitCard(0, L"Desk: no answer for ");
}

TEST_F(PanelTest, PrinterThatIsReadRarelyIsNotSaidToBeSilent) {
  start({printer("Desk", "interval='60000'"), printer("Hall", "interval='3000'", kStateHangs)});
  awaitCard(1, L"Hall: no answer for 1");  // 10 to 19 s
  EXPECT_FALSE(contains(card(0), L"no answer for")) << testing::PrintToString(card(0));
}

/// Asks for an answer again and again for as long as it lives, and counts those that came and those that did not.
class Heartbeat {
 public:
  explicit Heartbeat(std::function<bool()> answers) : m_answers(std::move(answers)), m_thread(&Heartbeat::beat, this) {}
  ~Heartbeat() { stop(); }
  Heartbeat(const Heartbeat&) = delete;
  Heartbeat& operator=(const Heartbeat&) = delete;

  int stop() {
    m_ending = true;
    if (m_thread.joinable()) m_thread.join();
    return m_missed;
  }
  int answered() const { return m_answered; }
  int missed() const { return m_missed; }

 private:
  void beat() {
    while (!m_ending) {
      ++(m_answers() ? m_answered : m_missed);
      std::this_thread::sleep_for(20ms);  // leaves the window time for others
    }
  }

  const std::function<bool()> m_answers;
  std::atomic<bool> m_ending{false};
  std::atomic<int> m_answered{0};
  std::atomic<int> m_missed{0};
  std::thread m_thread;
};

TEST_F(PanelTest, NeverFreezesWhileAPrinterHangsForHalfAMinute) {
  start({printer("Desk", "", "<call function='AppPrinterSdk_GetState'><hang ms='30000' call='1'/></call>"),
         printer("Hall", "status='0'",
                 "<timeline><at ms='1000'><status value='3'/></at><at ms='2000'><status value='4'/></at>"
                 "<at ms='9000'><status value='5'/></at><at ms='10000'><status value='0'/></at></timeline>")});
  Heartbeat heartbeat([this] { return answers(); });
  show(Page::Settings);
  click(ID_SETTINGS_READ);  // waits for the hanging printer as well
  awaitMessage(L"Read settings, Desk ... for ");
  awaitCard(1, L"Hall: busy (status 5)");
  awaitCard(1, L"Hall: ready");
  choose(1);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, Hall: done");
  EXPECT_TRUE(contains(card(0), L"Desk: no news for ")) << testing::PrintToString(card(0));
  EXPECT_TRUE(contains(card(0), L" s: Read settings")) << testing::PrintToString(card(0));
  while (!contains(card(0), L"Desk: ready")) {
    ASSERT_EQ(heartbeat.missed(), 0) << "of " << heartbeat.answered() << " answered";
    for (const auto page : {Page::State, Page::Network, Page::Wifi, Page::Log, Page::Settings}) show(page);
  }
  choose(0);
  awaitMessage(L"Read settings, Desk: done");
  EXPECT_EQ(heartbeat.stop(), 0) << "of " << heartbeat.answered() << " answered";
  EXPECT_GT(heartbeat.answered(), 100);
}

TEST_F(PanelTest, SlowPrinterIsShownAllTheSame) {
  start({printer("Desk", "", kSlowState)});
  awaitCard(0, L"Desk: ready");
  EXPECT_TRUE(answers());
}

TEST_F(PanelTest, ListOfManyPrintersScrolls) {
  std::vector<std::string> printers;
  for (int i = 0; i < 30; ++i) printers.push_back(printer("p" + std::to_string(i), "interval='1000'"));
  start(printers);
  const HWND list = control(ID_PRINTERS);
  const HWND last = control(ID_CARD_FIRST + 29);
  RECT seen{};
  ::GetWindowRect(list, &seen);
  const auto lastTop = [last] {
    RECT place{};
    ::GetWindowRect(last, &place);
    return place.top;
  };
  ASSERT_GT(lastTop(), seen.bottom);
  EXPECT_TRUE(eventually([&] {
    // Over a card, as a person turns it.
    ::PostMessageW(control(ID_CARD_FIRST), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA),
                   MAKELPARAM(seen.left + 20, seen.top + 20));
    return lastTop() < seen.bottom - 40;
  }));
  choose(29);
  show(Page::Settings);
  click(ID_SETTINGS_READ);
  awaitMessage(L"Read settings, p29: done");
}

}  // namespace
