#include <algorithm>
#include <array>

#include "Controls.h"
#include "common/Operations.h"
#include "panel/Ids.h"
#include "panel/Page.h"

namespace panel {
namespace {

/// A device parameter with a value of its own.
struct Row {
  const wchar_t* label;
  const wchar_t* word;    // as the operation takes it
  const wchar_t* result;  // as a report names it
  int edit;
  int button;
};

constexpr std::array<Row, 4> kRows{{
    {L"Sleep time", L"sleep-time", L"sleep time", ID_SLEEP_TIME, ID_SLEEP_TIME_SET},
    {L"Paper alarm", L"paper-alarm", L"paper alarm", ID_PAPER_ALARM, ID_PAPER_ALARM_SET},
    {L"Timed clear", L"timed-clear", L"timed clear", ID_TIMED_CLEAR, ID_TIMED_CLEAR_SET},
    {L"Silent mode", L"silent-mode", L"silent mode", ID_SILENT_MODE, ID_SILENT_MODE_SET},
}};
constexpr const wchar_t* kSuppliesAlarm = L"supplies alarm";

class SettingsPage : public Page {
 public:
  using Page::Page;

  void printerChanged() override {
    for (auto* edit : m_edits) edit->SetWstr(L"");
    ::SetWindowTextW(m_alarm->GetWnd(), L"");
  }

 protected:
  void build() override {
    int top = 0;
    for (std::size_t i = 0; i < kRows.size(); ++i, top += 48) {
      const auto& row = kRows[i];
      putLabel({0, top, 150, 34}, row.label);
      m_edits[i] = &putEdit<AppWnd::EditAlarm>(row.edit, {160, top, 120, 34});
      putButton<AppWnd::BtnBorder>(row.button, {292, top, 90, 34}, L"Set", [this, i] { set(i); });
    }
    putLabel({0, top, 150, 34}, L"Supplies alarm");
    m_alarm = &put<Value>(ID_SUPPLIES_ALARM, {160, top, 120, 34});
    putButton<AppWnd::BtnBorder>(ID_SUPPLIES_ALARM_OFF, {292, top, 90, 34}, L"Set to 0", [this] {
      run(L"Set supplies alarm", [] { return examples::newSet({.operands = {L"supplies-alarm"}}); });
    });
    putButton<AppWnd::BtnNew>(ID_SETTINGS_READ, {0, top + 64, 140, 34}, L"Read all", [this] {
      run(
          L"Read settings", [] { return examples::newGet({}); }, [this](const examples::Report& report) { show(report); });
    });
  }

 private:
  /// A label for a value that comes later.
  class Value : public AppWnd::Label {
   public:
    explicit Value(const qzstd::Rect& rect) : Label(rect, nullptr) {}
  };

  void set(std::size_t index) {
    const auto& row = kRows[index];
    const auto value = m_edits[index]->GetWstr();
    run(std::wstring(L"Set ") + row.result, [&] {
      if (value.empty()) throw examples::OptionsError("enter a number first; Read all fetches what the printer has");
      return examples::newSet({.operands = {row.word, value}});
    });
  }

  void show(const examples::Report& report) {
    for (const auto& field : report.results) {
      const auto* value = std::get_if<std::int64_t>(&field.value.value);
      if (value == nullptr) continue;
      const auto text = std::to_wstring(*value);
      const auto* row = std::ranges::find(kRows, field.name, &Row::result);
      if (row != kRows.end()) m_edits[static_cast<std::size_t>(row - kRows.begin())]->SetWstr(text);
      if (field.name == kSuppliesAlarm) ::SetWindowTextW(m_alarm->GetWnd(), text.c_str());
    }
  }

  std::array<AppWnd::EditAlarm*, kRows.size()> m_edits{};
  AppWnd::Label* m_alarm = nullptr;
};

}  // namespace

std::unique_ptr<Page> newSettingsPage(Host& host, const qzstd::Rect& rect) {
  return std::make_unique<SettingsPage>(host, rect);
}

}  // namespace panel
