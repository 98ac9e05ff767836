/// What the model demands of the control functions' calls themselves.

#include "Story.h"

namespace soak::test {
namespace {

class ControlCall : public Story {};

TEST_F(ControlCall, ThatDoesNotReturnZeroIsADifference) {
  constexpr std::pair<What, What> calls[] = {{What::addBegin, What::addEnd},
                                             {What::stopBegin, What::stopEnd},
                                             {What::startBegin, What::startEnd},
                                             {What::pauseBegin, What::pauseEnd}};
  for (const auto& [begin, end] : calls) {
    m_model = std::make_unique<PrinterModel>(PrinterTraits{});
    seen({.what = begin, .thread = kCaller, .task = begin == What::addBegin ? 1U : 0U, .traits = once(Type::GetNetwork)});
    refused({.what = end, .thread = kCaller, .value = 1}, "it should have returned 0");
  }
}

}  // namespace
}  // namespace soak::test
