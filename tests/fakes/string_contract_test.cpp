#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>

#include "fakes/WindowsContractTest.h"

namespace {

// Shows how far a function writes: what it leaves alone stays '#'.
struct Buffer {
  Buffer() { std::fill(std::begin(units), std::end(units), L'#'); }
  std::wstring text() const { return units; }
  wchar_t units[64];
};

int format(Buffer& buffer, std::size_t size, std::size_t count, const wchar_t* pattern, ...) {
  std::va_list arguments;
  va_start(arguments, pattern);
  const int length = ::_vsnwprintf_s(buffer.units, size, count, pattern, arguments);
  va_end(arguments);
  return length;
}

TEST_F(WindowsContract, CopyFillsABufferToTheLastUnit) {
  Buffer buffer;
  EXPECT_EQ(::wcscpy_s(buffer.units, 5, L"abcd"), 0);
  EXPECT_EQ(buffer.text(), L"abcd");
  EXPECT_EQ(buffer.units[5], L'#');
}

TEST_F(WindowsContract, CopyOfSomeUnitsEndsWithAZero) {
  Buffer buffer;
  EXPECT_EQ(::wcsncpy_s(buffer.units, 5, L"abcdefgh", 3), 0);
  EXPECT_EQ(buffer.text(), L"abc");
  EXPECT_EQ(::wcsncpy_s(buffer.units, 5, L"ab", 3), 0);
  EXPECT_EQ(buffer.text(), L"ab");
  EXPECT_EQ(::wcsncpy_s(buffer.units, 5, L"ab", 0), 0);
  EXPECT_EQ(buffer.text(), L"");
}

TEST_F(WindowsContract, TruncatingCopyTellsThatItCut) {
  Buffer buffer;
  EXPECT_EQ(::wcsncpy_s(buffer.units, 5, L"abcdefgh", _TRUNCATE), STRUNCATE);
  EXPECT_EQ(buffer.text(), L"abcd");
  EXPECT_EQ(::wcsncpy_s(buffer.units, 5, L"abcd", _TRUNCATE), 0);
}

TEST_F(WindowsContract, ConcatenationFillsABufferToTheLastUnit) {
  Buffer buffer;
  ::wcscpy_s(buffer.units, 5, L"ab");
  EXPECT_EQ(::wcscat_s(buffer.units, 5, L"cd"), 0);
  EXPECT_EQ(buffer.text(), L"abcd");
}

TEST_F(WindowsContract, WhatDoesNotFitIsRejectedAndEmptiesTheBuffer) {
  platform->runRejected([] {
    Buffer buffer;
    EXPECT_EQ(::wcscpy_s(buffer.units, 4, L"abcd"), ERANGE);
    EXPECT_EQ(buffer.text(), L"");
  });
  platform->runRejected([] {
    Buffer buffer;
    EXPECT_EQ(::wcsncpy_s(buffer.units, 4, L"abcdef", 4), ERANGE);
    EXPECT_EQ(buffer.text(), L"");
  });
  platform->runRejected([] {
    Buffer buffer;
    ::wcscpy_s(buffer.units, 4, L"a");
    EXPECT_EQ(::wcscat_s(buffer.units, 4, L"bcd"), ERANGE);
    EXPECT_EQ(buffer.text(), L"");
  });
  platform->runRejected([] {
    Buffer buffer;
    EXPECT_EQ(format(buffer, 4, 9, L"abcd"), -1);
    EXPECT_EQ(buffer.text(), L"");
  });
}

TEST_F(WindowsContract, TruncatingFormatGivesItsLengthOrMinusOne) {
  Buffer buffer;
  EXPECT_EQ(format(buffer, 5, _TRUNCATE, L"%ws", L"abcd"), 4);
  EXPECT_EQ(buffer.text(), L"abcd");
  EXPECT_EQ(format(buffer, 5, _TRUNCATE, L"%ws", L"abcde"), -1);
  EXPECT_EQ(buffer.text(), L"abcd");
  EXPECT_EQ(format(buffer, 5, _TRUNCATE, L"%ws", L""), 0);
  EXPECT_EQ(buffer.text(), L"");
  EXPECT_EQ(format(buffer, 1, _TRUNCATE, L"a"), -1);
  EXPECT_EQ(buffer.text(), L"");
}

TEST_F(WindowsContract, TruncatingFormatCutsALongTextToo) {
  Buffer buffer;
  EXPECT_EQ(format(buffer, 4, _TRUNCATE, L"%ws", std::wstring(30000, L'x').c_str()), -1);
  EXPECT_EQ(buffer.text(), L"xxx");
}

TEST_F(WindowsContract, FormatOfACountCutsThere) {
  Buffer buffer;
  EXPECT_EQ(format(buffer, 5, 3, L"%ws", L"abc"), 3);
  EXPECT_EQ(format(buffer, 5, 3, L"%ws", L"abcde"), -1);
  EXPECT_EQ(buffer.text(), L"abc");
  EXPECT_EQ(::_snwprintf_s(buffer.units, 8, _TRUNCATE, L"%d.log", 10), 6);
  EXPECT_EQ(buffer.text(), L"10.log");
}

TEST_F(WindowsContract, Conversions) {
  struct {
    const wchar_t* text;
    const wchar_t* pattern;
  } const wideCases[] = {
      {L"ab", L"%ws"},           {L"[   ab]", L"[%5ws]"},    {L"[ab   ]", L"[%-5ws]"}, {L"a", L"%.1ws"},
      {L"[    a]", L"[%5.1ws]"}, {L"%ws ab", L"%%ws %ws"},   {L"ab", L"%s"},           {L"ab", L"%ls"},
      {L"abws", L"%wsws"},       {L"100% ab", L"100%% %ws"},
  };
  for (const auto& test : wideCases) {
    Buffer buffer;
    EXPECT_EQ(format(buffer, 64, _TRUNCATE, test.pattern, L"ab"), static_cast<int>(std::wcslen(test.text)));
    EXPECT_EQ(buffer.text(), test.text);
  }
  Buffer buffer;
  format(buffer, 64, _TRUNCATE, L"%d %02u %03u %ld %x", -7, 5U, 42U, -600000L, 255U);
  EXPECT_EQ(buffer.text(), L"-7 05 042 -600000 ff");
  format(buffer, 64, _TRUNCATE, L"%*ws|%hs|%lc", 4, L"ab", "narrow", L'c');
  EXPECT_EQ(buffer.text(), L"  ab|narrow|c");
  format(buffer, 64, _TRUNCATE, L"%ws", static_cast<const wchar_t*>(nullptr));
  EXPECT_EQ(buffer.text(), L"(null)");
}

TEST_F(WindowsContract, ConversionToWideTakesTheMeasuredLength) {
  wchar_t name[8] = {L'#', L'#', L'#', L'#', L'#', L'#', L'#', L'#'};
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", 3, nullptr, 0), 3);
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4);
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", 3, name, 3), 3);
  EXPECT_EQ(std::wstring(name, 4), L"abc#");
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "", 0, nullptr, 0), 0);
  EXPECT_EQ(::MultiByteToWideChar(CP_ACP, 0, "abc", 3, name, 2), 0);
}

}  // namespace
