#include "Controls.h"
#include "common/Operations.h"
#include "panel/Ids.h"
#include "panel/Page.h"

namespace panel {
namespace {

class WifiPage : public Page {
 public:
  using Page::Page;

  void printerChanged() override {
    m_names->Clear();
    m_found.clear();
    m_password->Clear();
  }

 protected:
  void build() override {
    putHeading(0, L"Networks that the printer sees");
    m_names = &put<AppWnd::ComBox>(ID_WIFI_NAMES, {0, 34, 400, 34}, ID_WIFI_NAMES);
    putButton<AppWnd::BtnNew>(ID_WIFI_FIND, {412, 34, 150, 34}, L"Find networks", [this] { find(); });
    putLabel({0, 84, 150, 34}, L"Password");
    m_password = &putEdit<AppWnd::EditCPwd>(ID_WIFI_PASSWORD, {160, 84, 240, 34});
    putButton<AppWnd::BtnBorder>(ID_WIFI_JOIN, {412, 84, 150, 34}, L"Join", [this] { join(); });
    putButton<AppWnd::BtnBorder>(ID_WIFI_CANCEL, {412, 134, 150, 34}, L"Cancel", [this] {
      host().cancel({AppComm::Type::GetWifiList, AppComm::Type::SetWifiList});
    });
  }

 private:
  struct Found {
    std::wstring name;
    std::wstring security;
  };

  void find() {
    run(
        L"Find networks", [] { return examples::newWifiList({}); }, [this](const examples::Report& report) { show(report); });
  }

  void join() {
    run(L"Join network", [this] {
      const auto index = m_names->GetCurSel();
      if (index < 0) throw examples::OptionsError("choose a network first; Find networks fills the list");
      const auto& network = m_found[static_cast<std::size_t>(index)];
      examples::Request request{.operands = {network.name}, .options = {{L"--security", network.security}}};
      if (network.security.starts_with(L"kind ")) {
        throw examples::OptionsError("this network's security is of a kind that the panel does not know");
      }
      if (network.security != L"open") {
        request.options[L"--password"] = m_password->GetWstr();
        if (request.options[L"--password"].empty()) throw examples::OptionsError("enter the network's password first");
      }
      m_password->Clear();
      return examples::newWifiJoin(request);
    });
  }

  void show(const examples::Report& report) {
    if (report.outcome != examples::Outcome::Succeeded || report.results.empty()) return;
    const auto* networks = std::get_if<examples::Values>(&report.results.front().value.value);
    if (networks == nullptr) return;
    m_names->Clear();
    m_found.clear();
    for (const auto& network : *networks) append(std::get<examples::Fields>(network.value));
    m_names->SetCurSel(0);
  }

  void append(const examples::Fields& network) {
    m_found.push_back({std::get<std::wstring>(network[0].value.value), std::get<std::wstring>(network[1].value.value)});
    const auto signal = std::to_wstring(std::get<std::int64_t>(network[2].value.value));
    m_names->Append({m_found.back().name + L"   " + m_found.back().security + L", signal " + signal + L" %"});
  }

  AppWnd::ComBox* m_names = nullptr;
  AppWnd::EditCPwd* m_password = nullptr;
  std::vector<Found> m_found;  // as the box lists them
};

}  // namespace

std::unique_ptr<Page> newWifiPage(Host& host, const qzstd::Rect& rect) { return std::make_unique<WifiPage>(host, rect); }

}  // namespace panel
