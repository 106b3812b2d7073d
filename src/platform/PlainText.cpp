#include "platform/PlainText.h"

#include <algorithm>
#include <array>

namespace quorvel {
namespace {

struct CaseTables {
  std::array<char, 256> upper{};
  std::array<char, 256> lower{};

  constexpr CaseTables() {
    for (unsigned i = 0; i < 256; ++i) upper[i] = lower[i] = static_cast<char>(i);
    for (unsigned i = 'A'; i <= 'Z'; ++i) Pair(i, i + 0x20);
    for (unsigned i = 0xC0; i <= 0xDE; ++i) {
      const unsigned small = i + 0x20;
      const bool isMark = small == 250 || small >= 252;
      if (i != 0xD7 && !isMark) Pair(i, small);  // 0xD7 is the multiplication sign
    }
    Pair(0x8A, 0x9A);
    Pair(0x8C, 0x9C);
    Pair(0x8E, 0x9E);
    Pair(0x9F, 0xFF);
  }
  constexpr void Pair(unsigned large, unsigned small) {
    lower[large] = static_cast<char>(small);
    upper[small] = static_cast<char>(large);
  }
};

constexpr CaseTables kCase;

}  // namespace

char UpperCase(char c) {
  return kCase.upper[static_cast<unsigned char>(c)];
}

char LowerCase(char c) {
  return kCase.lower[static_cast<unsigned char>(c)];
}

std::string UpperCase(std::string text) {
  for (char& c : text) c = UpperCase(c);
  return text;
}

std::string LowerCase(std::string text) {
  for (char& c : text) c = LowerCase(c);
  return text;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

std::string_view Trimmed(std::string_view text) {
  return WithoutLeadingBlanks(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace quorvel
