#include "simulator/controls/EditText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using controls::EditText;

// A character of two units, wherever `wchar_t` is wider, too.
constexpr wchar_t kHigh = 0xd83d;
constexpr wchar_t kLow = 0xde00;
const std::wstring kPair{kHigh, kLow};

bool isDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }

EditText textOf(std::wstring_view units, const controls::EditRules& rules = {}) {
  EditText text(rules);
  text.set(units);
  return text;
}

// The caret as |, what is selected in brackets.
std::wstring shown(const EditText& text) {
  std::wstring result(text.view());
  if (text.hasSelection()) {
    result.insert(text.selectionEnd(), L"]");
    result.insert(text.selectionBegin(), L"[");
    return result;
  }
  return result.insert(text.caret(), L"|");
}

struct Edit {
  const char* what;
  std::wstring text;
  std::size_t anchor;
  std::size_t caret;
  void (*act)(EditText& text);
  std::wstring result;
};

TEST(EditText, EachActionDoesItsOwn) {
  const Edit edits[] = {
      {"type", L"ac", 1, 1, [](EditText& text) { text.type(L'b'); }, L"ab|c"},
      {"type over", L"abcd", 1, 3, [](EditText& text) { text.type(L'x'); }, L"ax|d"},
      {"left", L"abc", 2, 2, [](EditText& text) { text.moveLeft(false); }, L"a|bc"},
      {"left at the beginning", L"abc", 0, 0, [](EditText& text) { text.moveLeft(false); }, L"|abc"},
      {"left out of a selection", L"abcd", 3, 1, [](EditText& text) { text.moveLeft(false); }, L"a|bcd"},
      {"right", L"abc", 2, 2, [](EditText& text) { text.moveRight(false); }, L"abc|"},
      {"right at the end", L"abc", 3, 3, [](EditText& text) { text.moveRight(false); }, L"abc|"},
      {"right out of a selection", L"abcd", 3, 1, [](EditText& text) { text.moveRight(false); }, L"abc|d"},
      {"select to the left", L"abc", 2, 2, [](EditText& text) { text.moveLeft(true); }, L"a[b]c"},
      {"select to the right", L"abc", 0, 1, [](EditText& text) { text.moveRight(true); }, L"[ab]c"},
      {"select back to nothing", L"abc", 1, 2, [](EditText& text) { text.moveLeft(true); }, L"a|bc"},
      {"select to the end", L"abc", 1, 1, [](EditText& text) { text.moveTo(99, true); }, L"a[bc]"},
      {"erase left", L"abc", 2, 2, [](EditText& text) { text.eraseLeft(); }, L"a|c"},
      {"erase left at the beginning", L"abc", 0, 0, [](EditText& text) { text.eraseLeft(); }, L"|abc"},
      {"erase left what is selected", L"abc", 1, 3, [](EditText& text) { text.eraseLeft(); }, L"a|"},
      {"erase right", L"abc", 1, 1, [](EditText& text) { text.eraseRight(); }, L"a|c"},
      {"erase right at the end", L"abc", 3, 3, [](EditText& text) { text.eraseRight(); }, L"abc|"},
      {"erase right what is selected", L"abc", 0, 2, [](EditText& text) { text.eraseRight(); }, L"|c"},
      {"paste over", L"abc", 1, 2, [](EditText& text) { text.paste(L"xyz"); }, L"axyz|c"},
      {"set", L"abc", 0, 1, [](EditText& text) { text.set(L"xy"); }, L"xy|"},
      {"caret beyond the end", L"abc", 0, 0, [](EditText& text) { text.moveTo(4, false); }, L"abc|"},
  };
  for (const auto& edit : edits) {
    auto text = textOf(edit.text);
    text.select(edit.anchor, edit.caret);
    edit.act(text);
    EXPECT_EQ(shown(text), edit.result) << edit.what;
  }
}

TEST(EditText, CharacterOfTwoUnitsIsNeverParted) {
  const std::wstring text = L"a" + kPair + L"b";
  const Edit edits[] = {
      {"left", text, 3, 3, [](EditText& of) { of.moveLeft(false); }, L"a|" + kPair + L"b"},
      {"right", text, 1, 1, [](EditText& of) { of.moveRight(false); }, L"a" + kPair + L"|b"},
      {"erase left", text, 3, 3, [](EditText& of) { of.eraseLeft(); }, L"a|b"},
      {"erase right", text, 1, 1, [](EditText& of) { of.eraseRight(); }, L"a|b"},
      {"caret into it", text, 0, 0, [](EditText& of) { of.moveTo(2, false); }, L"a|" + kPair + L"b"},
      {"selection into it", text, 2, 4, [](EditText&) {}, L"a[" + kPair + L"b]"},
      {"select over it", text, 1, 1, [](EditText& of) { of.moveRight(true); }, L"a[" + kPair + L"]b"},
  };
  for (const auto& edit : edits) {
    auto of = textOf(edit.text);
    of.select(edit.anchor, edit.caret);
    edit.act(of);
    EXPECT_EQ(shown(of), edit.result) << edit.what;
  }
}

