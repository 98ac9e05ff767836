#pragma once

#include <cstddef>
#include <string_view>

namespace consoletest {

/// Reads JSON as its grammar has it, to its last character, and keeps nothing of it.
class JsonText {
 public:
  static bool isValid(std::string_view text) {
    JsonText reader(text);
    return reader.value(0) && reader.m_at == text.size();
  }

 private:
  static constexpr int kDeepest = 20;

  explicit JsonText(std::string_view text) : m_text(text) {}

  char here() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
  bool take(char expected) { return here() == expected && ++m_at > 0; }
  bool take(std::string_view expected) {
    if (!m_text.substr(m_at).starts_with(expected)) return false;
    m_at += expected.size();
    return true;
  }

  bool value(int depth) {
    if (depth > kDeepest) return false;
    switch (here()) {
      case '{':
        return list('{', '}', [&] { return string() && take(':') && value(depth + 1); });
      case '[':
        return list('[', ']', [&] { return value(depth + 1); });
      case '"':
        return string();
      case 't':
        return take("true");
      case 'f':
        return take("false");
      default:
        return number();
    }
  }

  template <class Item>
  bool list(char first, char last, Item item) {
    if (!take(first)) return false;
    if (take(last)) return true;
    do {
      if (!item()) return false;
    } while (take(','));
    return take(last);
  }

  bool string() {
    if (!take('"')) return false;
    while (m_at < m_text.size() && here() != '"') {
      if (static_cast<unsigned char>(here()) < 0x20 || (take('\\') && !escape())) return false;
      ++m_at;
    }
    return take('"');
  }

  // Leaves the place on the escape's last character.
  bool escape() {
    if (here() != 'u') return here() != '\0' && std::string_view("\"\\/bfnrt").find(here()) != std::string_view::npos;
    for (int i = 0; i < 4; ++i) {
      ++m_at;
      if (here() == '\0' || std::string_view("0123456789abcdefABCDEF").find(here()) == std::string_view::npos) return false;
    }
    return true;
  }

  bool number() {
    take('-');
    if (take('0')) return true;
    const auto first = m_at;
    while (here() >= '0' && here() <= '9') ++m_at;
    return m_at > first;
  }

  std::string_view m_text;
  std::size_t m_at = 0;
};

}  // namespace consoletest
