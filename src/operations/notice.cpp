#include "operations/Notice.h"

#include "AppWindow.h"

namespace operations {

void tellWindow(AppComm::Node& task) {
  task.setUpdate();
  const auto window = task.getWnd();
  if (!window->Notice(task.getCode())) task.setDelete();
}

}  // namespace operations

void notice_caller(comm::CNode& entry) {
  operations::tellWindow(*entry.current());
  for (std::size_t index = 0; const auto observer = entry.observer(index); ++index) operations::tellWindow(*observer);
}
