#pragma once

#include <tinyxml2.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

using Names = std::span<const std::string_view>;

/// The names in a table whose rows have one.
template <typename Row, std::size_t count>
constexpr std::array<std::string_view, count> namesOf(const std::array<Row, count>& table) {
  std::array<std::string_view, count> names;
  for (std::size_t i = 0; i < count; ++i) names[i] = table[i].name;
  return names;
}

/// "a, b, c"
std::string listed(Names names);

/// One element of an XML file that is read without forgiveness. Every mistake is a `ScenarioError` with file and line.
/// The document and `file` outlive it.
class StrictElement {
 public:
  StrictElement(const tinyxml2::XMLElement& element, const std::string& file) : m_element(&element), m_file(&file) {}

  std::string_view name() const { return m_element->Name(); }
  int line() const { return m_element->GetLineNum(); }

  /// Fails on an attribute or a child that is not named here, and on text between children.
  void allow(Names attributes, Names children = {}) const;
  void allow(std::initializer_list<std::string_view> attributes, std::initializer_list<std::string_view> children = {}) const {
    allow(Names(attributes.begin(), attributes.size()), Names(children.begin(), children.size()));
  }

  std::vector<StrictElement> children() const { return children({}); }
  std::vector<StrictElement> children(std::string_view name) const;
  /// The child of this name, if there is one; a second is a mistake.
  std::optional<StrictElement> onlyChild(std::string_view name) const;
  /// Fails when `count` elements like this one were there before it and that is all there may be.
  void refuseMoreThan(std::size_t most, std::size_t count) const;

  bool has(std::string_view attribute) const { return find(attribute) != nullptr; }

  /// The UTF-8 of an attribute that must be there, its references replaced.
  std::string raw(std::string_view attribute) const;
  /// A text of 1 to `longest` characters that must be there.
  std::wstring identifier(std::string_view attribute, std::size_t longest = 256) const;
  /// A text of at most 4096 characters, `fallback` when it is not there.
  std::wstring text(std::string_view attribute, std::wstring fallback = {}) const;
  std::optional<std::wstring> optionalText(std::string_view attribute) const;
  /// A text that no error line shows, empty when it is not there.
  std::wstring secret(std::string_view attribute, std::size_t longest) const;
  /// A whole number; the attribute must be there unless there is a fallback.
  std::int64_t number(std::string_view attribute, std::int64_t min, std::int64_t max,
                      std::optional<std::int64_t> fallback = std::nullopt) const;
  std::int32_t int32(std::string_view attribute, std::optional<std::int64_t> fallback = std::nullopt,
                     std::int64_t min = std::numeric_limits<std::int32_t>::min(),
                     std::int64_t max = std::numeric_limits<std::int32_t>::max()) const {
    return static_cast<std::int32_t>(number(attribute, min, max, fallback));
  }
  std::chrono::milliseconds time(std::string_view attribute, std::chrono::milliseconds longest,
                                 std::chrono::milliseconds fallback) const {
    return std::chrono::milliseconds(number(attribute, 0, longest.count(), fallback.count()));
  }
  /// The place of the attribute's value among `choices`.
  std::size_t choice(std::string_view attribute, Names choices, std::optional<std::size_t> fallback = std::nullopt) const;
  bool yesNo(std::string_view attribute, std::optional<bool> fallback = std::nullopt) const;

  /// "attribute 'x' of <y> is 'z'; right is <right>"
  [[noreturn]] void wrong(std::string_view attribute, const std::string& right) const;
  [[noreturn]] void fail(const std::string& what) const;

 private:
  const tinyxml2::XMLAttribute* find(std::string_view attribute) const;
  std::wstring decoded(std::string_view attribute) const;
  std::wstring wide(std::string_view attribute, std::size_t min, std::size_t max) const;

  const tinyxml2::XMLElement* m_element;
  const std::string* m_file;
};

[[noreturn]] void failAt(const std::string& file, int line, const std::string& what);

/// Parses `text` into `document` and returns its only element, which must be called `name`. The document must leave references
/// as they are: the parser would let wrong ones pass, and make other texts of them.
StrictElement parseStrictly(tinyxml2::XMLDocument& document, std::string_view text, const std::string& file,
                            std::string_view name);

}  // namespace simulator
