/// Each command of printer-console.exe, on printers that do well and on printers that do not.

#include <algorithm>

#include "ConsoleTest.h"
#include "common/JsonText.h"

namespace {

using consoletest::Arguments;
using consoletest::contains;

const char* const kPrinters = R"(<scenario>
  <printer uid='ready' manager-id='m1' connection='usb' interval='20' push-scan='yes' ctrl-port='yes' model='Plain' firmware='1.0'>
    <supply color='black' percent='62'/>
    <parameters sleep-time='10' timed-clear='3'/>
    <network dhcp='yes' address='192.0.2.77'/>
    <firmware size='1000' rate='1000'/>
    <upgrade-service check-time='100' new-version='2.0'/>
    <wifi segments='2' segment-time='50' join-segments='2' join-time='50'>
      <access-point name='Office' password='open sesame' signal='80'/>
    </wifi>
  </printer>
  <printer uid='printing' manager-id='m2' connection='usb' interval='20' ctrl-port='yes' jobs='1' status='3'/>
  <printer uid='waiting' manager-id='m3' connection='usb' interval='20' status='5'/>
  <printer uid='closed' manager-id='m4' connection='usb' interval='20' status='1'/>
  <printer uid='hanging' manager-id='m5' connection='usb' interval='20'>
    <call function='AppPrinterSdk_GetState'><hang/></call>
  </printer>
  <printer uid='slow' manager-id='m6' connection='usb' interval='20'>
    <firmware size='100000000' rate='1000000'/>
    <upgrade-service check-time='3600000'/>
    <wifi segments='1000' segment-time='1000' join-segments='1000' join-time='1000'/>
  </printer>
  <printer uid='restarting' manager-id='m7' connection='usb' interval='20' firmware='3.0'>
    <call function='AppPrinterSdk_GetState'><fail code='-1' from-call='3' calls='3'/></call>
  </printer>
  <printer uid='rare' manager-id='m10' connection='usb' interval='60000'>
    <upgrade-service starts='no'/>
  </printer>
  <printer uid='seldom' manager-id='m11' connection='usb' interval='60000'/>
  <printer uid='lying' manager-id='m8' connection='usb' interval='20' push-scan='yes' ctrl-port='yes'>
    <call function='AppMgr_GetPrintingJob'><garbage/></call>
    <call function='AppPrinterSdk_UpgradeFwProgress'><garbage/></call>
    <call function='AppPrinterSdk_GetState'><garbage/></call>
    <call function='AppMgr_GetPrinterWifiResult'><garbage/></call>
    <call function='AppSdk_TriggerFwUpgradeResult'><garbage/></call>
    <call function='AppPrinterSdk_GetPushScanPara'><garbage/></call>
    <upgrade-service check-time='1'/>
    <wifi segments='1' segment-time='1'/>
  </printer>
  <printer uid='broken' manager-id='m9' connection='usb' interval='20' push-scan='yes'>
    <call function='AppPrinterSdk_GetState'><fail code='-7'/></call>
    <call function='AppPrinterSdk_GetSleepTime'><fail code='-7'/></call>
    <call function='AppPrinterSdk_GetSuppliesAlarm'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetSleepTime'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetSuppliesAlarm'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetPaperAlarm'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetTimedClear'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetSilentMode'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetAlignPage'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetAlignCmd'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetClean'><fail code='-7'/></call>
    <call function='AppPrinterSdk_GetNetWork'><fail code='-7'/></call>
    <call function='AppPrinterSdk_SetNetWork'><fail code='-7'/></call>
    <call function='AppPrinterSdk_RegisterPushScanUSB'><fail code='-7'/></call>
    <call function='AppPrinterSdk_GetPushScanPara'><fail code='-7'/></call>
    <call function='AppSdk_PrintBmp'><fail/></call>
    <call function='AppSdk_SetPrinterUpgradeInfo'><fail/></call>
    <firmware fail-at='0'/>
    <upgrade-service starts='no'/>
    <wifi segments='1' segment-time='1' join-segments='1' join-time='1'/>
  </printer>
</scenario>)";

const char* const kNotLetGo =
    "timed out: a library call has not come back, or the printer's next turn is far; the task ends with the process";

struct Command {
  Arguments words;
  std::string result;    // among what it tells of success
  std::string failure;   // what it tells of a printer that fails
  bool changes = false;  // is refused by a printer that is not ready
};

