#include "operations/LongOperationTest.h"

std::string filled(std::string text, const std::vector<std::int32_t>& numbers) {
  for (const auto number : numbers) {
    const auto place = text.find("%d");
    if (place == std::string::npos) {
      ADD_FAILURE() << "more numbers than places: " << text;
      break;
    }
    text.replace(place, 2, std::to_string(number));
  }
  return text;
}

Texts joined(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

void PolledPrinter::record(const std::string& call) {
  ScriptedPrinter::record(call);
  if (inCall) inCall(call);
}

Texts WholeRun::entries() const {
  Texts all;
  for (const auto& part : parts) all = joined(std::move(all), part);
  return joined(joined(std::move(all), exit), lastNotice);
}
