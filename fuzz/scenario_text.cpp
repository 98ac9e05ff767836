#include "fuzz/ScenarioText.h"

#include <concepts>
#include <limits>
#include <string_view>

namespace fuzz {
namespace {

using simulator::milliseconds;

std::string digits(std::integral auto number) { return std::to_string(number); }
std::string digits(milliseconds time) { return std::to_string(time.count()); }

/// Letters and digits as they are, all else as a character reference.
std::string escaped(const std::wstring& text) {
  static constexpr std::string_view plain = "0123456789 abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string result;
  for (const wchar_t unit : text) {
    const auto code = static_cast<std::uint32_t>(unit);
    if (code < 0x80 && plain.find(static_cast<char>(code)) != std::string_view::npos) {
      result += static_cast<char>(code);
    } else {
      result += "&#" + std::to_string(code) + ";";
    }
  }
  return result;
}

/// The text of a file while it is written.
class Writer {
 public:
  Writer& open(std::string_view name) {
    m_text.append(m_isOpen ? ">\n<" : "<").append(name);
    m_isOpen = true;
    return *this;
  }
  Writer& close(std::string_view name) {
    m_text.append(m_isOpen ? ">\n</" : "</").append(name).append(">\n");
    m_isOpen = false;
    return *this;
  }
  Writer& attribute(std::string_view name, const std::string& value) {
    m_text.append(" ").append(name).append("='").append(value).append("'");
    return *this;
  }
  Writer& attribute(std::string_view name, const std::wstring& value) { return attribute(name, escaped(value)); }
  Writer& attribute(std::string_view name, bool value) { return attribute(name, std::string(value ? "yes" : "no")); }
  template <typename Number>
  requires(!std::same_as<Number, bool> &&
           (std::integral<Number> || std::same_as<Number, milliseconds>)) Writer& attribute(std::string_view name,
                                                                                            Number value) {
    return attribute(name, digits(value));
  }
  template <typename Value>
  Writer& attribute(std::string_view name, const std::optional<Value>& value) {
    return value ? attribute(name, *value) : *this;
  }

  const std::string& text() const { return m_text; }