const Command kCommands[] = {
    {{L"state"}, "model: Plain\r\n", "the printer library answered -7"},
    {{L"alarm"}, "supplies alarm state: 160\r\n", "the printer did not tell"},
    {{L"get", L"timed-clear", L"sleep-time"}, "timed clear: 3\r\nsleep time: 10\r\n", "the printer did not tell: sleep time"},
    {{L"set", L"sleep-time", L"15"}, "sleep time: 15\r\n", "the printer did not take the sleep time", true},
    {{L"set", L"supplies-alarm"}, "supplies alarm: 0\r\n", "the printer did not take the supplies alarm", true},
    {{L"set", L"paper-alarm", L"1"}, "paper alarm: 1\r\n", "the printer did not take the paper alarm", true},
    {{L"set", L"timed-clear", L"2"}, "timed clear: 2\r\n", "the printer did not take the timed clear", true},
    {{L"set", L"silent-mode", L"1"}, "silent mode: 1\r\n", "the printer did not take the silent mode", true},
    {{L"align", L"print"}, "", "the printer library answered -7", true},
    {{L"align", L"values", L"1", L"-2", L"3", L"4", L"5", L"6"}, "", "the printer library answered -7", true},
    {{L"clean"}, "", "the printer library answered -7", true},
    {{L"qr", L"text of the code"}, "", "the image was sent and not printed", true},
    {{L"network", L"get"}, "DHCP: yes\r\naddress: 192.0.2.77\r\n", "the printer library answered -7"},
    {{L"network", L"set", L"--gateway", L"192.0.2.9"},
     "address: 192.0.2.77\r\nsubnet mask: 255.255.255.0\r\ngateway: 192.0.2.9\r\n",
     "the printer library answered -7",
     true},
    {{L"firmware", L"register"}, "", "the registration did not succeed"},
    {{L"firmware", L"check"},
     "new firmware: yes\r\nversion text 1: 1.0\r\nversion text 2: 2.0\r\n",
     "the check did not start: the upgrade service refused it, or did not answer"},
    {{L"firmware", L"upgrade", L"new.bin"}, "percent: 85\r\n", "the transfer could not be started, or broke off at once"},
    {{L"firmware", L"watch", L"--seconds", L"2"}, "was away: no\r\nanswers: yes\r\n", "the printer does not answer"},
    {{L"pushscan", L"register"}, "", "the registration did not succeed"},
    {{L"pushscan", L"get"},
     "resolution: 300\r\ncolor mode: 2\r\n",
     "it did not succeed: the printer did not answer, or does not support it"},
    {{L"wifi", L"list"},
     "networks:\r\n  name Office, security wpa2, signal 80\r\n",
     "the printer found no network, or its list could not be read"},
    {{L"wifi", L"join", L"Office", L"--password", L"open sesame"},
     "network: Office\r\n",
     "the printer did not join; are name and password right?"},
};

class CommandsTest : public consoletest::ConsoleTest {
 protected:
  consoletest::Ended runOn(const std::wstring& printer, Arguments arguments, const Arguments& options = {}) const {
    arguments.insert(arguments.end(), {L"--printer", printer, L"--scenario", m_file});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return run(arguments);
  }

  /// The last line says so, behind the printer's name.
  void expectEnd(const std::wstring& printer, const Arguments& words, const std::string& end, std::uint32_t code,
                 const std::string& result = {}) const {
    const auto ended = runOn(printer, words);
    SCOPED_TRACE(testing::PrintToString(words) + ended.output + ended.errors);
    EXPECT_EQ(ended.code, code);
    EXPECT_TRUE(ended.output.ends_with(": " + end + "\r\n"));
    EXPECT_TRUE(contains(ended.output, result));
    EXPECT_EQ(ended.errors, "");
  }

  const std::wstring m_file = scenario(L"printers.xml", kPrinters);
};

TEST_F(CommandsTest, EachSucceedsOnAPrinterThatIsReady) {
  for (const auto& command : kCommands) expectEnd(L"ready", command.words, "done", 0, command.result);
}

TEST_F(CommandsTest, EachTellsOfAPrinterThatFails) {
  for (const auto& command : kCommands) expectEnd(L"broken", command.words, "failed: " + command.failure, 1);
}

TEST_F(CommandsTest, ChangesAreRefusedWhileThePrinterIsNotReady) {
  for (const auto& command : kCommands) {
    if (!command.changes) continue;
    expectEnd(L"printing", command.words, "refused: the printer is busy: it prints, or its device status (3) allows no changes",
              1);
    expectEnd(L"closed", command.words, "refused: the printer's device status is 1, which allows no changes", 1);
    if (command.words[0] == L"qr") continue;
    expectEnd(L"waiting", command.words, "refused: the printer is busy: it prints, or its device status (5) allows no changes",
              1);
  }
  expectEnd(L"waiting", {L"qr", L"text"}, "done", 0);
}

