#include "common/Report.h"

#include <array>
#include <utility>

#include "common/Json.h"
#include "common/Text.h"

namespace examples {
namespace {

struct OutcomeRow {
  Outcome outcome;
  const wchar_t* words;  // for a person
  const wchar_t* name;   // for a program
  int exitCode;
};

constexpr std::array<OutcomeRow, 5> kOutcomes{{
    {Outcome::Succeeded, L"done", L"succeeded", 0},
    {Outcome::Failed, L"failed", L"failed", 1},
    {Outcome::Refused, L"refused", L"refused", 1},
    {Outcome::TimedOut, L"timed out", L"timedOut", 1},
    {Outcome::Interrupted, L"interrupted", L"interrupted", 130},
}};

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kOutcomes.size(); ++i) {
    if (static_cast<std::size_t>(kOutcomes[i].outcome) != i) return false;
  }
  return true;
}
static_assert(isInOrder(), "one row per outcome, in the order of the values");

const OutcomeRow& rowOf(Outcome outcome) { return kOutcomes[static_cast<std::size_t>(outcome)]; }

template <class... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

// A value within a line, however deep. Stops when the line is full: a printer may report thousands.
void appendInline(std::wstring& line, const Value& value) {
  std::visit(Overloaded{
                 [&](bool yes) { line += yes ? L"yes" : L"no"; },
                 [&](std::int64_t integer) { line += std::to_wstring(integer); },
                 [&](const std::wstring& string) { line += string; },
                 [&](const Values& values) {
                   for (std::size_t i = 0; i < values.size() && line.size() <= kMostTextInLine; ++i) {
                     if (i > 0) line += L", ";
                     appendInline(line, values[i]);
                   }
                 },
                 [&](const Fields& fields) {
                   for (std::size_t i = 0; i < fields.size() && line.size() <= kMostTextInLine; ++i) {
                     line += (i > 0 ? L", " : L"") + fields[i].name + L' ';
                     appendInline(line, fields[i].value);
                   }
                 },
             },
             value.value);
}

std::wstring lineOf(std::wstring start, const Value& value) {
  const auto before = start.size();
  appendInline(start, value);
  if (start.size() == before) start += L'-';
  return shown(start, kMostTextInLine);
}

// A list of records takes a line for each.
void appendLines(std::vector<std::wstring>& lines, const Field& field) {
  if (!field.words.empty()) {
    lines.push_back(shown(field.name + L": " + field.words, kMostTextInLine));
    return;
  }
  const auto* values = std::get_if<Values>(&field.value.value);
  if (values == nullptr || values->empty() || !std::holds_alternative<Fields>(values->front().value)) {
    lines.push_back(lineOf(field.name + L": ", field.value));
    return;
  }
  lines.push_back(field.name + L':');
  for (const auto& value : *values) lines.push_back(lineOf(L"  ", value));
}

}  // namespace

Value integer(std::int64_t value) { return {value}; }
Field text(std::wstring name, std::wstring value) { return {std::move(name), {std::move(value)}}; }
Field number(std::wstring name, std::int64_t value) { return {std::move(name), {value}}; }
Field yesOrNo(std::wstring name, bool value) { return {std::move(name), {value}}; }

Field count(std::wstring name, std::int32_t value) {
  auto field = number(std::move(name), value);
  if (value < 0) field.words = kUnreadCount;
  return field;
}

int exitCode(Outcome outcome) { return rowOf(outcome).exitCode; }

std::vector<std::wstring> renderText(const std::wstring& command, const std::wstring& printer, const Report& report) {
  std::vector<std::wstring> lines;
  for (const auto& field : report.results) appendLines(lines, field);
  auto last = command + L", " + printer + L": " + rowOf(report.outcome).words;
  if (!report.reason.empty()) last += L": " + report.reason;
  lines.push_back(printable(last));
  return lines;
}

std::wstring renderJson(const std::wstring& command, const std::wstring& printer, const Report& report) {
  Fields object{text(L"command", command), text(L"printer", printer), text(L"outcome", rowOf(report.outcome).name)};
  if (!report.reason.empty()) object.push_back(text(L"reason", report.reason));
  object.push_back({L"results", {report.results}});
  return toJson({std::move(object)});
}

}  // namespace examples
