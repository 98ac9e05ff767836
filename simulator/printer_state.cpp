#include "simulator/PrinterState.h"

#include <algorithm>
#include <utility>

namespace simulator {
namespace {

constexpr std::int32_t statusCleaning = 3;

}  // namespace

PrinterState::PrinterState(const Printer& printer) : m_printer(&printer), m_askedAddress(printer.initial.address) {
  contents.parameters = printer.parameters;
  contents.network = printer.network;
  contents.netConnected = printer.netConnected;
  contents.alignment = printer.alignment;
  contents.firmwareVersion = printer.firmwareVersion;
}

Readings PrinterState::readings(milliseconds at) const {
  Readings readings = readingsAt(*m_printer, at);
  readings.jobs += static_cast<std::int32_t>(std::ranges::count_if(m_jobEnds, [at](milliseconds end) { return at < end; }));
  if (at < m_cleaningEnd) readings.status = statusCleaning;
  return readings;
}

bool PrinterState::checkAddress(milliseconds at) {
  std::wstring address = readingsAt(*m_printer, at).address;
  return std::exchange(m_askedAddress, address) != address;
}

void PrinterState::addJob(milliseconds at) {
  std::erase_if(m_jobEnds, [at](milliseconds end) { return end <= at; });
  if (m_printer->pageTime > milliseconds::zero()) m_jobEnds.push_back(at + m_printer->pageTime);
}

void PrinterState::printAlignmentPage(milliseconds at) {
  ++contents.alignmentPages;
  addJob(at);
}

void PrinterState::printImage(const std::wstring& image, milliseconds at) {
  if (contents.images.size() == imageCapacity) contents.images.erase(contents.images.begin());
  contents.images.push_back(image);
  addJob(at);
}

void PrinterState::clean(milliseconds at) {
  ++contents.cleanings;
  m_cleaningEnd = at + m_printer->cleanTime;
}

void PrinterState::restart(const std::wstring& firmwareVersion, milliseconds at) {
  contents.firmwareVersion = firmwareVersion;
  m_restartEnd = at + m_printer->firmware.restart;
}

}  // namespace simulator
