#include "log/LogWriter.h"

#include <system_error>

namespace {

template <class Owner>
const Owner& checked(const Owner& owner, const char* what) {
  if (owner == nullptr) throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
  return owner;
}

}  // namespace

LogWriter::LogWriter(const std::wstring& name)
    : m_name(name),
      m_memory(::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(logwriter::WriterLedger),
                                    logwriter::ledgerName(name).c_str())),
      m_ledger(static_cast<logwriter::WriterLedger*>(
          ::MapViewOfFile(checked(m_memory, "ledger").get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(logwriter::WriterLedger)))),
      m_orders(::CreateEventW(nullptr, FALSE, FALSE, logwriter::orderEventName(name).c_str())),
      m_process(L"log_writer.exe", {name}) {
  checked(m_ledger, "ledger");
  checked(m_orders, "orders");
}

void LogWriter::give(logwriter::Order order) {
  m_ledger->resting = false;
  m_ledger->order = order;
  ::SetEvent(m_orders.get());
}

void LogWriter::write() { give(logwriter::Order::Write); }

void LogWriter::rest() { m_ledger->order = logwriter::Order::Rest; }

void LogWriter::kill() {
  m_alive = false;
  m_process.kill();
}

std::optional<std::uint32_t> LogWriter::end() {
  m_alive = false;
  give(logwriter::Order::End);
  return m_process.wait(std::chrono::milliseconds(logwriter::kDeadlineMs));
}
