#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "Records.h"
#include "operations/Handlers.h"
#include "operations/LongOperationTest.h"

using AppComm::WIFI;
using AppMgr::WifiNetwork;

inline WifiNetwork network(const std::wstring& name) {
  WifiNetwork made;
  std::copy(name.begin(), name.end(), made.name.begin());
  return made;
}

inline std::vector<std::wstring> namesOf(const std::vector<WifiNetwork>& networks) {
  std::vector<std::wstring> names;
  for (const auto& entry : networks) names.emplace_back(entry.name.data());
  return names;
}

/// A printer with Wi-Fi: both jobs follow the same script.
class WifiPrinter : public PolledPrinter {
 public:
  using PolledPrinter::PolledPrinter;

  struct Progress {
    int result;
    std::int32_t segment;
  };

  bool connected = false;
  int startResult = 0;
  std::int32_t total = 0;
  std::vector<Progress> progress{{0, 0}};  ///< the answers in order
  int listResult = 0;
  std::optional<std::vector<WifiNetwork>> list = std::vector<WifiNetwork>{network(L"home")};  ///< none: the call writes no list
  const std::vector<WifiNetwork>* givenList = nullptr;
  const WifiNetwork* givenNetwork = nullptr;

  bool AppPrinterSdk_IsNetConnected(qzstd::PrinterInfo* /*printer*/, int /*option*/) override { return connected; }

  int AppMgr_GetPrinterWifiStart(qzstd::PrinterInfo* /*printer*/, std::int32_t* segments) override { return start(segments); }
  int AppMgr_GetPrinterWifiProgress(std::int32_t* segment) override { return answer(segment); }
  int AppMgr_GetPrinterWifiResult(std::vector<WifiNetwork>* networks) override {
    givenList = networks;
    if (list) *networks = *list;
    return listResult;
  }
  void AppMgr_GetPrinterWifiExit() override {}

  int AppMgr_PrinterWifiConfigStart(qzstd::PrinterInfo* /*printer*/, WifiNetwork* chosen, std::int32_t* segments) override {
    givenNetwork = chosen;
    return start(segments);
  }
  int AppMgr_PrinterWifiConfigProgress(std::int32_t* segment) override { return answer(segment); }
  void AppMgr_PrinterWifiConfigExit() override {}

 private:
  int start(std::int32_t* segments) const {
    *segments = total;
    return startResult;
  }
  int answer(std::int32_t* segment) {
    const auto given = next(progress);
    *segment = given.segment;
    return given.result;
  }
};

/// What the two operations call and log.
struct Job {
  const char* name;
  int (*handler)(std::shared_ptr<comm::CNode>);
  Texts before;
  const char* start;
  const char* startLine;
  const char* progress;
  const char* progressLine;
  Texts after;
  const char* exit;
};

inline const Job kGet = {"comm_thread_getWifiList",
                         comm_thread_getWifiList,
                         {"AppPrinterSdk_IsNetConnected(printer-1, 0)"},
                         "AppMgr_GetPrinterWifiStart(printer-1, 0)",
                         "DBG Get printer wifi start, ret: %d, total: %d",
                         "AppMgr_GetPrinterWifiProgress(0)",
                         "DBG Get Wifi progress, ret: %d, segment: %d",
                         {"AppMgr_GetPrinterWifiResult(0 networks)", "DBG Get Wifi List result: 0, wifi size: 1"},
                         "AppMgr_GetPrinterWifiExit()"};
inline const Job kSet = {"comm_thread_setWifiList",
                         comm_thread_setWifiList,
                         {},
                         "AppMgr_PrinterWifiConfigStart(printer-1, null, 0)",
                         "DBG Set wifi by start, ret: %d, total: %d.",
                         "AppMgr_PrinterWifiConfigProgress(0)",
                         "DBG Set wifi progress, ret: %d, segment: %d.",
                         {},
                         "AppMgr_PrinterWifiConfigExit()"};

class WifiTest : public LongOperationTest<WIFI, WifiPrinter> {
 protected:
  explicit WifiTest(const Job& its) : LongOperationTest(its.name, its.handler), job(its) {}

  Texts opening() const {
    return joined(job.before, {job.start, filled(job.startLine, {libraries.startResult, libraries.total})});
  }
  Texts question(const WifiPrinter::Progress& answer) const {
    return {job.progress, filled(job.progressLine, {answer.result, answer.segment})};
  }

  /// A run with these answers, the last of which completes the job.
  WholeRun whole(const std::vector<WifiPrinter::Progress>& answers) const {
    WholeRun made{{opening()}, {job.exit}, {"notice 7"}};
    for (std::size_t index = 0; index + 1 < answers.size(); ++index) {
      made.parts.push_back(joined(question(answers[index]), {"notice 7", "sleep 500000 us"}));
    }
    made.parts.push_back(joined(question(answers.back()), job.after));
    return made;
  }

  static std::string shown(const WIFI& wifi) {
    return std::string(wifi.connected ? "connected " : "") + (wifi.finished ? "finished " : "") +
           (wifi.succeeded ? "succeeded" : "");
  }

  const Job& job;
};
