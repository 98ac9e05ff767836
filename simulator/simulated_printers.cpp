#include "simulator/SimulatedPrinters.h"

#include <algorithm>

#include "simulator/Simulation.h"

namespace simulator {
namespace {

Function named(std::string_view function) {
  const FunctionRow* row = findFunction(function);
  if (row == nullptr) throw std::invalid_argument("no simulated function '" + std::string(function) + "'");
  return row->function;
}

std::size_t placeOf(std::wstring_view uid, const Scenario& scenario) {
  const auto& all = scenario.printers;
  const auto printer = std::ranges::find(all, uid, [](const Printer& one) -> std::wstring_view { return one.description.uid; });
  if (printer == all.end()) throw std::out_of_range("the scenario has no printer with this uid");
  return static_cast<std::size_t>(printer - all.begin());
}

}  // namespace

void reset() { Simulation::instance().reset(); }

std::vector<std::wstring> printerUids() {
  const auto session = Simulation::instance().session();
  std::vector<std::wstring> uids;
  for (const Printer& printer : session->scenario.printers) uids.push_back(printer.description.uid);
  return uids;
}

qzstd::PrinterInfo newPrinterInfo(std::wstring_view uid) {
  const auto session = Simulation::instance().session();
  return session->scenario.printers[placeOf(uid, session->scenario)].description;
}

PrinterContents contents(std::wstring_view uid) {
  const auto session = Simulation::instance().session();
  const std::size_t place = placeOf(uid, session->scenario);
  return Simulation::instance().visit(*session, [place](Session& in, milliseconds) { return in.printers[place].contents; });
}

std::vector<CallRecord> calls() { return Simulation::instance().calls(); }

bool waitUntilBegun(std::string_view function, std::size_t count, std::chrono::milliseconds limit, std::wstring_view printer) {
  return Simulation::instance().waitUntil(&Session::Count::begun, named(function), printer, count, limit);
}

bool waitUntilEnded(std::string_view function, std::size_t count, std::chrono::milliseconds limit, std::wstring_view printer) {
  return Simulation::instance().waitUntil(&Session::Count::ended, named(function), printer, count, limit);
}

void releaseCalls() { Simulation::instance().release(); }

void holdTime() { Simulation::instance().holdTime(); }

void advanceTime(std::chrono::milliseconds by) { Simulation::instance().advanceTime(by); }

}  // namespace simulator
