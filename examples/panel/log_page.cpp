#include <algorithm>

#include "Controls.h"
#include "common/DiagnosticLog.h"
#include "panel/Ids.h"
#include "panel/Page.h"
#include "panel/Views.h"

namespace panel {
namespace {

constexpr std::size_t kSaid = 8;
constexpr std::size_t kLogLines = 9;

/// What the panel said, and the end of the module's own diagnostic log.
class LogPage : public Page {
 public:
  using Page::Page;

  void entered() override { refresh(); }

 protected:
  void build() override {
    putHeading(0, L"What happened here");
    m_said = &put<LineList>(ID_LOG_LINES, {0, 28, 620, 170});
    putHeading(208, L"The module's diagnostic log");
    m_log = &put<LineList>(ID_FIELDS, {0, 236, 620, 190});
    putButton<AppWnd::BtnBorder>(ID_LOG_REFRESH, {0, 438, 140, 34}, L"Refresh", [this] { refresh(); });
  }

 private:
  void refresh() {
    const auto& history = host().history();
    const auto count = std::min(history.size(), kSaid);
    m_said->show({history.end() - static_cast<std::ptrdiff_t>(count), history.end()});
    auto lines = examples::lastLogLines(kLogLines);
    if (lines.empty()) {
      lines = {std::wstring(L"There is no ") + examples::kLogFile + L".",
               L"C:\\log\\orva_config.ini switches it on, section [Corvane]: Error=1 and Debug=1."};
    }
    m_log->show(lines);
  }

  LineList* m_said = nullptr;
  LineList* m_log = nullptr;
};

}  // namespace

std::unique_ptr<Page> newLogPage(Host& host, const qzstd::Rect& rect) { return std::make_unique<LogPage>(host, rect); }

}  // namespace panel
