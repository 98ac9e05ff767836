#include <algorithm>
#include <array>

#include "Records.h"
#include "common/Operations.h"
#include "common/Text.h"

namespace examples {
namespace {

using AppComm::Type;
using AppComm::WIFI;
using AppMgr::WifiNetwork;

constexpr std::array<const wchar_t*, 3> kSecurities{L"open", L"wpa2", L"wpa3"};

std::wstring securityText(std::int32_t security) {
  if (security < 0 || security >= std::ssize(kSecurities)) return L"kind " + std::to_wstring(security);
  return kSecurities[static_cast<std::size_t>(security)];
}

std::int32_t parseSecurity(const std::wstring& word) {
  const auto* found = std::ranges::find(kSecurities, word);
  if (found == kSecurities.end()) throwMistake(L"--security", word, "open, wpa2 or wpa3");
  return static_cast<std::int32_t>(found - kSecurities.begin());
}

// Every member but the password.
Fields networkFields(const WifiNetwork& network) {
  return {text(L"name", textOf(network.name)), text(L"security", securityText(network.security)),
          number(L"signal", network.signal)};
}

Report listReport(const WIFI& record, const qzstd::PrinterInfo& /*printer*/) {
  if (record.connected) {
    return {.outcome = Outcome::Refused, .reason = L"the printer is in a network already and was not asked for a list"};
  }
  if (!record.succeeded) {
    return failure(record.networks.empty() ? L"the printer found no network, or its list could not be read"
                                           : L"the printer's list could not be read");
  }
  Values networks;
  for (const auto& network : record.networks) networks.push_back({networkFields(network)});
  return {.results = {{L"networks", {std::move(networks)}}}};
}

Report joinReport(const WIFI& record, const qzstd::PrinterInfo& /*printer*/) {
  if (record.succeeded) return {.results = {text(L"network", textOf(record.networks.at(0).name))}};
  return failure(L"the printer did not join; are name and password right?");
}

template <std::size_t size>
void put(std::array<wchar_t, size>& target, const std::wstring& what, const std::wstring& value) {
  if (value.size() >= size) {
    throw OptionsError(plain(what) + " is too long; it takes at most " + std::to_string(size - 1) + " characters");
  }
  std::ranges::copy(value, target.begin());
}

}  // namespace

std::unique_ptr<Operation> newWifiList(const Request& /*request*/) {
  return std::make_unique<RecordOperation<WIFI>>(Type::GetWifiList, WIFI{}, listReport);
}

std::unique_ptr<Operation> newWifiJoin(const Request& request) {
  WifiNetwork network;
  if (request.has(L"--password") && request.has(L"--password-stdin")) {
    throw OptionsError("--password and --password-stdin exclude each other; one of them tells the password");
  }
  const auto password = request.option(L"--password").value_or(L"");
  put(network.name, L"NAME", request.operands[0]);
  put(network.password, L"the password", password);
  network.security = parseSecurity(request.option(L"--security").value_or(password.empty() ? L"open" : L"wpa2"));
  WIFI record;
  record.networks.push_back(network);
  return std::make_unique<RecordOperation<WIFI>>(Type::SetWifiList, std::move(record), joinReport);
}

}  // namespace examples
