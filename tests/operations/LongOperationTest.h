#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "operations/OperationTest.h"

/// `text` with the numbers in place of each `%d`, in order.
std::string filled(std::string text, const std::vector<std::int32_t>& numbers);

Texts joined(Texts first, const Texts& second);

/// A printer that is polled: the answers come in order, and a poll beyond the last one fails the test and ends the run.
class PolledPrinter : public ScriptedPrinter {
 public:
  using ScriptedPrinter::ScriptedPrinter;

  std::size_t polls = 0;                                ///< answered so far
  std::function<void(const std::string& call)> inCall;  ///< run within every call, before it is answered

  void record(const std::string& call) override;

 protected:
  /// The answer to this poll.
  template <class Answer>
  Answer next(const std::vector<Answer>& answers) {
    if (polls == answers.size()) throw std::logic_error("a poll came after the operation was over");
    return answers[polls++];
  }
};

/// What a run does when nothing disturbs it.
struct WholeRun {
  std::vector<Texts> parts;  ///< a deletion lets the part in which it comes end, and skips those that follow
  Texts exit;                ///< follows in any case
  Texts lastNotice;          ///< follows unless the task is deleted

  Texts entries() const;
};

/// An operation that goes on until its job is done, and a hand in it at every moment of a run. A moment is a library call, a
/// notice of the current task, or a sleep; it is named by its journal entry.
template <class Record, class Libraries>
class LongOperationTest : public OperationTestWith<Libraries> {
 protected:
  using Handler = int (*)(std::shared_ptr<comm::CNode>);

  LongOperationTest(std::string function, Handler handler) : OperationTestWith<Libraries>(std::move(function)) {
    operation = handler;
    this->libraries.inCall = [this](const std::string& call) { pass(call, nullptr); };
    this->whileSleeping = [this] { pass("sleep", nullptr); };
    renew();
  }

  /// A fresh record and task, and the printer's answers from the first one again.
  void renew() {
    record = std::make_shared<Record>();
    const auto window = std::make_shared<NoticeWindow>([this](long code) {
      const auto entry = "notice " + std::to_string(code);
      this->journal.add(entry);
      bool wanted = true;
      pass(entry, &wanted);
      return wanted;
    });
    current = AppComm::Node::Instance(this->printer, window, 7, this->type);
    current->setResource(record);
    this->libraries.polls = 0;
    m_moments = 0;
  }

  /// Journal entries of one run.
  Texts run(const std::vector<std::shared_ptr<AppComm::Node>>& observers = {}) {
    const auto before = static_cast<std::ptrdiff_t>(this->journal.entries().size());
    std::vector<std::shared_ptr<AppComm::Node>> tasks{current};
    tasks.insert(tasks.end(), observers.begin(), observers.end());
    EXPECT_EQ(operation(entryOf(tasks)), 0);
    const auto entries = this->journal.entries();
    return {entries.begin() + before, entries.end()};
  }

  /// What `shown` makes of the record at each moment of a run: "MOMENT: RECORD".
  Texts seen(const std::function<std::string(const Record&)>& shown) {
    Texts moments;
    meanwhile = [&](const std::string& moment) { moments.push_back(moment + ": " + shown(*record)); };
    run();
    meanwhile = nullptr;
    return moments;
  }

  /// Deletes the task at each of the moments of `whole`, in a run of its own.
  void expectDeletionToEndTheRun(const WholeRun& whole) {
    Texts before;
    std::size_t moment = 0;
    for (const auto& part : whole.parts) {
      before = joined(before, part);
      expectDeletion(part, moment, joined(before, whole.exit));
    }
    expectDeletion(whole.exit, moment, joined(before, whole.exit));
    expectDeletion(whole.lastNotice, moment, whole.entries());
  }

  /// Deletes the task at one moment of a run, by the caller and, where the moment is a notice, by a window that refuses.
  void expectDeletionAt(std::size_t moment, const std::string& entry, const Texts& expected) {
    SCOPED_TRACE(testing::Message() << "deleted at moment " << moment << ", " << entry);
    EXPECT_EQ(runDeletedAt(moment, false), expected);
    if (entry == "notice 7") {
      EXPECT_EQ(runDeletedAt(moment, true), expected) << "by the window";
    }
  }

  Handler operation = nullptr;
  std::shared_ptr<Record> record;
  std::shared_ptr<AppComm::Node> current;
  std::function<void(const std::string& moment)> meanwhile;  ///< run at every moment
  std::function<void()> arrange;                             ///< run before each of the runs with a deletion

 private:
  static bool isLine(const std::string& entry) { return entry.starts_with("DBG"); }

  void pass(const std::string& moment, bool* wanted) {
    if (m_moments++ == m_deletion) {
      if (m_byWindow) {
        *wanted = false;
      } else {
        current->setDelete();
      }
    }
    if (meanwhile) meanwhile(moment);
  }

  void expectDeletion(const Texts& part, std::size_t& moment, const Texts& expected) {
    for (const auto& entry : part) {
      if (!isLine(entry)) expectDeletionAt(moment++, entry, expected);
    }
  }

  Texts runDeletedAt(std::size_t moment, bool byWindow) {
    renew();
    if (arrange) arrange();
    m_deletion = moment;
    m_byWindow = byWindow;
    auto entries = run();
    m_deletion.reset();
    EXPECT_TRUE(current->getDelete());
    return entries;
  }

  std::size_t m_moments = 0;              // of this run
  std::optional<std::size_t> m_deletion;  // the moment of it
  bool m_byWindow = false;
};