TEST(EditText, TypedHalvesComeInTogether) {
  auto text = textOf(L"");
  EXPECT_FALSE(text.type(kHigh));
  EXPECT_EQ(shown(text), L"|");
  EXPECT_TRUE(text.type(kLow));
  EXPECT_EQ(shown(text), kPair + L"|");
}

TEST(EditText, HalfWithoutItsOtherHalfIsNotTaken) {
  auto text = textOf(L"");
  EXPECT_FALSE(text.type(kLow));
  EXPECT_FALSE(text.type(kHigh));
  EXPECT_TRUE(text.type(L'a'));
  EXPECT_FALSE(text.type(kLow));
  EXPECT_EQ(shown(text), L"a|");
}

TEST(EditText, ControlCharactersAreNotTyped) {
  auto text = textOf(L"");
  for (const wchar_t unit : {L'\0', L'\b', L'\t', L'\r', L'\n', L'\x1b', L'\x7f'}) EXPECT_FALSE(text.type(unit));
  EXPECT_EQ(shown(text), L"|");
}

TEST(EditText, PastedLineBreaksBecomeBlanks) {
  const std::pair<std::wstring, std::wstring> pastes[] = {
      {L"a\r\nb", L"a b|"}, {L"a\nb", L"a b|"},     {L"a\rb", L"a b|"},   {L"a\r\r\nb", L"a  b|"}, {L"a\n\nb", L"a  b|"},
      {L"a\tb", L"a b|"},   {L"a\x2028z", L"a z|"}, {L"a\x85z", L"a z|"}, {L"\r\n", L" |"},        {L"a\x7fz", L"a z|"},
  };
  for (const auto& [pasted, result] : pastes) {
    auto text = textOf(L"");
    text.paste(pasted);
    EXPECT_EQ(shown(text), result);
  }
}

TEST(EditText, TakesOnlyWhatTheRulesAllow) {
  auto text = textOf(L"", {isDigit, 3});
  EXPECT_FALSE(text.type(L'x'));
  EXPECT_TRUE(text.paste(L"a1\r\n2b"));
  EXPECT_TRUE(text.type(L'3'));
  EXPECT_FALSE(text.type(L'4'));
  EXPECT_EQ(shown(text), L"123|");
}

TEST(EditText, WhatIsNotTakenLeavesTheSelection) {
  auto text = textOf(L"123", {isDigit, 3});
  text.select(0, 2);
  EXPECT_FALSE(text.type(L'x'));
  EXPECT_FALSE(text.paste(L"abc"));
  EXPECT_FALSE(text.paste(L""));
  EXPECT_EQ(shown(text), L"[12]3");
}

TEST(EditText, SelectedUnitsMakeRoom) {
  auto text = textOf(L"123", {isDigit, 3});
  text.select(0, 2);
  EXPECT_TRUE(text.paste(L"4567"));
  EXPECT_EQ(shown(text), L"45|3");
}

TEST(EditText, ProgramsTextMayBreakTheRules) {
  auto text = textOf(L"more", {isDigit, 3});
  EXPECT_EQ(shown(text), L"more|");
  EXPECT_FALSE(text.type(L'1'));
  EXPECT_TRUE(text.eraseLeft());
  EXPECT_EQ(shown(text), L"mor|");
}

TEST(EditText, CharacterOfTwoUnitsThatDoesNotFitIsLeftOutWhole) {
  auto text = textOf(L"", {nullptr, 3});
  EXPECT_TRUE(text.paste(L"ab" + kPair));
  EXPECT_EQ(shown(text), L"ab|");
  EXPECT_FALSE(text.type(kHigh));
  EXPECT_FALSE(text.type(kLow));
  EXPECT_EQ(shown(text), L"ab|");
}

TEST(EditText, LimitHoldsForEveryEdit) {
  auto text = textOf(L"");
  EXPECT_TRUE(text.paste(std::wstring(40000, L'x')));
  EXPECT_EQ(text.view().size(), 32767U);
}

}  // namespace
