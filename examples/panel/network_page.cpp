#include <algorithm>
#include <array>

#include "Controls.h"
#include "common/Operations.h"
#include "common/Values.h"
#include "panel/Ids.h"
#include "panel/Page.h"

namespace panel {
namespace {

struct Row {
  const wchar_t* label;
  const wchar_t* option;  // as the operation takes it
  const wchar_t* result;  // as a report names it
};

constexpr std::array<Row, 4> kRows{{
    {L"Address", L"--address", L"address"},
    {L"Subnet mask", L"--subnet-mask", L"subnet mask"},
    {L"Gateway", L"--gateway", L"gateway"},
    {L"DNS server", L"--dns-server", L"DNS server"},
}};

class NetworkPage : public Page {
 public:
  using Page::Page;

  void printerChanged() override {
    m_dhcp->SetClick(false);
    for (auto* address : m_addresses) address->SetWstr(L"");
  }

 protected:
  void build() override {
    m_dhcp = &putButton<AppWnd::BtnCheck>(ID_DHCP, {0, 0, 400, 34}, L"Addresses come from the network (DHCP)", [] {});
    int top = 48;
    for (std::size_t i = 0; i < kRows.size(); ++i, top += 48) {
      putLabel({0, top, 150, 34}, kRows[i].label);
      m_addresses[i] = &putEdit<AppWnd::EditCIP>(ID_ADDRESS_FIRST + static_cast<int>(i), {160, top, 200, 34});
    }
    putButton<AppWnd::BtnNew>(ID_NETWORK_READ, {0, top + 16, 140, 34}, L"Read", [this] {
      run(
          L"Read network settings", [] { return examples::newNetworkGet({}); },
          [this](const examples::Report& report) { show(report); });
    });
    putButton<AppWnd::BtnBorder>(ID_NETWORK_SET, {152, top + 16, 140, 34}, L"Send", [this] { send(); });
  }

 private:
  void send() {
    examples::Request request;
    request.options[L"--dhcp"] = m_dhcp->GetClick() ? L"yes" : L"no";
    run(L"Send network settings", [&] {
      for (std::size_t i = 0; i < kRows.size(); ++i) {
        const auto address = m_addresses[i]->GetWstr();
        examples::parseAddress(kRows[i].label, address);  // a mistake is told by the name that the page shows
        request.options[kRows[i].option] = address;
      }
      return examples::newNetworkSet(request);
    });
  }

  void show(const examples::Report& report) {
    for (const auto& field : report.results) {
      if (const auto* dhcp = std::get_if<bool>(&field.value.value)) m_dhcp->SetClick(*dhcp);
      const auto* row = std::ranges::find(kRows, field.name, &Row::result);
      const auto* address = std::get_if<std::wstring>(&field.value.value);
      if (row == kRows.end() || address == nullptr) continue;
      m_addresses[static_cast<std::size_t>(row - kRows.begin())]->SetWstr(*address);
    }
  }

  AppWnd::BtnCheck* m_dhcp = nullptr;
  std::array<AppWnd::EditCIP*, kRows.size()> m_addresses{};
};

}  // namespace

std::unique_ptr<Page> newNetworkPage(Host& host, const qzstd::Rect& rect) { return std::make_unique<NetworkPage>(host, rect); }

}  // namespace panel
