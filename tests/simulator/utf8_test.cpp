#include "simulator/Utf8.h"

#include <gtest/gtest.h>

namespace simulator {
namespace {

TEST(Utf8, TakesCharactersOfEveryLength) {
  EXPECT_EQ(wideFromUtf8("a\xc3\xa4\xe2\x82\xac\xf0\x9f\x96\xa8\xf4\x8f\xbf\xbf"), L"a\u00e4\u20ac\U0001f5a8\U0010ffff");
  EXPECT_EQ(wideFromUtf8(""), L"");
}

TEST(Utf8, RefusesWhatIsNotValid) {
  for (const std::string_view bad : {"\x80", "\xff", "\xc0\x80", "\xe0\x80\xaf", "\xed\xa0\x80", "\xed\xbf\xbf",
                                     "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80", "\xc3z", "\xe2\x82z"}) {
    EXPECT_FALSE(wideFromUtf8(bad));
  }
}

TEST(Utf8, DoesNotReadBeyondTheText) {
  const std::string_view whole = "\xf0\x9f\x96\xa8";
  for (std::size_t length = 1; length < whole.size(); ++length) EXPECT_FALSE(wideFromUtf8(whole.substr(0, length)));
}

}  // namespace
}  // namespace simulator
