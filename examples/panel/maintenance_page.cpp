#include <array>
#include <cstdint>

#include "Controls.h"
#include "common/Operations.h"
#include "panel/Ids.h"
#include "panel/Page.h"

namespace panel {
namespace {

class MaintenancePage : public Page {
 public:
  using Page::Page;

 protected:
  void build() override {
    putHeading(0, L"Print heads");
    putButton<AppWnd::BtnNew>(ID_CLEAN, {0, 32, 160, 34}, L"Clean the heads",
                              [this] { run(L"Clean the heads", [] { return examples::newClean({}); }); });

    putHeading(90, L"Alignment");
    putLabel({0, 118, 560, 24}, L"Print the page, then enter the correction of each of its six lines.");
    putButton<AppWnd::BtnBorder>(ID_ALIGN_PRINT, {0, 150, 160, 34}, L"Print the page",
                                 [this] { run(L"Alignment page", [] { return examples::newAlignPrint({}); }); });
    for (std::size_t i = 0; i < m_corrections.size(); ++i) {
      const int index = static_cast<int>(i);
      m_corrections[i] = &putEdit<AppWnd::EditBase>(ID_CORRECTION_FIRST + index, {index * 70, 196, 60, 34}, L"0");
    }
    putButton<AppWnd::BtnBorder>(ID_ALIGN_SET, {432, 196, 130, 34}, L"Send", [this] { sendCorrections(); });

    putHeading(256, L"Image");
    m_image = &putEdit<AppWnd::EditBase>(ID_QR_TEXT, {0, 288, 412, 34}, L"code.bmp");
    putButton<AppWnd::BtnBorder>(ID_QR_PRINT, {432, 288, 130, 34}, L"Print", [this] {
      run(L"Print image", [this] {
        const auto image = m_image->GetWstr();
        if (image.empty()) throw examples::OptionsError("name the image to print");
        return examples::newQr({.operands = {image}});
      });
    });
  }

 private:
  void sendCorrections() {
    examples::Request request;
    run(L"Send corrections", [&] {
      for (const auto* correction : m_corrections) {
        request.operands.push_back(correction->GetWstr());
        const auto name = L"Correction " + std::to_wstring(request.operands.size());
        examples::parseNumber(name, request.operands.back(), INT32_MIN, INT32_MAX);  // told by the name that a person knows
      }
      return examples::newAlignValues(request);
    });
  }

  std::array<AppWnd::EditBase*, 6> m_corrections{};
  AppWnd::EditBase* m_image = nullptr;
};

}  // namespace

std::unique_ptr<Page> newMaintenancePage(Host& host, const qzstd::Rect& rect) {
  return std::make_unique<MaintenancePage>(host, rect);
}

}  // namespace panel
