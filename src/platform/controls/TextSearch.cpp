#include "platform/controls/TextSearch.h"

#include <algorithm>

namespace quorvel {
namespace {

using Folding = std::array<unsigned char, 256>;

// Every byte's own letter in lower case.
constexpr Folding MakeFolding() {
  Folding fold{};
  for (unsigned i = 0; i < 256; ++i) {
    const bool latin = i >= 0xC0 && i <= 0xDE && i != 0xD7;  // 0xD7 is the multiplication sign
    const bool upper = (i >= 'A' && i <= 'Z') || latin;
    fold[i] = static_cast<unsigned char>(upper ? i + 0x20 : i);
  }
  fold[0x8A] = 0x9A;  // S with caron
  fold[0x8C] = 0x9C;  // ligature OE
  fold[0x8E] = 0x9E;  // Z with caron
  fold[0x9F] = 0xFF;  // Y with diaeresis
  return fold;
}

constexpr Folding kFold = MakeFolding();

unsigned char Folded(char c) {
  return kFold[static_cast<unsigned char>(c)];
}

}  // namespace

TextSearch::TextSearch(std::string_view sought) : sought_(sought) {
  for (char& c : sought_) c = static_cast<char>(Folded(c));
  step_.fill(sought_.size());
  for (std::size_t i = 0; i + 1 < sought_.size(); ++i) {
    step_[static_cast<unsigned char>(sought_[i])] = sought_.size() - 1 - i;
  }
}

bool TextSearch::IsAt(const char* place) const {
  return std::equal(sought_.begin(), sought_.end(), place, [](char sought, char c) {
    return static_cast<unsigned char>(sought) == Folded(c);
  });
}

std::size_t TextSearch::Find(std::string_view text, std::size_t from) const {
  const std::size_t length = sought_.size();
  if (length == 0 || text.size() < length) return kNone;
  const auto last = static_cast<unsigned char>(sought_.back());
  for (std::size_t at = from; at <= text.size() - length;) {
    const unsigned char end = Folded(text[at + length - 1]);
    if (end == last && IsAt(text.data() + at)) return at;
    at += step_[end];
  }
  return kNone;
}

std::size_t TextSearch::FindLast(std::string_view text, std::size_t before) const {
  const std::size_t end = std::min(before, text.size());
  if (IsEmpty() || end < Length()) return kNone;
  for (std::size_t at = end - Length() + 1; at-- > 0;) {
    if (IsAt(text.data() + at)) return at;
  }
  return kNone;
}

std::size_t TextSearch::Count(std::string_view text) const {
  std::size_t count = 0;
  for (std::size_t at = Find(text); at != kNone; at = Find(text, at + Length())) ++count;
  return count;
}

}  // namespace quorvel
