#include "Support.h"

namespace simulator::test {
namespace {

struct Mistake {
  std::string name;
  std::string text;
  std::string error;
};

std::ostream& operator<<(std::ostream& out, const Mistake& mistake) { return out << mistake.name; }

const std::string two = "<printer uid='b' manager-id='mb' connection='usb'/>";

std::string inCall(const std::string& call) { return onePrinter("", "\n" + call); }
std::string inFault(const std::string& fault) { return withCall("AppPrinterSdk_GetState", "\n" + fault); }
std::string inTimeline(const std::string& at) {
  return onePrinter("", "<supply color='black' percent='5'/><alert code='4'/><timeline>\n" + at + "</timeline>");
}
std::string inWifi(const std::string& point) { return onePrinter("", "<wifi>\n" + point + "</wifi>"); }

/// In the second line.
std::string noReference(const std::string& attribute, const std::string& element) {
  return "f.xml:2: attribute '" + attribute + "' of <" + element +
         "> has an '&' that stands for no character; right are &amp; &lt; &gt; &quot; &apos; or numbers such as &#65; and "
         "&#x41;";
}

const std::vector<Mistake> mistakes{
    // The file
    {"Empty", "", "f.xml:1: the file is empty; right is <scenario>"},
    {"Blank", "\n\t ", "f.xml:1: the file is empty; right is <scenario>"},
    {"OnlyComment", "<!-- -->", "f.xml:1: the file does not begin with <scenario>; right is <scenario>"},
    {"NotClosed", "<scenario>\n<printer>\n</scenario>",
     "f.xml:2: not well-formed XML (XML_ERROR_MISMATCHED_ELEMENT); close every element and quote every attribute once"},
    {"DoubledAttribute", onePrinter("uid='b'"),
     "f.xml:1: not well-formed XML (XML_ERROR_PARSING_ATTRIBUTE); close every element and quote every attribute once"},
    {"ZeroByte", std::string("<scenario/>\n\0", 13), "f.xml:2: zero byte in the file; save the file as UTF-8"},
    {"OtherRoot", "\n<scene/>", "f.xml:2: the file does not begin with <scenario>; right is <scenario>"},
    {"TwoRoots", "<scenario/>\n<scenario/>", "f.xml:2: more than one element in the file; right is <scenario> alone"},
    {"EndTagBehindTheRoot", onePrinter("") + "\n<!-- </a> --></scenario>" + two,
     "f.xml:2: end tag of no element; close every element once"},
    {"BlankInABeginTag", "<scenario>\n< printer uid='b' manager-id='mb' connection='usb'/></scenario>",
     "f.xml:2: blank behind a '<'; right is none"},
    {"BlankInAnEndTag", "<scenario>" + two + "\n<\n/scenario>", "f.xml:2: blank behind a '<'; right is none"},
    {"AttributeInAnEndTag", "<scenario><printer uid='>' manager-id='\"'\nconnection='usb'></printer a='b'></scenario>",
     "f.xml:2: more than a name in an end tag; right is </name>"},
    {"NotUtf8", onePrinter("\nname='\xff'"),
     "f.xml:2: attribute 'name' of <printer> is not valid UTF-8; save the file as UTF-8"},
    {"OverlongUtf8", onePrinter("name='\xc0\xaf'"),
     "f.xml:1: attribute 'name' of <printer> is not valid UTF-8; save the file as UTF-8"},
    {"SurrogateUtf8", onePrinter("name='\xed\xa0\x80'"),
     "f.xml:1: attribute 'name' of <printer> is not valid UTF-8; save the file as UTF-8"},
    {"ReferenceToZero", onePrinter("\nname='a&#0;b'"), noReference("name", "printer")},
    {"ReferenceToASurrogate", onePrinter("\nname='&#xD800;'"), noReference("name", "printer")},
    {"ReferenceBeyondAllCharacters", onePrinter("\nname='&#x110000;'"), noReference("name", "printer")},
    {"ReferenceThatOverflows", onePrinter("\nname='&#x100000041;'"), noReference("name", "printer")},
    {"ReferenceWithoutDigits", onePrinter("\nname='&#;'"), noReference("name", "printer")},
    {"ReferenceWithASign", onePrinter("\nname='&#-65;'"), noReference("name", "printer")},
    {"ReferenceWithoutItsEnd", onePrinter("\nname='&#65'"), noReference("name", "printer")},
    {"UnknownReference", onePrinter("\nname='&lt;&foo;'"), noReference("name", "printer")},
    {"BareAmpersand", onePrinter("\nname='Black & white'"), noReference("name", "printer")},
    {"ReferenceInANumber", onePrinter("\ninterval='1&#0;x'"), noReference("interval", "printer")},
    {"ReferenceInAPassword", inWifi("<access-point name='a' password='&'/>"), noReference("password", "access-point")},
    {"CutUtf8", onePrinter("name='\xe2\x82'"),
     "f.xml:1: attribute 'name' of <printer> is not valid UTF-8; save the file as UTF-8"},

    // Unknown names
    {"UnknownAttribute", inCall("<call latencey='1'/>"),
     "f.xml:2: unknown attribute 'latencey' of <call>; known are function, latency, latency-min, latency-max"},
    {"UnknownElement", "<scenario>\n<prnter/></scenario>",
     "f.xml:2: unknown element 'prnter' in <scenario>; known are call, printer"},
    {"LongUnknownElement", "<scenario>\n<" + std::string(4'000, 'x') + "/></scenario>",
     "f.xml:2: unknown element '" + std::string(60, 'x') + "...' in <scenario>; known are call, printer"},
    {"UnknownChildOfLeaf", onePrinter("", "<alert code='1'>\n<x/></alert>"),
     "f.xml:2: unknown element 'x' in <alert>; there is none"},
    {"Text", "<scenario>\nhello</scenario>", "f.xml:2: text in <scenario>; right are elements, attributes and comments only"},
    {"UnknownFunction", inCall("<call function='AppPrinterSdk_GetStat'/>"),
     "f.xml:2: attribute 'function' of <call> is 'AppPrinterSdk_GetStat'; right is the name of one of the maker's functions; "
     "the "
     "nearest is AppPrinterSdk_GetState"},
    {"LongUnknownFunction", inCall("<call function='" + std::string(4'000'000, 'x') + "'/>"),
     "f.xml:2: attribute 'function' of <call> is '" + std::string(60, 'x') +
         "...'; right is the name of one of the maker's functions; the nearest is AppPrinterSdk_UpgradeFwExit"},

    // Printers
    {"NoPrinter", "<scenario/>", "f.xml:1: no <printer> in <scenario>; right is at least one"},
    {"NoUid", "<scenario>\n<printer manager-id='m' connection='usb'/></scenario>",
     "f.xml:2: missing attribute 'uid' of <printer>; it has no default"},
    {"NoManagerId", "<scenario><printer uid='m' connection='usb'/></scenario>",
     "f.xml:1: missing attribute 'manager-id' of <printer>; it has no default"},
    {"NoConnection", "<scenario><printer uid='m' manager-id='m'/></scenario>",
     "f.xml:1: missing attribute 'connection' of <printer>; it has no default"},
    {"EmptyUid", "<scenario><printer uid='' manager-id='m' connection='usb'/></scenario>",
     "f.xml:1: attribute 'uid' of <printer> is ''; right is a text of 1 to 256 characters"},
    {"DoubledUid", "<scenario>" + two + "\n<printer uid='b' manager-id='mc' connection='usb'/></scenario>",
     "f.xml:2: attribute 'uid' of <printer> is 'b'; right is one that no other printer has; line 1 has it"},
    {"DoubledManagerId", "<scenario>" + two + "\n<printer uid='c' manager-id='mb' connection='usb'/></scenario>",
     "f.xml:2: attribute 'manager-id' of <printer> is 'mb'; right is one that no other printer has; line 1 has it"},
    {"OtherConnection", "<scenario><printer uid='a' manager-id='b' connection='USB'/></scenario>",
     "f.xml:1: attribute 'connection' of <printer> is 'USB'; right is one of usb, network"},
    {"BadNumber", onePrinter("\ninterval='fast'"),
     "f.xml:2: attribute 'interval' of <printer> is 'fast'; right is a whole number from 1 to 3600000"},
    {"NumberWithTail", onePrinter("interval='10s'"),
     "f.xml:1: attribute 'interval' of <printer> is '10s'; right is a whole number from 1 to 3600000"},
    {"EmptyNumber", onePrinter("interval=''"),
     "f.xml:1: attribute 'interval' of <printer> is ''; right is a whole number from 1 to 3600000"},
    {"NumberBelowRange", onePrinter("interval='0'"),
     "f.xml:1: attribute 'interval' of <printer> is '0'; right is a whole number from 1 to 3600000"},
    {"NumberAboveRange", onePrinter("interval='3600001'"),
     "f.xml:1: attribute 'interval' of <printer> is '3600001'; right is a whole number from 1 to 3600000"},
    {"NumberBeyondAll", onePrinter("status='99999999999999999999'"),
     "f.xml:1: attribute 'status' of <printer> is '99999999999999999999'; right is a whole number from -2147483648 to "
     "2147483647"},
    {"YesNo", onePrinter("ctrl-port='true'"), "f.xml:1: attribute 'ctrl-port' of <printer> is 'true'; right is one of no, yes"},
    {"ShortDeviceId", onePrinter("device-id='00'"),
     "f.xml:1: attribute 'device-id' of <printer> is '00'; right is 32 hexadecimal digits"},
    {"DeviceIdNotHex", onePrinter("device-id='0000000000000000000000000000000g'"),
     "f.xml:1: attribute 'device-id' of <printer> is '0000000000000000000000000000000g'; right is 32 hexadecimal digits"},
    {"LongValueIsCut", onePrinter("ctrl-port='" + std::string(59, 'x') + "\xc3\xa4" + "'"),
     "f.xml:1: attribute 'ctrl-port' of <printer> is '" + std::string(59, 'x') + "...'; right is one of no, yes"},
    {"LineBreakInValue", onePrinter("ctrl-port='a&#10;b'"),
     "f.xml:1: attribute 'ctrl-port' of <printer> is 'a b'; right is one of no, yes"},
    {"SeedOutOfRange", "<scenario seed='-1'/>",
     "f.xml:1: attribute 'seed' of <scenario> is '-1'; right is a whole number from 0 to 2147483647"},

    // Supplies and alerts
    {"SupplyOutOfRange", onePrinter("", "\n<supply color='black' percent='101'/>"),
     "f.xml:2: attribute 'percent' of <supply> is '101'; right is a whole number from 0 to 100"},
    {"DoubledSupply", onePrinter("", "<supply color='b' percent='1'/>\n<supply color='b' percent='1'/>"),
     "f.xml:2: attribute 'color' of <supply> is 'b'; right is a color that no other <supply> of the printer has"},
    {"DoubledAlert", onePrinter("", "<alert code='1'/>\n<alert code='1'/>"),
     "f.xml:2: attribute 'code' of <alert> is '1'; right is a code that no other <alert> of the printer has"},

    // Timelines
    {"TwoTimelines", onePrinter("", "<timeline/>\n<timeline/>"), "f.xml:2: second <timeline> in <printer>; right is one"},
    {"TimelineGoesBack", inTimeline("<at ms='1000'/>\n<at ms='999'/>"),
     "f.xml:3: attribute 'ms' of <at> is '999'; right is 1000 or later; a timeline never goes back"},
    {"TimeMissing", inTimeline("<at/>"), "f.xml:2: missing attribute 'ms' of <at>; it has no default"},
    {"TimeBeyondADay", inTimeline("<at ms='86400001'/>"),
     "f.xml:2: attribute 'ms' of <at> is '86400001'; right is a whole number from 0 to 86400000"},
    {"UnknownChange", inTimeline("<at ms='1'><job/></at>"),
     "f.xml:2: unknown element 'job' in <at>; known are jobs, status, address, supply, alert"},
    {"NegativeJobs", inTimeline("<at ms='1'><jobs count='-1'/></at>"),
     "f.xml:2: attribute 'count' of <jobs> is '-1'; right is a whole number from 0 to 100000"},
    {"AddressWithoutValue", inTimeline("<at ms='1'><address/></at>"),
     "f.xml:2: missing attribute 'value' of <address>; it has no default"},
    {"SupplyUnknown", inTimeline("<at ms='1'><supply color='cyan' percent='1'/></at>"),
     "f.xml:2: attribute 'color' of <supply> is 'cyan'; right is the color of a <supply> that the printer has"},
    {"AlertRaisedTwice", inTimeline("<at ms='1'><alert code='4' active='yes'/></at>"),
     "f.xml:2: attribute 'active' of <alert> is 'yes'; right is no, the alert is active already"},
    {"AlertClearedTwice",
     inTimeline("<at ms='1'><alert code='4' active='no'/></at>\n<at ms='1'><alert code='4' active='no'/></at>"),
     "f.xml:3: attribute 'active' of <alert> is 'no'; right is yes, the alert is not active"},

    // Settings
    {"SuppliesAlarm", onePrinter("supplies-alarm='1'"),
     "f.xml:1: attribute 'supplies-alarm' of <printer> is '1'; right is one of no, yes"},
    {"PageTime", onePrinter("page-time='-1'"),
     "f.xml:1: attribute 'page-time' of <printer> is '-1'; right is a whole number from 0 to 3600000"},
    {"CleanTime", onePrinter("clean-time='3600001'"),
     "f.xml:1: attribute 'clean-time' of <printer> is '3600001'; right is a whole number from 0 to 3600000"},
    {"UnknownPart", onePrinter("", "\n<parameter/>"),
     "f.xml:2: unknown element 'parameter' in <printer>; known are supply, alert, call, parameters, network, alignment, "
     "push-scan, firmware, upgrade-service, wifi, timeline"},
    {"UnknownParameter", onePrinter("", "<parameters sleep='1'/>"),
     "f.xml:1: unknown attribute 'sleep' of <parameters>; known are sleep-time, supplies-alarm, paper-alarm, silent-mode, "
     "timed-clear"},
    {"ParameterBeyondAByte", onePrinter("", "\n<parameters paper-alarm='256'/>"),
     "f.xml:2: attribute 'paper-alarm' of <parameters> is '256'; right is a whole number from 0 to 255"},
    {"SleepTimeBeyond32Bits", onePrinter("", "<parameters sleep-time='2147483648'/>"),
     "f.xml:1: attribute 'sleep-time' of <parameters> is '2147483648'; right is a whole number from -2147483648 to 2147483647"},
    {"UnknownNetworkAttribute", onePrinter("", "<network ip='1'/>"),
     "f.xml:1: unknown attribute 'ip' of <network>; known are dhcp, reachable, address, subnet-mask, gateway, dns-server"},
    {"AddressOfThree", onePrinter("", "\n<network address='1.2.3'/>"),
     "f.xml:2: attribute 'address' of <network> is '1.2.3'; right is four numbers from 0 to 255 with dots between them"},
    {"AddressOfFive", onePrinter("", "<network subnet-mask='1.2.3.4.5'/>"),
     "f.xml:1: attribute 'subnet-mask' of <network> is '1.2.3.4.5'; right is four numbers from 0 to 255 with dots between "
     "them"},
    {"AddressBeyondAByte", onePrinter("", "<network gateway='1.2.3.256'/>"),
     "f.xml:1: attribute 'gateway' of <network> is '1.2.3.256'; right is four numbers from 0 to 255 with dots between them"},
    {"AddressWithOctal", onePrinter("", "<network dns-server='1.2.3.010'/>"),
     "f.xml:1: attribute 'dns-server' of <network> is '1.2.3.010'; right is four numbers from 0 to 255 with dots between them"},
    {"AddressWithBlank", onePrinter("", "<network dns-server='1.2.3. 4'/>"),
     "f.xml:1: attribute 'dns-server' of <network> is '1.2.3. 4'; right is four numbers from 0 to 255 with dots between them"},
    {"NoAlignment", onePrinter("", "<alignment/>"), "f.xml:1: missing attribute 'values' of <alignment>; it has no default"},
    {"AlignmentOfFive", onePrinter("", "\n<alignment values='1 2 3 4 5'/>"),
     "f.xml:2: attribute 'values' of <alignment> is '1 2 3 4 5'; right is six whole numbers from -2147483648 to 2147483647 "
     "with "
     "one blank between them"},
    {"AlignmentOfSeven", onePrinter("", "<alignment values='1 2 3 4 5 6 7'/>"),
     "f.xml:1: attribute 'values' of <alignment> is '1 2 3 4 5 6 7'; right is six whole numbers from -2147483648 to 2147483647 "
     "with one blank between them"},
    {"PushScanNumber", onePrinter("", "<push-scan resolution='high'/>"),
     "f.xml:1: attribute 'resolution' of <push-scan> is 'high'; right is a whole number from -2147483648 to 2147483647"},
    {"UnknownPushScanAttribute", onePrinter("", "<push-scan format='1'/>"),
     "f.xml:1: unknown attribute 'format' of <push-scan>; known are resolution, color-mode, file-format, paper-size"},
    {"TwoOfAPart", onePrinter("", "<wifi/>\n<wifi/>"), "f.xml:2: second <wifi> in <printer>; right is one"},

    // Firmware, upgrade service, wireless networks
    {"UnknownFirmwareAttribute", onePrinter("", "<firmware speed='1'/>"),
     "f.xml:1: unknown attribute 'speed' of <firmware>; known are size, rate, fail-at, restart, version"},
    {"FirmwareOfNothing", onePrinter("", "<firmware size='0'/>"),
     "f.xml:1: attribute 'size' of <firmware> is '0'; right is a whole number from 1 to 2147483647"},
    {"FirmwareThatStands", onePrinter("", "<firmware rate='0'/>"),
     "f.xml:1: attribute 'rate' of <firmware> is '0'; right is a whole number from 1 to 2147483647"},
    {"FailureBeyondTheFirmware", onePrinter("", "\n<firmware size='10' fail-at='11'/>"),
     "f.xml:2: attribute 'fail-at' of <firmware> is '11'; right is a whole number from 0 to 10"},
    {"LongRestart", onePrinter("", "<firmware restart='3600001'/>"),
     "f.xml:1: attribute 'restart' of <firmware> is '3600001'; right is a whole number from 0 to 3600000"},
    {"UnknownServiceAttribute", onePrinter("", "<upgrade-service version='1'/>"),
     "f.xml:1: unknown attribute 'version' of <upgrade-service>; known are registers, starts, check-time, result, new-version, "
     "notes"},
    {"ServiceResult", onePrinter("", "<upgrade-service result='maybe'/>"),
     "f.xml:1: attribute 'result' of <upgrade-service> is 'maybe'; right is one of no, yes"},
    {"CheckTime", onePrinter("", "<upgrade-service check-time='1s'/>"),
     "f.xml:1: attribute 'check-time' of <upgrade-service> is '1s'; right is a whole number from 0 to 3600000"},
    {"UnknownWifiAttribute", onePrinter("", "<wifi time='1'/>"),
     "f.xml:1: unknown attribute 'time' of <wifi>; known are segments, segment-time, join-segments, join-time"},
    {"UnknownWifiElement", onePrinter("", "<wifi><accesspoint/></wifi>"),
     "f.xml:1: unknown element 'accesspoint' in <wifi>; known are access-point"},
    {"NoSegments", onePrinter("", "<wifi segments='0'/>"),
     "f.xml:1: attribute 'segments' of <wifi> is '0'; right is a whole number from 1 to 1000"},
    {"NoJoinSegments", onePrinter("", "<wifi join-segments='0'/>"),
     "f.xml:1: attribute 'join-segments' of <wifi> is '0'; right is a whole number from 1 to 1000"},
    {"UnknownAccessPointAttribute", inWifi("<access-point name='n' ssid='n'/>"),
     "f.xml:2: unknown attribute 'ssid' of <access-point>; known are name, password, security, signal, segment"},
    {"AccessPointWithoutName", inWifi("<access-point/>"),
     "f.xml:2: missing attribute 'name' of <access-point>; it has no default"},
    {"LongAccessPoint", inWifi("<access-point name='" + std::string(128, 'n') + "'/>"),
     "f.xml:2: attribute 'name' of <access-point> is '" + std::string(60, 'n') +
         "...'; right is a text of 1 to 127 characters"},
    {"DoubledAccessPoint", inWifi("<access-point name='n'/>\n<access-point name='n'/>"),
     "f.xml:3: attribute 'name' of <access-point> is 'n'; right is a name that no other <access-point> of the printer has"},
    {"LongPasswordIsNotShown", inWifi("<access-point name='n' password='" + std::string(256, 'p') + "'/>"),
     "f.xml:2: attribute 'password' of <access-point> is too long; right is a text of 0 to 255 characters"},
    {"Security", inWifi("<access-point name='n' security='wep'/>"),
     "f.xml:2: attribute 'security' of <access-point> is 'wep'; right is one of open, wpa2, wpa3"},
    {"Signal", inWifi("<access-point name='n' signal='101'/>"),
     "f.xml:2: attribute 'signal' of <access-point> is '101'; right is a whole number from 0 to 100"},
    {"SegmentBeyondTheLast", inWifi("<access-point name='n' segment='5'/>"),
     "f.xml:2: attribute 'segment' of <access-point> is '5'; right is a whole number from 1 to 4"},

    // Calls and faults
    {"FailOfWhatAnswersNothing", withCall("AppPrinterSdk_UpgradeFwExit", "\n<fail/>"),
     "f.xml:2: <fail> for AppPrinterSdk_UpgradeFwExit, which answers nothing; right is <hang>"},
    {"GarbageOfWhatAnswersNothing", withCall("AppMgr_GetPrinterWifiExit", "\n<garbage/>"),
     "f.xml:2: <garbage> for AppMgr_GetPrinterWifiExit, which answers nothing; right is <hang>"},
    {"TwoCallsOfOneFunction",
     onePrinter("", "<call function='AppMgr_CheckIpChange'/>\n<call function='AppMgr_CheckIpChange'/>"),
     "f.xml:2: second <call> for AppMgr_CheckIpChange in <printer>; right is one, as in line 1"},
    {"TwoCallsOfEveryFunction", "<scenario>\n<call/>\n<call/></scenario>",
     "f.xml:3: second <call> for every function in <scenario>; right is one, as in line 2"},
    {"LatencyTwice", inCall("<call latency='1' latency-min='1'/>"),
     "f.xml:2: <call> has latency and latency-min or latency-max; right is latency alone or both of the others"},
    {"LatencyMaxMissing", inCall("<call latency-min='1'/>"),
     "f.xml:2: missing attribute 'latency-max' of <call>; it has no default"},
    {"LatencyMaxBelowMin", inCall("<call latency-min='5' latency-max='4'/>"),
     "f.xml:2: attribute 'latency-max' of <call> is '4'; right is a whole number from 5 to 600000"},
    {"FaultWithoutFunction", inCall("<call>\n<garbage/></call>"),
     "f.xml:3: <garbage> in a <call> without function; right is a <call> with function"},
    {"UnknownFault", inFault("<crash/>"), "f.xml:2: unknown element 'crash' in <call>; known are fail, hang, garbage"},
    {"FailWithoutCode", inFault("<fail/>"), "f.xml:2: missing attribute 'code' of <fail>; it has no default"},
    {"FailWithSuccess", inFault("<fail code='0'/>"),
     "f.xml:2: attribute 'code' of <fail> is '0'; right is a whole number other than 0, which means success"},
    {"CountFailsWithCount", withCall("AppMgr_GetPrintingJob", "\n<fail code='3'/>"),
     "f.xml:2: attribute 'code' of <fail> is '3'; right is a whole number from -2147483648 to -1"},
    {"FlagHasNoCode", withCall("AppPrinterSdk_IsSuppportPushScan", "\n<fail code='3'/>"),
     "f.xml:2: unknown attribute 'code' of <fail>; known are call, from-call, calls, from-ms, until-ms"},
    {"HangOfNoTime", inFault("<hang ms='0'/>"),
     "f.xml:2: attribute 'ms' of <hang> is '0'; right is a whole number from 1 to 3600000"},
    {"CallZero", inFault("<garbage call='0'/>"),
     "f.xml:2: attribute 'call' of <garbage> is '0'; right is a whole number from 1 to 1000000000"},
    {"CallAndCalls", inFault("<garbage call='1' calls='2'/>"),
     "f.xml:2: <garbage> has call and from-call or calls; right is call alone, for one call"},
    {"NoCalls", inFault("<garbage calls='0'/>"),
     "f.xml:2: attribute 'calls' of <garbage> is '0'; right is a whole number from 1 to 1000000000"},
    {"EmptyTimeSpan", inFault("<garbage from-ms='5' until-ms='5'/>"),
     "f.xml:2: attribute 'until-ms' of <garbage> is '5'; right is a whole number from 6 to 86400000"},
};

class ScenarioMistake : public SimulatorTest, public testing::WithParamInterface<Mistake> {};

TEST_P(ScenarioMistake, IsToldWithItsLineAndLoadsNothing) {
  loadScenarioText("<scenario>" + two + "</scenario>");
  std::string error;
  try {
    loadScenarioText(GetParam().text, "f.xml");
  } catch (const ScenarioError& thrown) {
    error = thrown.what();
  }
  EXPECT_EQ(error, GetParam().error);
  EXPECT_EQ(printerUids(), std::vector<std::wstring>{L"b"});
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioMistake, testing::ValuesIn(mistakes), [](const auto& test) { return test.param.name; });

using ScenarioReader = SimulatorTest;

TEST_F(ScenarioReader, DescriptionHasEveryAttributeAndNoState) {
  loadScenarioText(
      onePrinter("name='N' interval='250' ctrl-port='yes' model='M' serial='S' firmware='F' address='A' "
                 "device-id='000102030405060708090a0b0c0d0EFF' upgrade-key='K' status='5'",
                 "<supply color='black' percent='5'/><alert code='-4'/>"));
  const qzstd::PrinterInfo info = newPrinterInfo(L"a");
  EXPECT_EQ(info.uid, L"a");
  EXPECT_EQ(info.managerId, L"ma");
  EXPECT_EQ(info.connectionKind, 1);
  EXPECT_EQ(info.name, L"N");
  EXPECT_EQ(info.interval, 250);
  EXPECT_TRUE(info.hasCtrlPort);
  EXPECT_EQ(info.upgradeKey, L"K");
  EXPECT_EQ(info.model + info.serialNumber + info.firmwareVersion + info.address, L"");
  EXPECT_EQ(info.deviceId, (std::array<std::uint8_t, 16>{}));
  EXPECT_EQ(info.deviceStatus, 0);
  EXPECT_TRUE(info.supplies.empty() && info.alerts.empty());
}

TEST_F(ScenarioReader, DefaultsAreAsDocumented) {
  loadScenarioText("<scenario><printer uid='u' manager-id='m' connection='usb'/></scenario>");
  const qzstd::PrinterInfo info = newPrinterInfo(L"u");
  EXPECT_EQ(info.name, L"u");
  EXPECT_EQ(info.interval, 1000);
  EXPECT_EQ(info.connectionKind, 0);
  EXPECT_FALSE(info.hasCtrlPort);
  EXPECT_EQ(info.upgradeKey, L"");
}

TEST_F(ScenarioReader, TextsAreWideInThePlatformsOwnForm) {
  loadScenarioText(onePrinter("name='\xc3\xa4\xe2\x82\xac\xf0\x9f\x96\xa8 &lt;&#x41;&gt;&amp;&quot;&apos;&#0128424;&#xa;'"));
  EXPECT_EQ(newPrinterInfo(L"a").name, L"\u00e4\u20ac\U0001f5a8 <A>&\"'\U0001f5a8\n");
}

TEST_F(ScenarioReader, ByteOrderMarkAndCommentsAreAllowed) {
  loadScenarioText("\xef\xbb\xbf<?xml version='1.0'?><!-- c --><scenario><!-- c -->" + two + "</scenario><!-- c -->");
  EXPECT_EQ(printerUids(), std::vector<std::wstring>{L"b"});
}

TEST_F(ScenarioReader, UnknownUidHasNoDescription) {
  loadScenarioText(onePrinter(""));
  EXPECT_THROW(newPrinterInfo(L"ma"), std::out_of_range);
}

TEST_F(ScenarioReader, TooManyAccessPointsAreRefused) {
  std::string points;
  for (int i = 0; i <= 1000; ++i) points += "\n<access-point name='" + std::to_string(i) + "'/>";
  try {
    loadScenarioText(onePrinter("", "<wifi>" + points + "</wifi>"));
    FAIL() << "loaded";
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(), "scenario:1002: more than 1000 <access-point>; right are 1000 at most");
  }
}

TEST_F(ScenarioReader, TooManyPrintersAreRefused) {
  std::string text = "<scenario>";
  for (int i = 0; i <= 256; ++i) {
    const std::string id = std::to_string(i);
    text += "\n<printer uid='" + id + "' manager-id='" + id + "' connection='usb'/>";
  }
  try {
    loadScenarioText(text + "</scenario>");
    FAIL() << "loaded";
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(), "scenario:258: more than 256 <printer>; right are 256 at most");
  }
}

}  // namespace
}  // namespace simulator::test
