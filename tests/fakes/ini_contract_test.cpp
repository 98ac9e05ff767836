#include <array>

#include "fakes/WindowsContractTest.h"

namespace {

struct IniCase {
  const char* name;
  const char* text;      // of the whole file; null: there is none
  const wchar_t* value;  // of "Key" in "Section"
};

const IniCase kIniCases[] = {
    {"Plain", "[Section]\r\nKey=1\r\n", L"1"},
    {"WithoutLineEnd", "[Section]\r\nKey=1", L"1"},
    {"NewlineOnly", "[Section]\nKey=1\n", L"1"},
    {"TrailingBlank", "[Section]\r\nKey=1 \r\n", L"1"},
    {"LeadingBlank", "[Section]\r\nKey= 1\r\n", L"1"},
    {"Tabs", "[Section]\r\nKey=\t1\t\r\n", L"1"},
    {"Quoted", "[Section]\r\nKey=\"1\"\r\n", L"1"},
    {"SingleQuoted", "[Section]\r\nKey='1'\r\n", L"1"},
    {"QuotedBlank", "[Section]\r\nKey=\"1 \"\r\n", L"1 "},
    {"QuotedTwice", "[Section]\r\nKey=\"\"1\"\"\r\n", L"\"1\""},
    {"BlankAroundTheKey", "[Section]\r\n Key =1\r\n", L"1"},
    {"LeadingZero", "[Section]\r\nKey=01\r\n", L"01"},
    {"Ten", "[Section]\r\nKey=10\r\n", L"10"},
    {"Word", "[Section]\r\nKey=true\r\n", L"true"},
    {"Comment", "[Section]\r\n;Key=1\r\n", L""},
    {"CommentBehind", "[Section]\r\nKey=1 ;on\r\n", L"1 ;on"},
    {"Empty", "[Section]\r\nKey=\r\n", L""},
    {"NoEquals", "[Section]\r\nKey\r\n", L""},
    {"MissingKey", "[Section]\r\nOther=1\r\n", L""},
    {"MissingSection", "[Other]\r\nKey=1\r\n", L""},
    {"BeforeTheSection", "Key=1\r\n[Section]\r\n", L""},
    {"NextSection", "[Section]\r\n[Other]\r\nKey=1\r\n", L""},
    {"SectionTwice", "[Section]\r\nOther=1\r\n[Other]\r\n[Section]\r\nKey=1\r\n", L""},
    {"SecondSection", "[Other]\r\nKey=0\r\n[Section]\r\nKey=1\r\n", L"1"},
    {"FirstOfTwoKeys", "[Section]\r\nKey=1\r\nKey=0\r\n", L"1"},
    {"OtherCase", "[sECTION]\r\nkEY=1\r\n", L"1"},
    {"LongerThanTheBuffer", "[Section]\r\nKey=1234567890123456789012345\r\n", L"1234567890123456789"},
    {"EmptyFile", "", L""},
    {"NoFile", nullptr, L""},
};

TEST_F(WindowsContract, IniValues) {
  for (const IniCase& test : kIniCases) {
    SCOPED_TRACE(test.name);
    const std::wstring file = platform->path(std::wstring(L"case-") + std::to_wstring(&test - kIniCases) + L".ini");
    if (test.text != nullptr) platform->writeFile(file, test.text);
    std::array<wchar_t, 20> value;
    value.fill(L'?');
    const DWORD length = ::GetPrivateProfileStringW(L"Section", L"Key", nullptr, value.data(), 20, file.c_str());
    EXPECT_EQ(std::wstring(value.data()), test.value);
    EXPECT_EQ(length, std::wcslen(test.value));
  }
}

TEST_F(WindowsContract, IniFallbackStandsInForAMissingKey) {
  platform->writeFile(path(L"a.ini"), "[Section]\r\nEmpty=\r\n");
  wchar_t value[20] = {};
  ::GetPrivateProfileStringW(L"Section", L"Key", L"fallback", value, 20, path(L"a.ini").c_str());
  EXPECT_STREQ(value, L"fallback");
  ::GetPrivateProfileStringW(L"Section", L"Empty", L"fallback", value, 20, path(L"a.ini").c_str());
  EXPECT_STREQ(value, L"");
}

}  // namespace
