#include <array>

#include "Records.h"
#include "common/Operations.h"

namespace examples {
namespace {

using AppComm::NetWork;
using AppComm::Type;
using AppPrinterSdk::NetworkSettings;

struct AddressRow {
  const wchar_t* option;
  const wchar_t* name;
  AppPrinterSdk::Ipv4Address NetworkSettings::*address;
};

constexpr std::array<AddressRow, 4> kAddresses{{
    {L"--address", L"address", &NetworkSettings::address},
    {L"--subnet-mask", L"subnet mask", &NetworkSettings::subnetMask},
    {L"--gateway", L"gateway", &NetworkSettings::gateway},
    {L"--dns-server", L"DNS server", &NetworkSettings::dnsServer},
}};
constexpr const wchar_t* kDhcp = L"--dhcp";

Report networkReport(const NetWork& record, const qzstd::PrinterInfo& /*printer*/) {
  if (record.result != 0) return failure(record.result);
  Report report{.results = {yesOrNo(L"DHCP", record.settings.dhcp)}};
  for (const auto& row : kAddresses) report.results.push_back(text(row.name, toText(record.settings.*row.address)));
  return report;
}

/// Those that are named change.
void apply(const Request& request, NetworkSettings& settings) {
  if (const auto value = request.option(kDhcp)) settings.dhcp = parseYesOrNo(kDhcp, *value);
  for (const auto& row : kAddresses) {
    if (const auto value = request.option(row.option)) settings.*row.address = parseAddress(row.option, *value);
  }
}

/// Reads the settings that are to be changed, after the state by which the module decides whether it may send them.
class SettingsReader : public RecordOperation<NetWork> {
 public:
  explicit SettingsReader(std::shared_ptr<NetworkSettings> target)
      : RecordOperation(Type::GetNetwork, {}, networkReport), m_target(std::move(target)) {}

  Preliminary preliminary() override { return {newStateOperation()}; }

 protected:
  bool onNotice() override {
    *m_target = record().settings;
    return true;
  }

 private:
  const std::shared_ptr<NetworkSettings> m_target;
};

/// The module sends all settings at once: what is not named is what the printer has.
class NetworkSetOperation : public ChangeOperation<NetWork> {
 public:
  explicit NetworkSetOperation(Request request)
      : ChangeOperation(Type::SetNetwork, {}, networkReport), m_request(std::move(request)) {}

  Preliminary preliminary() override { return {std::make_unique<SettingsReader>(m_settings), true}; }

  std::any resource(std::shared_ptr<Operation> self) override {
    record().settings = *m_settings;
    apply(m_request, record().settings);
    return ChangeOperation::resource(std::move(self));
  }

 private:
  const Request m_request;
  const std::shared_ptr<NetworkSettings> m_settings = std::make_shared<NetworkSettings>();
};

}  // namespace

std::unique_ptr<Operation> newNetworkGet(const Request& /*request*/) {
  return std::make_unique<RecordOperation<NetWork>>(Type::GetNetwork, NetWork{}, networkReport);
}

std::unique_ptr<Operation> newNetworkSet(const Request& request) {
  if (request.options.empty()) throw OptionsError("network set needs at least one setting; --help shows which there are");
  NetworkSettings checked;
  apply(request, checked);
  return std::make_unique<NetworkSetOperation>(request);
}

}  // namespace examples
