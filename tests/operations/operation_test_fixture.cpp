#include <utility>

#include "operations/OperationTest.h"
#include "operations/Sleeps.h"

namespace {

std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }  // all texts are ASCII

}  // namespace

Journal::Journal(const support::LogLines& lines, std::string function)
    : m_lines(lines), m_function(std::move(function)), m_taken(lines.all().size()) {}

void Journal::add(std::string entry) {
  takeLines();
  m_entries.push_back(std::move(entry));
}

Texts Journal::entries() {
  takeLines();
  return m_entries;
}

void Journal::takeLines() {
  const auto lines = m_lines.all();
  for (; m_taken < lines.size(); ++m_taken) {
    const auto& line = lines[m_taken];
    EXPECT_GT(line.number, 0) << testing::PrintToString(line);
    const auto from = line.function == m_function ? std::string() : line.function + ": ";
    m_entries.push_back(line.tag + ' ' + from + narrow(line.message));
  }
}

NoticeWindow::NoticeWindow(Action action) : m_action(std::move(action)) {}

bool NoticeWindow::Notice(long code) const { return m_action ? m_action(code) : true; }

void ScriptedPrinter::record(const std::string& call) {
  MakerLibraries::record(call);
  m_journal.add(call);
}

int ScriptedPrinter::AppMgr_GetPrintingJob(const wchar_t* /*managerId*/) {
  if (whileAskingJobs) whileAskingJobs();
  return jobs;
}

int ScriptedPrinter::AppMgr_CheckIpChange(qzstd::PrinterInfo* /*printer*/, bool* changed) {
  if (addressChanged) *changed = *addressChanged;
  return 0;
}

int ScriptedPrinter::AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) {
  if (whileReading) whileReading(*printer);
  return stateResult;
}

bool ScriptedPrinter::AppPrinterSdk_IsSuppportPushScan(qzstd::PrinterInfo* /*printer*/) { return pushScan; }

OperationFixture::OperationFixture(std::string function) : journal(logging.lines(), std::move(function)) {
  sleeps::listen([this](std::chrono::microseconds duration) {
    journal.add("sleep " + std::to_string(duration.count()) + " us");
    if (whileSleeping) whileSleeping();
  });
  logging.windows().listenToWrites([this] {
    if (whileLogging) whileLogging();
  });
}

OperationFixture::~OperationFixture() {
  sleeps::listen(nullptr);
  logging.windows().listenToWrites(nullptr);
}

std::shared_ptr<qzstd::PrinterInfo> OperationFixture::newPrinter(const std::wstring& uid) {
  auto made = std::make_shared<qzstd::PrinterInfo>();
  made->name = uid;
  made->uid = uid;
  made->managerId = L"manager-id";
  return made;
}

std::shared_ptr<NoticeWindow> OperationFixture::window(bool wanted) {
  return std::make_shared<NoticeWindow>([this, wanted](long code) {
    journal.add("notice " + std::to_string(code));
    return wanted;
  });
}

std::shared_ptr<AppComm::Node> OperationFixture::task(long code, std::any resource, bool wanted) {
  return taskFor(printer, code, std::move(resource), wanted);
}

std::shared_ptr<AppComm::Node> OperationFixture::taskFor(std::shared_ptr<qzstd::PrinterInfo> of, long code, std::any resource,
                                                         bool wanted) {
  auto made = AppComm::Node::Instance(std::move(of), window(wanted), code, type);
  made->setResource(std::move(resource));
  return made;
}

std::shared_ptr<comm::CNode> entryOf(const std::vector<std::shared_ptr<AppComm::Node>>& tasks) {
  auto entry = std::make_shared<comm::CNode>(tasks.at(0));
  for (std::size_t index = 1; index < tasks.size(); ++index) entry->addObserver(tasks[index]);
  return entry;
}
