#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string_view>

#include "fakes/MakerLibraries.h"

namespace fakes {
namespace {

std::atomic<MakerLibraries*> g_installed{nullptr};

MakerLibraries& current() {
  static MakerLibraries unscripted;
  MakerLibraries* libraries = g_installed.load();
  return libraries == nullptr ? unscripted : *libraries;
}

void failUnscripted(const char* name) { ADD_FAILURE() << "unscripted call: " << name; }

std::string narrow(std::wstring_view text) {
  std::string result;
  for (const wchar_t unit : text) result += unit < 128 ? static_cast<char>(unit) : '?';
  return result;
}

// How an argument shows in a recorded call: one overload per type.
std::string shown(const wchar_t* text) { return text == nullptr ? "null" : '"' + narrow(text) + '"'; }
std::string shown(const qzstd::PrinterInfo* printer) { return printer == nullptr ? "null" : narrow(printer->uid); }
std::string shown(const bool* flag) { return flag == nullptr ? "null" : *flag ? "true" : "false"; }
std::string shown(int number) { return std::to_string(number); }
std::string shown(const std::int32_t* number) { return number == nullptr ? "null" : std::to_string(*number); }
std::string shown(const std::uint8_t* number) { return number == nullptr ? "null" : std::to_string(*number); }
std::string shown(const std::wstring* text) { return text == nullptr ? "null" : shown(text->c_str()); }
std::string shown(const AppComm::QRCode* record) { return record == nullptr ? "null" : shown(&record->image); }
std::string shown(const AppMgr::WifiNetwork* network) { return network == nullptr ? "null" : shown(network->name.data()); }
std::string shown(const std::vector<AppMgr::WifiNetwork>* networks) {
  return networks == nullptr ? "null" : std::to_string(networks->size()) + " networks";
}

template <std::size_t size, class Number>
std::string shownList(const std::array<Number, size>& numbers) {
  std::string list;
  for (const auto number : numbers) list += (list.empty() ? "" : " ") + std::to_string(number);
  return '[' + list + ']';
}

std::string shown(const AppComm::SetAdjust* record) {
  return record == nullptr ? "null" : shownList(record->values.corrections);
}
std::string shown(const AppPrinterSdk::NetworkSettings* settings) {
  return settings == nullptr ? "null" : shownList(settings->address);
}
std::string shown(const AppPrinterSdk::PushScanPara* parameters) {
  return parameters == nullptr ? "null" : std::to_string(parameters->resolution);
}

// Called with the arguments of the call that `name` names.
struct Recorder {
  MakerLibraries& libraries;
  const char* name;

  template <class... Arguments>
  void operator()(const Arguments&... arguments) const {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + shown(arguments)), ...);
    libraries.record(std::string(name) + '(' + list + ')');
  }
};

}  // namespace

MakerLibraries::~MakerLibraries() = default;

std::vector<std::string> MakerLibraries::calls() const {
  const std::lock_guard lock(m_mutex);
  return m_calls;
}

void MakerLibraries::record(const std::string& call) {
  const std::lock_guard lock(m_mutex);
  m_calls.push_back(call);
}

InstalledMaker::InstalledMaker(MakerLibraries& libraries) : m_previous(g_installed.exchange(&libraries)) {}
InstalledMaker::~InstalledMaker() { g_installed.exchange(m_previous); }

// The parameters are for overriders.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  result MakerLibraries::name parameters {                             \
    failUnscripted(#name);                                             \
    return failure;                                                    \
  }
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
#pragma GCC diagnostic pop

}  // namespace fakes

#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  result name parameters {                                             \
    auto& libraries = fakes::current();                                \
    fakes::Recorder{libraries, #name} arguments;                       \
    return libraries.name arguments;                                   \
  }
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL
