#include "Controls.h"
#include "common/Operations.h"
#include "panel/Ids.h"
#include "panel/Page.h"
#include "panel/Sight.h"
#include "panel/Views.h"

namespace panel {
namespace {

class StatePage : public Page {
 public:
  using Page::Page;

  void printerChanged() override { m_fields->show({}); }
  void seen(const Sight* sight) override {
    if (sight != nullptr) m_fields->show(sight->fields);
  }

 protected:
  void build() override {
    m_fields = &put<FieldList>(ID_FIELDS, {0, 0, 620, 262});
    putButton<AppWnd::BtnNew>(ID_STATE_READ, {0, 280, 140, 34}, L"Read now", [this] { host().readSoon(); });
    putButton<AppWnd::BtnBorder>(ID_STATE_ALARM, {152, 280, 200, 34}, L"Read supplies alarm",
                                 [this] { run(L"Supplies alarm", [] { return examples::newAlarm({}); }); });
    putHeading(338, L"Scanning from the printer's panel");
    putButton<AppWnd::BtnBorder>(ID_STATE_REGISTER, {0, 370, 200, 34}, L"Register this computer",
                                 [this] { run(L"Push-scan registration", [] { return examples::newPushscanRegister({}); }); });
    putButton<AppWnd::BtnBorder>(ID_STATE_PUSHSCAN, {212, 370, 200, 34}, L"Read scan settings",
                                 [this] { run(L"Scan settings", [] { return examples::newPushscanGet({}); }); });
  }

 private:
  FieldList* m_fields = nullptr;
};

}  // namespace

std::unique_ptr<Page> newStatePage(Host& host, const qzstd::Rect& rect) { return std::make_unique<StatePage>(host, rect); }

}  // namespace panel