TEST_F(CommandsTest, ResultIsOneJsonObject) {
  for (const auto& command : kCommands) {
    const auto ended = runOn(L"ready", command.words, {L"--json"});
    SCOPED_TRACE(testing::PrintToString(command.words) + ended.output);
    EXPECT_EQ(ended.code, 0U);
    ASSERT_TRUE(ended.output.ends_with("}\r\n"));
    EXPECT_EQ(std::ranges::count(ended.output, '\n'), 1);
    EXPECT_TRUE(consoletest::JsonText::isValid(std::string_view(ended.output).substr(0, ended.output.size() - 2)));
    EXPECT_TRUE(contains(ended.output, R"("printer":"ready","outcome":"succeeded","results":{)"));
    EXPECT_FALSE(contains(ended.output, "sesame"));
  }
}

TEST_F(CommandsTest, JsonIsCompleteWhateverAPrinterSays) {
  for (const auto& words :
       {Arguments{L"state"}, Arguments{L"wifi", L"list"}, Arguments{L"firmware", L"check"}, Arguments{L"pushscan", L"get"}}) {
    const auto ended = runOn(L"lying", words, {L"--json"});
    EXPECT_EQ(ended.code, 0U) << ended.output.substr(0, 200);
    ASSERT_TRUE(ended.output.ends_with("}\r\n"));
    EXPECT_TRUE(consoletest::JsonText::isValid(std::string_view(ended.output).substr(0, ended.output.size() - 2)))
        << ended.output.substr(0, 2000);
  }
}