 private:
  std::string m_text;
  bool m_isOpen = false;  // the last tag lacks its end
};

template <typename Numbers>
std::string joined(const Numbers& numbers, char separator) {
  std::string text;
  for (const auto number : numbers) text += (text.empty() ? "" : std::string(1, separator)) + std::to_string(number);
  return text;
}

void writeSettings(Writer& out, const simulator::Printer& printer) {
  const auto& parameters = printer.parameters;
  out.open("parameters").attribute("sleep-time", parameters.sleepTime).attribute("supplies-alarm", parameters.suppliesAlarm);
  out.attribute("paper-alarm", parameters.paperAlarm).attribute("silent-mode", parameters.silentMode);
  out.attribute("timed-clear", parameters.timedClear).close("parameters");
  const auto& network = printer.network;
  out.open("network").attribute("dhcp", network.dhcp).attribute("address", joined(network.address, '.'));
  out.attribute("subnet-mask", joined(network.subnetMask, '.')).attribute("gateway", joined(network.gateway, '.'));
  out.attribute("dns-server", joined(network.dnsServer, '.')).attribute("reachable", printer.netConnected).close("network");
  out.open("alignment").attribute("values", joined(printer.alignment.corrections, ' ')).close("alignment");
  const auto& scan = printer.pushScanParameters;
  out.open("push-scan").attribute("resolution", scan.resolution).attribute("color-mode", scan.colorMode);
  out.attribute("file-format", scan.fileFormat).attribute("paper-size", scan.paperSize).close("push-scan");
}

void writeJobs(Writer& out, const simulator::Printer& printer) {
  const auto& firmware = printer.firmware;
  out.open("firmware").attribute("size", firmware.size).attribute("rate", firmware.rate).attribute("fail-at", firmware.failAt);
  out.attribute("restart", firmware.restart).attribute("version", firmware.version).close("firmware");
  const auto& service = printer.upgradeService;
  out.open("upgrade-service").attribute("registers", service.registers).attribute("starts", service.starts);
  out.attribute("check-time", service.checkTime).attribute("result", service.result);
  out.attribute("new-version", service.newVersion).attribute("notes", service.notes).close("upgrade-service");
  const auto& wifi = printer.wifi;
  out.open("wifi").attribute("segments", wifi.segments).attribute("segment-time", wifi.segmentTime);
  out.attribute("join-segments", wifi.joinSegments).attribute("join-time", wifi.joinTime);
  for (const auto& point : wifi.accessPoints) {
    constexpr std::array<const char*, 3> securities{"open", "wpa2", "wpa3"};
    out.open("access-point").attribute("name", point.name).attribute("password", point.password);
    out.attribute("security", std::string(securities.at(static_cast<std::size_t>(point.security))));
    out.attribute("signal", point.signal).attribute("segment", point.segment).close("access-point");
  }
  out.close("wifi");
}

void writeAlert(Writer& out, std::int32_t code, bool active) {
  out.open("alert").attribute("code", code).attribute("active", active).close("alert");
}

void writeTimeline(Writer& out, const simulator::Printer& printer) {
  out.open("timeline");
  auto last = printer.initial;
  for (std::size_t i = 0; i < printer.timeline.size(); ++i) {
    const milliseconds time = printer.timeline[i].at;
    if (i + 1 < printer.timeline.size() && printer.timeline[i + 1].at == time) continue;
    const auto now = readingsAt(printer, time);
    out.open("at").attribute("ms", time);
    out.open("jobs").attribute("count", now.jobs).close("jobs").open("status").attribute("value", now.status).close("status");
    out.open("address").attribute("value", now.address).close("address");
    for (const auto& supply : now.supplies) {
      out.open("supply").attribute("color", supply.color).attribute("percent", supply.percent).close("supply");
    }
    if (now.alerts != last.alerts) {  // all of them, since their order counts
      for (const std::int32_t code : last.alerts) writeAlert(out, code, false);
      for (const std::int32_t code : now.alerts) writeAlert(out, code, true);
    }
    out.close("at");
    last = now;
  }
  out.close("timeline");
}

void writeFault(Writer& out, const simulator::Fault& fault, simulator::Answer answer) {
  constexpr std::array<const char*, 3> names{"fail", "hang", "garbage"};
  const char* name = names.at(static_cast<std::size_t>(fault.kind));
  out.open(name).attribute("ms", fault.length).attribute("from-call", fault.fromCall).attribute("from-ms", fault.from);
  if (fault.kind == simulator::FaultKind::fail && answer != simulator::Answer::flag) out.attribute("code", fault.code);
  if (fault.calls != std::numeric_limits<std::uint32_t>::max()) out.attribute("calls", fault.calls);
  if (fault.until != milliseconds::max()) out.attribute("until-ms", fault.until);
  out.close(name);
}

void writeCalls(Writer& out, const simulator::Printer& printer) {
  for (const auto& row : simulator::functionTable) {
    const auto& behaviour = printer.behaviour.at(indexOf(row.function));
    out.open("call").attribute("function", std::string(row.name)).attribute("latency-min", behaviour.latency.min);
    out.attribute("latency-max", behaviour.latency.max);
    for (const auto& fault : behaviour.faults) writeFault(out, fault, row.answer);
    out.close("call");
  }
}

std::string hexadecimal(const std::array<std::uint8_t, 16>& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text.append(1, "0123456789abcdef"[byte / 16]).append(1, "0123456789ABCDEF"[byte % 16]);
  return text;
}

void writePrinter(Writer& out, const simulator::Printer& printer) {
  const auto& info = printer.description;
  out.open("printer").attribute("uid", info.uid).attribute("manager-id", info.managerId).attribute("name", info.name);
  out.attribute("connection", std::string(info.connectionKind == 0 ? "usb" : "network")).attribute("interval", info.interval);
  out.attribute("ctrl-port", info.hasCtrlPort)
      .attribute("upgrade-key", info.upgradeKey)
      .attribute("push-scan", printer.pushScan);
  out.attribute("supplies-alarm", printer.suppliesAlarm).attribute("page-time", printer.pageTime);
  out.attribute("clean-time", printer.cleanTime).attribute("model", printer.model).attribute("serial", printer.serialNumber);
  out.attribute("firmware", printer.firmwareVersion).attribute("device-id", hexadecimal(printer.deviceId));
  out.attribute("address", printer.initial.address).attribute("jobs", printer.initial.jobs);
  out.attribute("status", printer.initial.status);
  for (const auto& supply : printer.initial.supplies) {
    out.open("supply").attribute("color", supply.color).attribute("percent", supply.percent).close("supply");
  }
  for (const std::int32_t code : printer.initial.alerts) out.open("alert").attribute("code", code).close("alert");
  writeSettings(out, printer);
  writeJobs(out, printer);
  writeTimeline(out, printer);
  writeCalls(out, printer);
  out.close("printer");
}

}  // namespace

std::string scenarioText(const simulator::Scenario& scenario) {
  Writer out;
  out.open("scenario").attribute("seed", scenario.seed);
  for (const auto& printer : scenario.printers) writePrinter(out, printer);
  return out.close("scenario").text();
}

}  // namespace fuzz
