#include "simulator/StrictXml.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "simulator/SimulatedPrinters.h"
#include "simulator/Utf8.h"
#include "simulator/XmlReferences.h"
#include "simulator/XmlTags.h"

namespace simulator {
namespace {

constexpr std::size_t shownLength = 60;

bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }

/// A value from the file as an error line may hold it: short and without line breaks.
std::string quoted(std::string text) {
  if (text.size() > shownLength) {
    std::size_t end = shownLength;
    while (end > 0 && !startsCharacter(text[end])) --end;
    text = text.substr(0, end) + "...";
  }
  std::ranges::replace_if(
      text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }, ' ');
  return "'" + text + "'";
}

std::string tag(std::string_view name) { return "<" + std::string(name) + ">"; }

bool contains(Names names, std::string_view name) { return std::ranges::find(names, name) != names.end(); }

std::string known(Names names) { return names.empty() ? "; there is none" : "; known are " + listed(names); }

}  // namespace

std::string listed(Names names) {
  std::string text;
  for (const std::string_view name : names) text.append(text.empty() ? "" : ", ").append(name);
  return text;
}

void failAt(const std::string& file, int line, const std::string& what) {
  throw ScenarioError(file + ":" + std::to_string(std::max(line, 1)) + ": " + what);
}

void StrictElement::fail(const std::string& what) const { failAt(*m_file, line(), what); }

void StrictElement::wrong(std::string_view attribute, const std::string& right) const {
  failAt(
      *m_file, find(attribute)->GetLineNum(),
      "attribute '" + std::string(attribute) + "' of " + tag(name()) + " is " + quoted(raw(attribute)) + "; right is " + right);
}

void StrictElement::allow(Names attributes, Names children) const {
  for (auto* attribute = m_element->FirstAttribute(); attribute != nullptr; attribute = attribute->Next()) {
    if (contains(attributes, attribute->Name())) continue;
    failAt(*m_file, attribute->GetLineNum(),
           "unknown attribute " + quoted(attribute->Name()) + " of " + tag(name()) + known(attributes));
  }
  for (auto* child = m_element->FirstChild(); child != nullptr; child = child->NextSibling()) {
    if (child->ToComment() != nullptr) continue;
    if (child->ToElement() == nullptr) {
      failAt(*m_file, child->GetLineNum(), "text in " + tag(name()) + "; right are elements, attributes and comments only");
    }
    if (contains(children, child->Value())) continue;
    failAt(*m_file, child->GetLineNum(), "unknown element " + quoted(child->Value()) + " in " + tag(name()) + known(children));
  }
}

std::vector<StrictElement> StrictElement::children(std::string_view name) const {
  std::vector<StrictElement> found;
  for (auto* child = m_element->FirstChildElement(); child != nullptr; child = child->NextSiblingElement()) {
    if (name.empty() || name == child->Name()) found.emplace_back(*child, *m_file);
  }
  return found;
}

std::optional<StrictElement> StrictElement::onlyChild(std::string_view name) const {
  const auto found = children(name);
  if (found.size() > 1) {
    found[1].fail("second " + tag(name) + " in " + tag(this->name()) + "; right is one");
  }
  return found.empty() ? std::nullopt : std::optional(found.front());
}

void StrictElement::refuseMoreThan(std::size_t most, std::size_t count) const {
  if (count < most) return;
  fail("more than " + std::to_string(most) + " " + tag(name()) + "; right are " + std::to_string(most) + " at most");
}

const tinyxml2::XMLAttribute* StrictElement::find(std::string_view attribute) const {
  return m_element->FindAttribute(std::string(attribute).c_str());
}

std::string StrictElement::raw(std::string_view attribute) const {
  const auto* found = find(attribute);
  if (found == nullptr) fail("missing attribute '" + std::string(attribute) + "' of " + tag(name()) + "; it has no default");
  auto text = withoutReferences(found->Value());
  if (!text) {
    failAt(*m_file, found->GetLineNum(),
           "attribute '" + std::string(attribute) + "' of " + tag(name()) +
               " has an '&' that stands for no character; right are &amp; &lt; &gt; &quot; &apos; or numbers such as &#65; and "
               "&#x41;");
  }
  return *std::move(text);
}

