#include "panel/Jobs.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr auto kSlow = 2s;               // what takes longer is said to be under way
constexpr std::size_t kMostResults = 3;  // beside the outcome, in one line

}  // namespace

void Jobs::start(HWND parent, Order order) {
  const auto subject = order.title + L", " + order.printer;
  // A second task of a kind would only watch the first one, and its record would stay empty.
  if (isUnderWay(order.info->uid, order.operation->type())) {
    m_say(Tone::Bad, subject + L": one of its kind is under way already; wait for its end or cancel it");
    return;
  }
  const auto beginning = subject + L" ...";
  m_say(Tone::Plain, beginning);
  auto told = [this, title = order.title, printer = order.printer, told = std::move(order.told)](const examples::Report& report,
                                                                                                 bool isOver) {
    told(report, isOver);
    if (isOver) sayEnd(title, printer, report);
  };
  try {
    auto task = std::make_shared<Task>(parent, std::move(order.operation), order.info, std::move(told));
    m_jobs.push_back({std::move(task), order.title, beginning, Clock::now()});
  } catch (const std::system_error& error) {
    const std::string text = error.what();
    m_say(Tone::Bad, subject + L": the system does not let it begin: " + std::wstring(text.begin(), text.end()));
  }
}

bool Jobs::cancel(const std::wstring& uid, std::initializer_list<AppComm::Type> types) {
  bool any = false;
  for (const auto& job : m_jobs) {
    if (job.task->uid() != uid || job.task->isOver() || std::ranges::find(types, job.task->type()) == types.end()) continue;
    job.task->cancel();
    any = true;
  }
  return any;
}

void Jobs::cancelAll() {
  for (const auto& job : m_jobs) job.task->cancel();
}

std::wstring Jobs::underWay(const std::wstring& uid) const {
  const auto job =
      std::ranges::find_if(m_jobs, [&](const Job& each) { return each.task->uid() == uid && !each.task->isOver(); });
  return job == m_jobs.end() ? std::wstring() : job->title;
}

std::optional<std::wstring> Jobs::howLong(const std::wstring& said, Clock::time_point now) const {
  for (const auto& job : m_jobs) {
    const auto since = std::chrono::duration_cast<std::chrono::seconds>(now - job.start);
    if (job.task->isOver() || since < kSlow || !said.starts_with(job.beginning)) continue;
    return job.beginning + L" for " + std::to_wstring(since.count()) + L" s";
  }
  return std::nullopt;
}

void Jobs::tidy() {
  std::erase_if(m_jobs, [](const Job& job) { return job.task->mayGo(); });
}

bool Jobs::isUnderWay(const std::wstring& uid, AppComm::Type type) const {
  return std::ranges::any_of(
      m_jobs, [&](const Job& job) { return job.task->uid() == uid && job.task->type() == type && !job.task->isOver(); });
}

void Jobs::sayEnd(const std::wstring& title, const std::wstring& printer, const examples::Report& report) const {
  if (report.outcome == examples::Outcome::Interrupted) {
    m_say(Tone::Plain, title + L", " + printer + L": cancelled");
    return;
  }
  auto lines = examples::renderText(title, printer, report);
  auto text = std::move(lines.back());
  lines.pop_back();
  const bool succeeded = report.outcome == examples::Outcome::Succeeded;
  if (succeeded && lines.size() <= kMostResults) {
    for (const auto& line : lines) text += L"; " + line;
  }
  m_say(succeeded ? Tone::Good : Tone::Bad, text);
}

}  // namespace panel
