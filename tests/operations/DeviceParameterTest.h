#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "Records.h"
#include "operations/OperationTest.h"

/// In the order in which they are read.
enum Parameter : std::size_t { kSleepTime, kSupplyAlarm, kPaperAlarm, kTimedClear, kSilentMode, kParameters };

/// A printer whose parameters can be read; of the settings it takes only the supplies alarm.
class ParameterPrinter : public ScriptedPrinter {
 public:
  using ScriptedPrinter::ScriptedPrinter;

  struct Reading {
    int result = 0;
    std::optional<int> value;  ///< written by the read, also by one that fails; none: the read writes nothing
  };

  std::array<Reading, kParameters> readings;
  std::array<const void*, kParameters> readInto{};  ///< address that the last read of each was given
  std::function<void(Parameter)> whileReadingOne;   ///< run within each read
  bool hasSuppliesAlarm = true;
  const void* sentFrom = nullptr;  ///< address that the last setting was given
  std::function<void(std::uint8_t& value)> whileSending;

  bool AppPrinterSdk_IsSuppportSuppliesAlarm(qzstd::PrinterInfo* /*printer*/) override { return hasSuppliesAlarm; }

  int AppPrinterSdk_GetSleepTime(qzstd::PrinterInfo* /*printer*/, std::int32_t* value) override {
    return read(kSleepTime, *value);
  }
  int AppPrinterSdk_GetSuppliesAlarm(qzstd::PrinterInfo* /*printer*/, std::uint8_t* value) override {
    return read(kSupplyAlarm, *value);
  }
  int AppPrinterSdk_GetPaperAlarm(qzstd::PrinterInfo* /*printer*/, std::uint8_t* value) override {
    return read(kPaperAlarm, *value);
  }
  int AppPrinterSdk_GetTimedClear(qzstd::PrinterInfo* /*printer*/, std::uint8_t* value) override {
    return read(kTimedClear, *value);
  }
  int AppPrinterSdk_GetSilentMode(qzstd::PrinterInfo* /*printer*/, std::uint8_t* value) override {
    return read(kSilentMode, *value);
  }

  int AppPrinterSdk_SetSuppliesAlarm(qzstd::PrinterInfo* /*printer*/, std::uint8_t* value) override {
    sentFrom = value;
    if (whileSending) whileSending(*value);
    return 0;
  }

 private:
  template <class Value>
  int read(Parameter parameter, Value& value) {
    readInto[parameter] = &value;
    if (whileReadingOne) whileReadingOne(parameter);
    if (readings[parameter].value) value = static_cast<Value>(*readings[parameter].value);
    return readings[parameter].result;
  }
};
