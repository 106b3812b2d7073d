#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// What the program does to texts of single bytes, whatever they mean.

// Upper and lower case of the code page Windows-1252. The marks of records keep what they are, and
// nothing becomes one: the letters that would (the pairs of 250, 252, 253 and 254) stay as they
// are.
char UpperCase(char c);
char LowerCase(char c);
std::string UpperCase(std::string text);
std::string LowerCase(std::string text);

// A part of `text`, to be used while that lives: without the blanks at its start, or at either end.
std::string_view WithoutLeadingBlanks(std::string_view text);
std::string_view Trimmed(std::string_view text);

inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace quorvel
