#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "AppCommunication.h"
#include "console/Board.h"

namespace examples {

/// The application's side of the module: one repeating state task per printer, whose notices go to the board.
class Polling {
 public:
  /// The board outlives the process's workers: a notice may come until each of them has ended.
  explicit Polling(std::shared_ptr<Board> board);
  ~Polling();
  Polling(const Polling&) = delete;
  Polling& operator=(const Polling&) = delete;

  void addPrinter(std::shared_ptr<qzstd::PrinterInfo> printer);

  /// Deletes every task, stops the module and waits for the tasks to be let go. False when some printer kept its worker for
  /// longer than `limit`.
  bool stop(std::chrono::milliseconds limit);

 private:
  class Released;

  const std::shared_ptr<Board> m_board;
  const std::shared_ptr<Released> m_released;
  std::vector<std::shared_ptr<AppComm::Node>> m_tasks;
};

}  // namespace examples
