#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "simulator/controls/EditText.h"

// Every block that this program gives back is searched for what must not be in it any more. The search looks for units that no
// other text here has.
namespace {

constexpr wchar_t kSecretUnit = 0x2603;

struct Header {
  std::size_t size;
  std::size_t padding;
};
static_assert(sizeof(Header) == __STDCPP_DEFAULT_NEW_ALIGNMENT__);

int g_secretBlocks = 0;

bool holdsSecret(const unsigned char* block, std::size_t size) {
  for (std::size_t at = 0; at + sizeof(wchar_t) <= size; at += sizeof(wchar_t)) {
    wchar_t unit = 0;
    std::memcpy(&unit, block + at, sizeof unit);
    if (unit == kSecretUnit) return true;
  }
  return false;
}

void giveBack(void* block) noexcept {
  if (block == nullptr) return;
  auto* header = static_cast<Header*>(block) - 1;
  if (holdsSecret(static_cast<unsigned char*>(block), header->size)) ++g_secretBlocks;
  std::free(header);
}

}  // namespace

void* operator new(std::size_t size) {
  auto* header = static_cast<Header*>(std::calloc(1, sizeof(Header) + size));
  if (header == nullptr) throw std::bad_alloc();
  header->size = size;
  return header + 1;
}
void operator delete(void* block) noexcept { giveBack(block); }
void operator delete(void* block, std::size_t) noexcept { giveBack(block); }

namespace {

using controls::EditText;

class WipedText : public testing::Test {
 protected:
  void SetUp() override { g_secretBlocks = 0; }

  const std::wstring_view secret{m_units, 3};

 private:
  const wchar_t m_units[3] = {kSecretUnit, kSecretUnit, kSecretUnit};
};

// Beyond the end of the text, in memory that it still has.
std::size_t secretUnitsBehind(const EditText& text, std::size_t formerSize) {
  std::size_t count = 0;
  const volatile wchar_t* units = text.view().data();
  for (std::size_t index = text.view().size(); index < formerSize; ++index) count += units[index] == kSecretUnit ? 1 : 0;
  return count;
}

TEST_F(WipedText, SearchFindsAnOrdinaryText) {
  { const std::wstring ordinary(100, kSecretUnit); }
  EXPECT_EQ(g_secretBlocks, 1);
}

TEST_F(WipedText, GrowingAndGoingLeaveNothing) {
  {
    EditText text({});
    for (int count = 0; count < 100; ++count) text.type(kSecretUnit);
    text.paste(secret);
    text.paste(std::wstring_view(L"\r\n"));
    ASSERT_EQ(text.view().size(), 104U);
  }
  EXPECT_EQ(g_secretBlocks, 0);
}

TEST_F(WipedText, ErasedUnitsAreOverwritten) {
  struct Case {
    const char* what;
    void (*erase)(EditText& text);
    std::size_t left;
  };
  const Case cases[] = {
      {"Backspace", [](EditText& text) { text.eraseLeft(); }, 3},
      {"selection", [](EditText& text) { text.select(0, 3), text.eraseSelection(); }, 0},
      {"set", [](EditText& text) { text.set(L""); }, 0},
      {"set shorter", [](EditText& text) { text.set(L"a"); }, 0},
      {"type over", [](EditText& text) { text.select(0, 3), text.type(L'a'); }, 0},
  };
  for (const auto& [what, erase, left] : cases) {
    EditText text({});
    text.set(secret);
    text.select(3, 3);
    erase(text);
    EXPECT_EQ(secretUnitsBehind(text, 3), 0U) << what;
  }
}

}  // namespace
