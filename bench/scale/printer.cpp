#include "bench/scale/Printer.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <thread>

#include "AppPrinterSdk.h"

namespace bench {

Printer::Printer(int number, int expectedReads) {
  uid = L"NET/office/printer-" + std::to_wstring(100000 + number);
  managerId = uid;
  interval = static_cast<std::int32_t>(kInterval.count());
  m_lateness.reserve(static_cast<std::size_t>(expectedReads));
}

void Printer::read() {
  const auto begin = Clock::now();
  if (s_measuring.load() && m_lastEnd != Clock::time_point{} && m_lateness.size() < m_lateness.capacity()) {
    m_lateness.push_back(std::chrono::duration<double, std::milli>(begin - m_lastEnd - kInterval).count());
  }
  std::this_thread::sleep_for(kReadTime);
  m_lastEnd = Clock::now();
  ++m_reads;
}

}  // namespace bench

int AppPrinterSdk_GetState(qzstd::PrinterInfo* printer) {
  static_cast<bench::Printer*>(printer)->read();
  return 0;
}
