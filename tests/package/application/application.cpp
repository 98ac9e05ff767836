/// An application that has the package and nothing else of the project: a bit of each part of the border, over the border.
/// Exit code 0, or the number of the step that failed.

#include <tinyxml2.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <memory>
#include <mutex>

#include "AppCommunication.h"
#include "common/AddedTasks.h"
#include "simulator/SimulatedPrinters.h"

namespace {

constexpr auto kPatience = std::chrono::seconds(30);
constexpr long kRead = 7;
constexpr qzstd::Rect kNowhere;

class Answer {
 public:
  void give(long code) {
    const std::lock_guard lock(m_mutex);
    m_code = code;
    m_changed.notify_all();
  }

  bool waitFor(long code) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, kPatience, [&] { return m_code == code; });
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  long m_code = 0;
};

/// Never shown: what it is told goes on to a waiting thread.
class Listener : public AppWnd::CWnd {
 public:
  Listener(std::shared_ptr<Answer> answer, std::shared_ptr<AppComm::State> record)
      : CWnd(kNowhere), m_answer(std::move(answer)), m_record(std::move(record)) {}

  bool Create(HWND /*parent*/) override { return false; }
  __int64 RunProc(unsigned /*msg*/, unsigned __int64 /*wParam*/, __int64 /*lParam*/) override { return 0; }
  bool Notice(long code) const override {
    m_answer->give(m_record->queried ? code : -1);
    return true;
  }

 private:
  const std::shared_ptr<Answer> m_answer;
  const std::shared_ptr<AppComm::State> m_record;
};

bool readsAPrinter() {
  auto printer = std::make_shared<qzstd::PrinterInfo>(simulator::newPrinterInfo(L"usb-lab"));
  const auto answer = std::make_shared<Answer>();
  const auto record = std::make_shared<AppComm::State>();
  auto task = AppComm::Node::Instance(printer, std::make_shared<Listener>(answer, record), kRead, AppComm::Type::State);
  task->setResource(record);
  examples::AddedTasks tasks;
  tasks.add(std::move(task));
  const bool isRead = answer->waitFor(kRead) && !printer->model.empty();
  tasks.end();
  return isRead;
}

bool readsXml() {
  tinyxml2::XMLDocument document;
  if (document.Parse("<printers><printer jobs='3'/></printers>") != tinyxml2::XML_SUCCESS) return false;
  const auto* printer = document.RootElement()->FirstChildElement("printer");
  return printer != nullptr && printer->IntAttribute("jobs") == 3;
}

bool makesControls() {
  const qzstd::Text text{L"Ready"};
  AppWnd::BtnCheck check(1, kNowhere, &text);
  check.SetClick(true);
  const AppWnd::LabelPath path(kNowhere, &text);
  return check.GetClick() && path.GetPath() == L"Ready" && !check.IsWindow();
}

bool frames() {
  NPA::CCmd command;
  command.SetSize(16);
  const NPA::CParse frame;
  return command.GetCmd() == nullptr && command.GetLen() == 0 && frame.GetBuf() == nullptr && frame.GetSize() == 0;
}

bool has(bool (*step)(), const char* name) {
  const bool isRight = step();
  std::printf("%s: %s\n", name, isRight ? "as meant" : "failed");
  return isRight;
}

}  // namespace

int main() {
  if (!has(readsAPrinter, "a printer's state")) return 1;
  if (!has(readsXml, "a document")) return 2;
  if (!has(makesControls, "controls")) return 3;
  if (!has(frames, "a command and a frame")) return 4;
  return 0;
}