std::wstring StrictElement::decoded(std::string_view attribute) const {
  auto text = wideFromUtf8(raw(attribute));
  if (!text) {
    failAt(*m_file, find(attribute)->GetLineNum(),
           "attribute '" + std::string(attribute) + "' of " + tag(name()) + " is not valid UTF-8; save the file as UTF-8");
  }
  return *std::move(text);
}

std::wstring StrictElement::wide(std::string_view attribute, std::size_t min, std::size_t max) const {
  std::wstring text = decoded(attribute);
  if (text.size() < min || text.size() > max) {
    wrong(attribute, "a text of " + std::to_string(min) + " to " + std::to_string(max) + " characters");
  }
  return text;
}

std::wstring StrictElement::identifier(std::string_view attribute, std::size_t longest) const {
  return wide(attribute, 1, longest);
}

std::wstring StrictElement::text(std::string_view attribute, std::wstring fallback) const {
  return has(attribute) ? wide(attribute, 0, 4096) : std::move(fallback);
}

std::optional<std::wstring> StrictElement::optionalText(std::string_view attribute) const {
  return has(attribute) ? std::optional(text(attribute)) : std::nullopt;
}

std::wstring StrictElement::secret(std::string_view attribute, std::size_t longest) const {
  if (!has(attribute)) return {};
  std::wstring text = decoded(attribute);
  if (text.size() <= longest) return text;
  failAt(*m_file, find(attribute)->GetLineNum(),
         "attribute '" + std::string(attribute) + "' of " + tag(name()) + " is too long; right is a text of 0 to " +
             std::to_string(longest) + " characters");
}

std::int64_t StrictElement::number(std::string_view attribute, std::int64_t min, std::int64_t max,
                                   std::optional<std::int64_t> fallback) const {
  if (fallback && !has(attribute)) return *fallback;
  const std::string digits = raw(attribute);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || value < min || value > max) {
    wrong(attribute, "a whole number from " + std::to_string(min) + " to " + std::to_string(max));
  }
  return value;
}

std::size_t StrictElement::choice(std::string_view attribute, Names choices, std::optional<std::size_t> fallback) const {
  if (fallback && !has(attribute)) return *fallback;
  const auto found = std::ranges::find(choices, raw(attribute));
  if (found == choices.end()) wrong(attribute, "one of " + listed(choices));
  return static_cast<std::size_t>(found - choices.begin());
}

bool StrictElement::yesNo(std::string_view attribute, std::optional<bool> fallback) const {
  static constexpr std::array<std::string_view, 2> choices{"no", "yes"};
  return choice(attribute, choices, fallback ? std::optional<std::size_t>(*fallback ? 1 : 0) : std::nullopt) == 1;
}

StrictElement parseStrictly(tinyxml2::XMLDocument& document, std::string_view text, const std::string& file,
                            std::string_view name) {
  // The parser would take a zero byte for the end and leave the rest unread.
  if (const auto zero = text.find('\0'); zero != std::string_view::npos) {
    const auto line = 1 + std::ranges::count(text.substr(0, zero), '\n');
    failAt(file, static_cast<int>(line), "zero byte in the file; save the file as UTF-8");
  }
  const auto error = document.Parse(text.data(), text.size());
  if (error == tinyxml2::XML_ERROR_EMPTY_DOCUMENT) failAt(file, 1, "the file is empty; right is " + tag(name));
  if (error != tinyxml2::XML_SUCCESS) {
    failAt(
        file, document.ErrorLineNum(),
        std::string("not well-formed XML (") + document.ErrorName() + "); close every element and quote every attribute once");
  }
  refuseForgivenTags(text, file);
  const tinyxml2::XMLElement* root = document.RootElement();
  for (auto* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (node == root || node->ToComment() != nullptr || node->ToDeclaration() != nullptr) continue;
    failAt(file, node->GetLineNum(), "more than one element in the file; right is " + tag(name) + " alone");
  }
  if (root == nullptr || name != root->Name()) {
    failAt(file, root == nullptr ? 1 : root->GetLineNum(),
           "the file does not begin with " + tag(name) + "; right is " + tag(name));
  }
  return {*root, file};
}

}  // namespace simulator
