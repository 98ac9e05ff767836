#include "simulator/ScenarioReader.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "simulator/CallRules.h"
#include "simulator/Limits.h"
#include "simulator/PrinterParts.h"
#include "simulator/StrictXml.h"

namespace simulator {
namespace {

using Apply = std::function<void(Readings&)>;

// Changes: each checks its element against what the printer shows at that time, then says what it does.

Apply jobsChange(const StrictElement& element, const Readings&) {
  element.allow({"count"});
  return [count = element.int32("count", {}, 0, mostJobs)](Readings& readings) { readings.jobs = count; };
}

Apply statusChange(const StrictElement& element, const Readings&) {
  element.allow({"value"});
  return [value = element.int32("value")](Readings& readings) { readings.status = value; };
}

Apply addressChange(const StrictElement& element, const Readings&) {
  element.allow({"value"});
  element.raw("value");
  return [value = element.text("value")](Readings& readings) { readings.address = value; };
}

Apply supplyChange(const StrictElement& element, const Readings& now) {
  element.allow({"color", "percent"});
  const std::wstring color = element.identifier("color");
  const auto place = std::ranges::find(now.supplies, color, &qzstd::Supply::color) - now.supplies.begin();
  if (place == std::ssize(now.supplies)) element.wrong("color", "the color of a <supply> that the printer has");
  return [index = static_cast<std::size_t>(place), percent = element.int32("percent", {}, 0, 100)](Readings& readings) {
    readings.supplies[index].percent = percent;
  };
}

Apply alertChange(const StrictElement& element, const Readings& now) {
  element.allow({"code", "active"});
  const std::int32_t code = element.int32("code");
  const bool isActive = std::ranges::find(now.alerts, code) != now.alerts.end();
  const bool active = element.yesNo("active");
  if (active == isActive) element.wrong("active", active ? "no, the alert is active already" : "yes, the alert is not active");
  if (active) {
    element.refuseMoreThan(mostAlerts, now.alerts.size());
    return [code](Readings& readings) { readings.alerts.push_back(code); };
  }
  return [code](Readings& readings) { std::erase(readings.alerts, code); };
}

struct ChangeRow {
  std::string_view name;
  Apply (*read)(const StrictElement&, const Readings& now);
};
constexpr std::array changeTable{ChangeRow{"jobs", jobsChange}, ChangeRow{"status", statusChange},
                                 ChangeRow{"address", addressChange}, ChangeRow{"supply", supplyChange},
                                 ChangeRow{"alert", alertChange}};
constexpr auto changeNames = namesOf(changeTable);

void readTimeline(const StrictElement& timeline, Printer& printer) {
  timeline.allow({}, {"at"});
  Readings now = printer.initial;
  milliseconds last{};
  for (const StrictElement& at : timeline.children()) {
    at.allow(std::array<std::string_view, 1>{"ms"}, changeNames);
    const milliseconds time(at.number("ms", 0, latestTime.count()));
    if (time < last) at.wrong("ms", std::to_string(last.count()) + " or later; a timeline never goes back");
    last = time;
    for (const StrictElement& change : at.children()) {
      const auto row = std::ranges::find(changeTable, change.name(), &ChangeRow::name);
      printer.timeline.push_back({time, row->read(change, now)});
      printer.timeline.back().apply(now);
    }
  }
}

void readSupply(const StrictElement& element, Readings& initial) {
  element.allow({"color", "percent"});
  const std::wstring color = element.identifier("color");
  if (std::ranges::find(initial.supplies, color, &qzstd::Supply::color) != initial.supplies.end()) {
    element.wrong("color", "a color that no other <supply> of the printer has");
  }
  element.refuseMoreThan(mostSupplies, initial.supplies.size());
  initial.supplies.push_back({color, element.int32("percent", {}, 0, 100)});
}

void readAlert(const StrictElement& element, Readings& initial) {
  element.allow({"code"});
  const std::int32_t code = element.int32("code");
  if (std::ranges::find(initial.alerts, code) != initial.alerts.end()) {
    element.wrong("code", "a code that no other <alert> of the printer has");
  }
  element.refuseMoreThan(mostAlerts, initial.alerts.size());
  initial.alerts.push_back(code);
}

std::array<std::uint8_t, 16> readDeviceId(const StrictElement& element) {
  std::array<std::uint8_t, 16> id{};
  if (!element.has("device-id")) return id;
  const std::string digits = element.raw("device-id");
  bool good = digits.size() == 2 * id.size();
  for (std::size_t i = 0; good && i < id.size(); ++i) {
    const char* end = digits.data() + 2 * i + 2;
    const auto parsed = std::from_chars(end - 2, end, id[i], 16);
    good = parsed.ec == std::errc() && parsed.ptr == end;
  }
  if (!good) element.wrong("device-id", "32 hexadecimal digits");
  return id;
}

qzstd::PrinterInfo readDescription(const StrictElement& element) {
  static constexpr std::array<std::string_view, 2> connections{"usb", "network"};  // in the order of `connectionKind`
  qzstd::PrinterInfo info;
  info.uid = element.identifier("uid");
  info.managerId = element.identifier("manager-id");
  info.connectionKind = static_cast<std::int32_t>(element.choice("connection", connections));
  info.name = element.text("name", info.uid);
  info.interval = element.int32("interval", 1000, 1, longestInterval.count());
  info.hasCtrlPort = element.yesNo("ctrl-port", false);
  info.upgradeKey = element.text("upgrade-key");
  return info;
}

Readings readInitial(const StrictElement& element) {
  Readings initial;
  initial.jobs = element.int32("jobs", 0, 0, mostJobs);
  initial.status = element.int32("status", 0);
  initial.address = element.text("address");
  for (const StrictElement& supply : element.children("supply")) readSupply(supply, initial);
  for (const StrictElement& alert : element.children("alert")) readAlert(alert, initial);
  return initial;
}

struct PartRow {
  std::string_view name;
  void (*read)(const StrictElement&, Printer&);
};
/// The elements that a printer has one of at most.
constexpr std::array partTable{PartRow{"parameters", readParameters},
                               PartRow{"network", readNetwork},
                               PartRow{"alignment", readAlignment},
                               PartRow{"push-scan", readPushScan},
                               PartRow{"firmware", readFirmware},
                               PartRow{"upgrade-service", readUpgradeService},
                               PartRow{"wifi", readWifi},
                               PartRow{"timeline", readTimeline}};

void allowInPrinter(const StrictElement& element) {
  static constexpr std::array<std::string_view, 18> attributes{
      "uid",         "manager-id", "connection", "name",           "interval",  "ctrl-port",
      "model",       "serial",     "firmware",   "address",        "device-id", "push-scan",
      "upgrade-key", "jobs",       "status",     "supplies-alarm", "page-time", "clean-time"};
  std::vector<std::string_view> children{"supply", "alert", "call"};
  for (const PartRow& part : partTable) children.push_back(part.name);
  element.allow(attributes, children);
}

Printer readPrinter(const StrictElement& element, const CallRules& scenarioRules) {
  allowInPrinter(element);
  Printer printer;
  printer.description = readDescription(element);
  printer.model = element.text("model");
  printer.serialNumber = element.text("serial");
  printer.firmwareVersion = element.text("firmware");
  printer.deviceId = readDeviceId(element);
  printer.pushScan = element.yesNo("push-scan", false);
  printer.suppliesAlarm = element.yesNo("supplies-alarm", true);
  printer.pageTime = element.time("page-time", longestWork, 0ms);
  printer.cleanTime = element.time("clean-time", longestWork, 0ms);
  printer.netConnected = printer.description.connectionKind == 1;
  printer.initial = readInitial(element);
  printer.behaviour = behaviourOf(readCallRules(element), scenarioRules);
  for (const PartRow& part : partTable) {
    if (const auto child = element.onlyChild(part.name)) part.read(*child, printer);
  }
  return printer;
}

/// The lines of the printers that have the names so far.
using Taken = std::map<std::wstring, int>;

void take(Taken& taken, const std::wstring& name, const StrictElement& element, std::string_view attribute) {
  const auto [place, isNew] = taken.emplace(name, element.line());
  if (isNew) return;
  element.wrong(attribute, "one that no other printer has; line " + std::to_string(place->second) + " has it");
}

}  // namespace

Scenario readScenario(std::string_view text, const std::string& file) {
  constexpr bool replacesReferences = false;
  tinyxml2::XMLDocument document(replacesReferences);
  const StrictElement root = parseStrictly(document, text, file, "scenario");
  root.allow({"seed"}, {"call", "printer"});
  Scenario scenario;
  scenario.seed = static_cast<std::uint64_t>(root.int32("seed", 1, 0));
  const CallRules rules = readCallRules(root);
  Taken uids;
  Taken managerIds;
  for (const StrictElement& element : root.children("printer")) {
    element.refuseMoreThan(mostPrinters, scenario.printers.size());
    scenario.printers.push_back(readPrinter(element, rules));
    take(uids, scenario.printers.back().description.uid, element, "uid");
    take(managerIds, scenario.printers.back().description.managerId, element, "manager-id");
  }
  if (scenario.printers.empty()) root.fail("no <printer> in <scenario>; right is at least one");
  return scenario;
}

}  // namespace simulator
