#include "Node.h"

#include <utility>

#include "PrinterInfo.h"

namespace AppComm {

Node::Node(std::shared_ptr<qzstd::PrinterInfo> info, std::shared_ptr<AppWnd::CWnd> wnd, long code, Type type)
    : m_info(std::move(info)), m_wnd(std::move(wnd)), m_uid(m_info->uid), m_code(code), m_type(type) {}

Node::~Node() = default;

std::shared_ptr<Node> Node::Instance(std::shared_ptr<qzstd::PrinterInfo> info, std::shared_ptr<AppWnd::CWnd> wnd, long code,
                                     Type type) {
  return std::make_shared<Node>(std::move(info), std::move(wnd), code, type);
}

void Node::setOnce() { m_once.exchange(true); }
void Node::setRepeat() { m_once.exchange(false); }
const bool Node::getOnce() const { return m_once.load(); }

void Node::setDelete() { m_delete.exchange(true); }
bool Node::getDelete() const { return m_delete.load(); }

void Node::setUpdate() { m_update.exchange(true); }

bool Node::getUpdate() {
  const bool updated = m_update.load();
  m_update.exchange(false);
  return updated;
}

void Node::setReqNPA() { m_reqNPA.exchange(true); }
void Node::resetReqNPA() { m_reqNPA.exchange(false); }
bool Node::getReqNPA() const { return m_reqNPA.load(); }

void Node::setNPAFlag() { m_NPAFlag.exchange(true); }
void Node::resetNPAFlag() { m_NPAFlag.exchange(false); }
bool Node::getNPAFlag() const { return m_NPAFlag.load(); }

const long Node::Interval() const { return m_info->interval; }
const long Node::getCode() const { return m_code; }
const Type Node::getType() const { return m_type; }
const std::wstring& Node::getUID() const { return m_uid; }
std::shared_ptr<qzstd::PrinterInfo> Node::getInfo() const { return m_info; }
const std::shared_ptr<AppWnd::CWnd> Node::getWnd() const { return m_wnd; }

void Node::setResource(std::any value) {
  // Two steps: a move assignment may also put the new value in place before it destroys the previous one.
  m_resource.reset();
  m_resource = std::move(value);
}

std::any Node::getResource() const { return m_resource; }

}  // namespace AppComm
