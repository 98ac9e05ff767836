#include "Controls.h"
#include "common/Operations.h"
#include "panel/Ids.h"
#include "panel/Page.h"
#include "panel/Views.h"

namespace panel {
namespace {

class FirmwarePage : public Page {
 public:
  using Page::Page;

  void printerChanged() override {
    m_bar->show(0);
    m_fields->show({});
  }

 protected:
  void build() override {
    putHeading(0, L"New firmware");
    putButton<AppWnd::BtnNew>(ID_FIRMWARE_CHECK, {0, 32, 170, 34}, L"Look for it", [this] {
      run(
          L"Look for new firmware", [] { return examples::newFirmwareCheck({}); },
          [this](const examples::Report& report) { m_fields->show(report.results); });
    });
    putButton<AppWnd::BtnBorder>(ID_FIRMWARE_REGISTER, {182, 32, 220, 34}, L"Register the printer", [this] {
      run(L"Registration with the upgrade service", [] { return examples::newFirmwareRegister({}); });
    });
    m_fields = &put<FieldList>(ID_FIELDS, {0, 78, 620, 100});

    putHeading(196, L"Transfer");
    m_file = &putEdit<AppWnd::EditBase>(ID_FIRMWARE_FILE, {0, 228, 400, 34}, L"lab-2.0.bin");
    putButton<AppWnd::BtnNew>(ID_FIRMWARE_SEND, {412, 228, 150, 34}, L"Transfer", [this] { send(); });
    m_bar = &put<ProgressBar>(ID_FIRMWARE_BAR, {0, 280, 400, 22});
    putButton<AppWnd::BtnBorder>(ID_FIRMWARE_CANCEL, {412, 274, 150, 34}, L"Cancel", [this] {
      host().cancel({AppComm::Type::FirmUpgrade, AppComm::Type::FirmUpCheck});
    });
    putLabel({0, 316, 560, 44},
             L"A complete transfer is 85 %: the printer then restarts. Following the restart ends when the printer "
             L"has been away and is back.");
    putButton<AppWnd::BtnBorder>(ID_FIRMWARE_WATCH, {0, 370, 200, 34}, L"Follow the restart",
                                 [this] { run(L"Follow the restart", [] { return examples::newFirmwareWatch({}); }); });
  }

 private:
  void send() {
    run(
        L"Transfer firmware",
        [this] {
          const auto file = m_file->GetWstr();
          if (file.empty()) throw examples::OptionsError("name the firmware to transfer");
          return examples::newFirmwareUpgrade({.operands = {file}});
        },
        [this](const examples::Report& report) {
          if (report.percent) m_bar->show(*report.percent);
        });
  }

  AppWnd::EditBase* m_file = nullptr;
  FieldList* m_fields = nullptr;
  ProgressBar* m_bar = nullptr;
};

}  // namespace

std::unique_ptr<Page> newFirmwarePage(Host& host, const qzstd::Rect& rect) {
  return std::make_unique<FirmwarePage>(host, rect);
}

}  // namespace panel
