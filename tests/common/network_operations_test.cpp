#include <gtest/gtest.h>

#include "OperationRun.h"
#include "Records.h"

namespace {

using AppComm::NetWork;
using AppComm::Type;
using AppPrinterSdk::NetworkSettings;
using consoletest::linesOf;
using consoletest::OperationRun;
using examples::Outcome;
using Lines = std::vector<std::wstring>;
using Words = std::vector<std::wstring>;

const NetworkSettings kPrinters{true, {192, 0, 2, 10}, {255, 255, 255, 0}, {192, 0, 2, 1}, {192, 0, 2, 2}};

TEST(NetworkGetTest, TellsTheSettings) {
  const OperationRun<NetWork> run({L"network", L"get"});
  EXPECT_EQ(run.operation->type(), Type::GetNetwork);
  EXPECT_EQ(run.operation->preliminary().operation, nullptr);
  run.record->settings = kPrinters;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"DHCP: yes", L"address: 192.0.2.10", L"subnet mask: 255.255.255.0",
                                               L"gateway: 192.0.2.1", L"DNS server: 192.0.2.2", L"c, p: done"}));
  run.record->result = -7;
  EXPECT_EQ(linesOf(run.afterNotice()), (Lines{L"c, p: failed: the printer library answered -7"}));
}

class NetworkSetTest : public testing::Test {
 protected:
  /// The settings that are sent to a printer that has `kPrinters`.
  static NetworkSettings sent(Words words) {
    words.insert(words.begin(), {L"network", L"set"});
    const auto options = examples::parseOptions(words);
    const std::shared_ptr<examples::Operation> set = options.command->newOperation(options.request);
    auto [read, required] = set->preliminary();
    EXPECT_TRUE(required);
    const OperationRun<NetWork> reading{std::shared_ptr(std::move(read))};
    EXPECT_EQ(reading.operation->type(), Type::GetNetwork);
    EXPECT_EQ(reading.operation->preliminary().operation->type(), Type::State);
    reading.record->settings = kPrinters;
    reading.afterNotice();
    return OperationRun<NetWork>(set).record->settings;
  }
};

bool operator==(const NetworkSettings& a, const NetworkSettings& b) {
  return a.dhcp == b.dhcp && a.address == b.address && a.subnetMask == b.subnetMask && a.gateway == b.gateway &&
         a.dnsServer == b.dnsServer;
}

TEST_F(NetworkSetTest, WhatIsNotNamedStaysAsThePrinterHasIt) {
  const auto with = [](auto NetworkSettings::*member, auto value) {
    auto settings = kPrinters;
    settings.*member = value;
    return settings;
  };
  const AppPrinterSdk::Ipv4Address other{10, 1, 2, 3};
  EXPECT_TRUE(sent({L"--dhcp", L"no"}) == with(&NetworkSettings::dhcp, false));
  EXPECT_TRUE(sent({L"--address", L"10.1.2.3"}) == with(&NetworkSettings::address, other));
  EXPECT_TRUE(sent({L"--subnet-mask", L"10.1.2.3"}) == with(&NetworkSettings::subnetMask, other));
  EXPECT_TRUE(sent({L"--gateway", L"10.1.2.3"}) == with(&NetworkSettings::gateway, other));
  EXPECT_TRUE(sent({L"--dns-server", L"10.1.2.3"}) == with(&NetworkSettings::dnsServer, other));
}

TEST_F(NetworkSetTest, SeveralAtOnce) {
  EXPECT_TRUE(sent({L"--dhcp", L"no", L"--address", L"1.2.3.4", L"--gateway", L"1.2.3.1"}) ==
              (NetworkSettings{false, {1, 2, 3, 4}, {255, 255, 255, 0}, {1, 2, 3, 1}, {192, 0, 2, 2}}));
}

TEST_F(NetworkSetTest, TellsWhatWasSentOrWhyNot) {
  const OperationRun<NetWork> run({L"network", L"set", L"--gateway", L"1.2.3.4"});
  EXPECT_EQ(run.operation->type(), Type::SetNetwork);
  EXPECT_EQ(linesOf(run.afterNotice()).at(3), L"gateway: 1.2.3.4");
  run.record->statusOne = true;
  EXPECT_EQ(run.afterNotice().outcome, Outcome::Refused);
}

TEST_F(NetworkSetTest, MistakeIsToldBeforeAnythingIsRead) {
  EXPECT_THROW(examples::parseOptions({L"network", L"set", L"--gateway", L"1.2.3"}), examples::OptionsError);
  EXPECT_THROW(examples::parseOptions({L"network", L"set", L"--dhcp", L"maybe"}), examples::OptionsError);
}

}  // namespace
