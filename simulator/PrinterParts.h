#pragma once

#include "simulator/Scenario.h"
#include "simulator/StrictXml.h"

/// The reader's part for the elements that a <printer> has one of at most: each fills the printer's members that the element is
/// about and leaves what it does not mention.
namespace simulator {

void readParameters(const StrictElement& element, Printer& printer);
void readNetwork(const StrictElement& element, Printer& printer);
void readAlignment(const StrictElement& element, Printer& printer);
void readPushScan(const StrictElement& element, Printer& printer);

void readFirmware(const StrictElement& element, Printer& printer);
void readUpgradeService(const StrictElement& element, Printer& printer);
void readWifi(const StrictElement& element, Printer& printer);

}  // namespace simulator
