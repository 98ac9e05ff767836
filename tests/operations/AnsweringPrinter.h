#pragma once

#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "fakes/MakerLibraries.h"
#include "operations/Journal.h"

/// The maker's libraries around one printer: every function answers what `answers` holds for it, 0 or false if nothing, and
/// writes to none of its arguments. Each call is noted in the journal.
class AnsweringPrinter : public fakes::MakerLibraries {
 public:
  explicit AnsweringPrinter(Journal& journal) : m_journal(journal) {}

  std::map<std::string, int> answers;                       ///< by function
  std::function<void(const std::string& function)> during;  ///< run within each call
  std::vector<const qzstd::PrinterInfo*> printers;          ///< all that the calls were given, in order
  const void* lastArgument = nullptr;                       ///< address that the last call with arguments was given last

  void record(const std::string& call) override {
    MakerLibraries::record(call);
    m_journal.add(call);
  }

#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) \
  result name parameters override { return Answer<result>{*this, #name} arguments; }
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL

 private:
  // Called with the arguments of the call to `function`.
  template <class Result>
  struct Answer {
    AnsweringPrinter& libraries;
    const char* function;

    template <class... Arguments>
    Result operator()(const Arguments&... arguments) const {
      (libraries.take(arguments), ...);
      if (libraries.during) libraries.during(function);
      if constexpr (!std::is_void_v<Result>) {
        const auto found = libraries.answers.find(function);
        return static_cast<Result>(found == libraries.answers.end() ? 0 : found->second);
      }
    }
  };

  template <class Argument>
  void take(const Argument& argument) {
    if constexpr (std::is_same_v<Argument, qzstd::PrinterInfo*>) printers.push_back(argument);
    if constexpr (std::is_pointer_v<Argument>) lastArgument = argument;
  }

  Journal& m_journal;
};