TEST_F(CommandsTest, TextOfAPrinterThatLiesSteersNoTerminal) {
  const auto ended = runOn(L"lying", {L"state"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_TRUE(contains(ended.output, "%s%n"));
  for (const char unit : ended.output) EXPECT_TRUE(unit == '\r' || unit == '\n' || static_cast<unsigned char>(unit) >= 0x20);
}

TEST_F(CommandsTest, FailureIsJsonToo) {
  const auto ended = runOn(L"broken", {L"clean"}, {L"--json"});
  EXPECT_EQ(ended.code, 1U);
  EXPECT_EQ(ended.output,
            "{\"command\":\"clean\",\"printer\":\"broken\",\"outcome\":\"failed\","
            "\"reason\":\"the printer library answered -7\",\"results\":{}}\r\n");
}

TEST_F(CommandsTest, PrinterThatHangsIsGivenUpAtTheLimit) {
  for (const auto& words : {Arguments{L"state"}, Arguments{L"set", L"sleep-time", L"15"}, Arguments{L"firmware", L"watch"}}) {
    auto limited = words;
    limited.insert(limited.end(), {L"--seconds", L"1"});
    expectEnd(L"hanging", limited, kNotLetGo, 1);
  }
}

TEST_F(CommandsTest, OperationThatTakesTooLongIsBrokenOff) {
  for (const auto& words : {Arguments{L"firmware", L"upgrade", L"new.bin"}, Arguments{L"firmware", L"check"},
                            Arguments{L"wifi", L"list"}, Arguments{L"wifi", L"join", L"Office"}}) {
    auto limited = words;
    limited.insert(limited.end(), {L"--seconds", L"1"});
    expectEnd(L"slow", limited, "timed out: it was not over in time and was broken off", 1);
  }
}

TEST_F(CommandsTest, LastNoticeIsTheEndHoweverLongThePrintersInterval) {
  expectEnd(L"rare", {L"firmware", L"check", L"--seconds", L"20"},
            "failed: the check did not start: the upgrade service refused it, or did not answer", 1);
}

TEST_F(CommandsTest, TaskThatWaitsForAFarTurnIsLeftToTheEndOfTheProcess) {
  expectEnd(L"seldom", {L"firmware", L"check", L"--seconds", L"1"}, kNotLetGo, 1);
}

TEST_F(CommandsTest, TransferThatSentNothingIsNotDone) {
  expectEnd(L"lying", {L"firmware", L"upgrade", L"new.bin"}, "failed: the transfer is said to be over, but not to be complete",
            1, "percent: 0\r\n");
}

TEST_F(CommandsTest, JobsThatCouldNotBeReadAreWords) {
  const auto text = runOn(L"lying", {L"state"}).output;
  EXPECT_TRUE(contains(text, "jobs: could not be read\r\n")) << text;
  const auto json = runOn(L"lying", {L"state"}, {L"--json"}).output;
  EXPECT_TRUE(contains(json, "\"jobs\":-2147483648,")) << json.substr(0, 2000);
}

TEST_F(CommandsTest, ProgressIsAtMostALinePerSecond) {
  const auto upgrade = runOn(L"slow", {L"firmware", L"upgrade", L"new.bin"}, {L"--seconds", L"3"}).output;
  EXPECT_TRUE(contains(upgrade, "firmware upgrade  ") && contains(upgrade, " %, ")) << upgrade;
  EXPECT_LE(std::ranges::count(upgrade, '%'), 3) << upgrade;
  const auto list = runOn(L"slow", {L"wifi", L"list"}, {L"--seconds", L"3"}).output;
  EXPECT_TRUE(contains(list, "wifi list  ") && contains(list, " s\r\n")) << list;
}

TEST_F(CommandsTest, WatchEndsWhenThePrinterIsBack) {
  const auto ended = runOn(L"restarting", {L"firmware", L"watch"}, {L"--seconds", L"40"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_TRUE(ended.output.ends_with("was away: yes\r\nanswers: yes\r\nfirmware: 3.0\r\nfirmware watch, restarting: done\r\n"))
      << ended.output;
}

TEST_F(CommandsTest, WrongPasswordDoesNotJoin) {
  expectEnd(L"ready", {L"wifi", L"join", L"Office", L"--password", L"wrong"},
            "failed: the printer did not join; are name and password right?", 1);
}

TEST_F(CommandsTest, PasswordComesFromTheEnvironmentUnlessItIsNamed) {
  ::SetEnvironmentVariableW(L"PRINTER_WIFI_PASSWORD", L"open sesame");
  expectEnd(L"ready", {L"wifi", L"join", L"Office"}, "done", 0);
  expectEnd(L"ready", {L"wifi", L"join", L"Office", L"--password", L"wrong"},
            "failed: the printer did not join; are name and password right?", 1);
  ::SetEnvironmentVariableW(L"PRINTER_WIFI_PASSWORD", nullptr);
  expectEnd(L"ready", {L"wifi", L"join", L"Office"}, "failed: the printer did not join; are name and password right?", 1);
}

TEST_F(CommandsTest, PasswordThatDoesNotComeIsAMistake) {
  expectMistake({L"wifi", L"join", L"Office", L"--password-stdin", L"--printer", L"ready", L"--scenario", m_file},
                "--password-stdin found no password; it takes the first line of the standard input");
}

TEST_F(CommandsTest, MistakesAreToldInOneLine) {
  const std::string known =
      "the scenario has ready, printing, waiting, closed, hanging, slow, restarting, rare, seldom, lying, broken";
  expectMistake({L"state", L"--scenario", m_file}, "--printer UID is missing; " + known);
  expectMistake({L"state", L"--printer", L"nobody", L"--scenario", m_file}, "there is no printer \"nobody\"; " + known);
  expectMistake({L"set", L"sleep-time", L"soon", L"--printer", L"ready"},
                "sleep-time is \"soon\"; it takes a whole number from -2147483648 to 2147483647");
  expectMistake({L"firmware", L"update"}, "firmware is followed by \"update\"; it takes register, check, upgrade and watch");
}

TEST_F(CommandsTest, HelpOfACommandNeedsNothingElse) {
  const auto ended = run({L"wifi", L"join", L"--help"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_TRUE(ended.output.starts_with("printer-console wifi join NAME --printer UID [OPTION...]\n")) << ended.output;
}

TEST_F(CommandsTest, LogIsShownBehindTheResult) {
  const auto ended = runOn(L"closed", {L"clean"}, {L"--log"});
  EXPECT_EQ(ended.code, 1U);
  EXPECT_TRUE(
      contains(ended.output, "which allows no changes\r\nThe diagnostic log is C:\\log\\Corvane.log. Its last lines:\r\n"))
      << ended.output;
}

TEST_F(CommandsTest, LogDoesNotSpoilTheJson) {
  const auto ended = runOn(L"ready", {L"clean"}, {L"--log", L"--json"});
  EXPECT_EQ(ended.code, 0U);
  EXPECT_EQ(std::ranges::count(ended.output, '\n'), 1);
  EXPECT_GT(std::filesystem::file_size(L"C:\\log\\Corvane.log"), 0U);
}

}  // namespace
