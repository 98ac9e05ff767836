#include "console/Table.h"

#include <algorithm>
#include <array>

#include "common/Report.h"
#include "common/Text.h"

namespace examples {
namespace {

struct Column {
  const wchar_t* heading;
  std::size_t width;
};

// The supplies, behind these, get the rest of the line.
constexpr std::array<Column, 6> kColumns{{
    {L"PRINTER", 20},
    {L"CONNECTION", 10},
    {L"STATUS", 12},
    {L"JOBS", 5},
    {L"QUERIED", 12},
    {L"LAST NOTICE", 11},
}};
constexpr const wchar_t* kSuppliesHeading = L"SUPPLIES";
constexpr const wchar_t* kUnreadJobs = L"error";  // all that the column has room for
constexpr std::size_t kSuppliesInLine = 60;
constexpr std::size_t kNameInSummary = 60;

std::wstring connectionText(std::int32_t kind) {
  if (kind == 0) return L"USB";
  if (kind == 1) return L"network";
  return L"kind " + std::to_wstring(kind);
}

std::wstring statusText(const Row& row) {
  if (row.reads == row.failures) return L"unknown";
  if (row.last->deviceStatus == 0) return L"ready";
  return L"status " + std::to_wstring(row.last->deviceStatus);
}

std::wstring jobsText(std::int32_t jobs) { return jobs < 0 ? kUnreadJobs : std::to_wstring(jobs); }

std::wstring queriedText(const AppComm::State& state) {
  if (!state.queried) return L"no";
  return state.result == 0 ? L"yes" : L"failed " + std::to_wstring(state.result);
}

std::wstring suppliesText(const Row& row, std::size_t width) {
  if (!row.last || row.last->supplies.empty()) return L"-";
  std::wstring text;
  for (const auto& supply : row.last->supplies) {
    if (text.size() > width) break;  // a printer may report thousands
    if (!text.empty()) text += L' ';
    text += supply.color + L' ' + std::to_wstring(supply.percent) + L'%';
  }
  return shown(text, width);
}

using Cells = std::array<std::wstring, kColumns.size()>;

Cells cells(const Row& row) {
  if (!row.last) return {row.name, connectionText(row.connectionKind), L"-", L"-", L"-", L"none yet"};
  return {row.name,
          connectionText(row.connectionKind),
          statusText(row),
          jobsText(row.last->state.jobs),
          queriedText(row.last->state),
          secondsText(row.sinceLast)};
}

std::wstring joined(const Cells& cells, const std::wstring& supplies, std::size_t width) {
  std::wstring line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    auto text = shown(cells[i], kColumns[i].width);
    text.resize(kColumns[i].width + 2, L' ');
    line += text;
  }
  return cut(line + supplies, width);
}

std::wstring headings(std::size_t width) {
  Cells texts;
  std::ranges::transform(kColumns, texts.begin(), [](const Column& column) { return column.heading; });
  return joined(texts, kSuppliesHeading, width);
}

std::wstring counts(const std::wstring& what, std::uint64_t notices, std::uint64_t reads, std::uint64_t failures) {
  return what + L": notices " + std::to_wstring(notices) + L", state reads " + std::to_wstring(reads) + L", of these failed " +
         std::to_wstring(failures);
}

}  // namespace

std::vector<std::wstring> renderTable(const std::vector<Row>& rows, std::size_t width, std::size_t height) {
  std::vector<std::wstring> lines{headings(width)};
  const bool all = rows.size() < height;
  const auto count = all ? rows.size() : std::max<std::size_t>(height, 2) - 2;
  for (std::size_t i = 0; i < count; ++i) lines.push_back(joined(cells(rows[i]), suppliesText(rows[i], width), width));
  if (!all) lines.push_back(cut(L"and " + std::to_wstring(rows.size() - count) + L" more, for which there is no room", width));
  return lines;
}

std::wstring renderLine(const Row& row, std::chrono::milliseconds sinceStart) {
  auto values = cells(row);
  if (row.last && row.last->state.jobs < 0) values[3] = kUnreadCount;
  return secondsText(sinceStart) + L"  " + printable(row.uid) + L"  " + values[1] + L", " + values[2] + L", jobs " + values[3] +
         L", queried " + values[4] + L", last notice " + values[5] + L", supplies " + suppliesText(row, kSuppliesInLine);
}

std::vector<std::wstring> renderSummary(const std::vector<Row>& rows) {
  std::vector<std::wstring> lines;
  Row all;
  for (const auto& row : rows) {
    lines.push_back(counts(shown(row.name, kNameInSummary), row.notices, row.reads, row.failures));
    all.notices += row.notices;
    all.reads += row.reads;
    all.failures += row.failures;
  }
  lines.push_back(counts(L"All together", all.notices, all.reads, all.failures));
  return lines;
}

}  // namespace examples
