#include "Printers.h"

#include <algorithm>
#include <map>

#include "Random.h"
#include "simulator/Functions.h"
#include "simulator/Limits.h"

namespace soak {
namespace {

using std::to_string;

// Of a scenario, whose size is limited. In a long soak they come more rarely instead of ending early.
constexpr int kMostFaults = 30'000;
constexpr int kMostChanges = 20'000;

std::string attribute(const std::string& name, const std::string& value) { return " " + name + "='" + value + "'"; }
std::string yesNo(bool is) { return is ? "yes" : "no"; }

// Lists without a pause, some that are paced as an application paces them, a few that are slow. A list that `Stop` no longer
// reaches ends after ten intervals, which are to fit a short soak.
int drawInterval(Random& random, int milliseconds) {
  const int kind = random.between(1, 100);
  if (kind <= 20) return 0;
  if (kind <= 25) return -random.between(1, 1'000);
  if (kind <= 60) return random.between(10, 60);
  if (kind <= 90) return random.between(100, 400);
  return random.between(500, std::clamp(milliseconds / 20, 500, 3'000));
}

// A printer without a pause between runs must not be one without any delay: nothing would slow it down.
std::string latency(Random& random, int interval) {
  const int most = interval <= 0 ? 25 : random.chance(20) ? 60 : 3;
  return "<call latency-min='" + to_string(interval <= 0 ? 5 : 0) + "' latency-max='" + to_string(most) + "'/>";
}

// The time to the next of at most so many things.
int drawGap(Random& random, int from, int to, int milliseconds, int most) {
  const int mean = std::max((from + to) / 2, milliseconds / most);
  return random.between(from, 2 * mean - from);
}

std::string jobs(Random& random, const PrinterPlan& plan, int milliseconds, int most) {
  if (plan.pausesLong) return "<timeline><at ms='0'><jobs count='1'/></at></timeline>";
  std::string changes;
  int count = random.chance(50) ? 0 : 1;
  for (int at = random.between(500, 4'000); at < milliseconds; at += drawGap(random, 1'000, 6'000, milliseconds, most)) {
    count = count == 0 ? random.between(1, 3) : 0;
    changes += "<at ms='" + to_string(at) + "'><jobs count='" + to_string(count) + "'/></at>";
  }
  return changes.empty() ? "" : "<timeline>" + changes + "</timeline>";
}

std::string span(int from, int length) {
  const int until = std::min(from + length, static_cast<int>(simulator::latestTime.count()));
  return attribute("from-ms", to_string(from)) + attribute("until-ms", to_string(until));
}

std::string drawFault(Random& random, const simulator::FunctionRow& row, int from) {
  const bool hangs = row.answer == simulator::Answer::nothing || random.chance(25);
  if (hangs) return "<hang" + attribute("ms", to_string(random.between(1'000, 4'000))) + span(from, 200) + "/>";
  const bool code = row.answer != simulator::Answer::flag;
  return "<fail" + (code ? attribute("code", to_string(-random.between(1, 900))) : "") + span(from, random.between(200, 900)) +
         "/>";
}

// One that is called all the time is met more often than the rest together.
std::size_t drawFunction(Random& random) {
  if (random.chance(20)) return simulator::indexOf(simulator::Function::getPrintingJob);
  return static_cast<std::size_t>(random.between(0, static_cast<int>(simulator::functionCount) - 1));
}

std::string faults(Random& random, int milliseconds, int most) {
  std::map<std::size_t, std::string> byFunction;
  for (int at = random.between(200, 3'000); at < milliseconds; at += drawGap(random, 200, 2'000, milliseconds, most)) {
    const std::size_t function = drawFunction(random);
    byFunction[function] += drawFault(random, simulator::functionTable[function], at);
  }
  std::string text;
  for (const auto& [function, elements] : byFunction) {
    text += "<call" + attribute("function", std::string(simulator::functionTable[function].name)) + ">" + elements + "</call>";
  }
  return text;
}

// Up to ten minutes the first run comes at once, from there on after what is beyond them.
void pauseLong(PrinterPlan& plan, Random& random) {
  plan.pausesLong = true;
  plan.interval = random.chance(50) ? 300'000 : 600'000 + random.between(300, 3'000);
  plan.traits = {};
}

std::string printerElement(Random& random, const PrinterPlan& plan, int milliseconds, int printers) {
  const auto narrow = [](const std::wstring& text) { return std::string(text.begin(), text.end()); };
  return "<printer" + attribute("uid", narrow(plan.uid)) + attribute("manager-id", narrow(plan.managerId)) +
         attribute("connection", plan.traits.network ? "network" : "usb") +
         attribute("ctrl-port", yesNo(plan.traits.ctrlPort)) + attribute("push-scan", yesNo(random.chance(60))) +
         attribute("supplies-alarm", yesNo(random.chance(60))) + ">" + latency(random, plan.interval) +
         faults(random, milliseconds, kMostFaults / printers) + "<network" + attribute("reachable", yesNo(random.chance(30))) +
         "/>" +
         "<firmware size='1000' rate='5000' restart='50'/><upgrade-service check-time='50' new-version='2'/>"
         "<wifi segments='2' segment-time='100' join-segments='2' join-time='100'><access-point name='net'/></wifi>" +
         jobs(random, plan, milliseconds, kMostChanges / printers) + "</printer>";
}

}  // namespace

PrinterPlans planPrinters(std::uint64_t seed, int count, std::chrono::seconds length) {
  PrinterPlans plans;
  const int milliseconds = static_cast<int>(std::chrono::milliseconds(length).count());
  for (int place = 0; place < count; ++place) {
    Random random(seed, 1'000 + static_cast<std::uint64_t>(place));
    PrinterPlan plan;
    plan.uid = L"p" + std::to_wstring(place);
    plan.managerId = L"m" + std::to_wstring(place);
    plan.traits = {.network = random.chance(50), .ctrlPort = random.chance(50)};
    plan.interval = drawInterval(random, milliseconds);
    if (hasLongPauses(seed) && random.chance(8)) pauseLong(plan, random);
    plans.scenario += printerElement(random, plan, milliseconds, count);
    plans.printers.push_back(std::move(plan));
  }
  plans.scenario = "<scenario" + attribute("seed", to_string(seed % 1'000'000)) + ">" + plans.scenario + "</scenario>";
  return plans;
}

PrinterId printerOf(std::wstring_view uid) {
  if (uid.empty()) return kNoPrinter;
  PrinterId place = 0;
  for (const wchar_t digit : uid.substr(1)) place = place * 10 + static_cast<PrinterId>(digit - L'0');
  return place;
}

}  // namespace soak
