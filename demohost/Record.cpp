#include "demohost/Record.h"

#include <algorithm>

#include "demohost/Marks.h"

namespace quorvel::demohost {
namespace {

std::string_view Field(std::string_view text, char separator, int number) {
  for (int i = 1; i < number; ++i) {
    const auto mark = text.find(separator);
    if (mark == std::string_view::npos) return {};
    text.remove_prefix(mark + 1);
  }
  return text.substr(0, text.find(separator));
}

}  // namespace

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  if (text.empty()) return parts;
  for (;;) {
    const auto mark = text.find(separator);
    parts.emplace_back(text.substr(0, mark));
    if (mark == std::string_view::npos) return parts;
    text.remove_prefix(mark + 1);
  }
}

std::string Join(const std::vector<std::string>& parts, char separator) {
  std::string text;
  for (const auto& part : parts) {
    if (&part != parts.data()) text += separator;
    text += part;
  }
  return text;
}

std::string Attribute(std::string_view record, int attribute, int value) {
  const auto whole = Field(record, kAm, attribute);
  return std::string(value == 0 ? whole : Field(whole, kVm, value));
}

void SetPart(std::string& text, char separator, int number, std::string_view part) {
  auto parts = Split(text, separator);
  const auto place = static_cast<std::size_t>(number);
  if (parts.size() < place) parts.resize(place);
  parts[place - 1] = part;
  text = Join(parts, separator);
}

void SetAttribute(std::string& record, int attribute, std::string_view text) {
  SetPart(record, kAm, attribute, text);
}

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return upper;
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace quorvel::demohost
