#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Upper and lower case of the code page Windows-1252. The marks of records keep what they are, and
// nothing becomes one: the letters that would (the pairs of 250, 252, 253 and 254) stay as they
// are.
char UpperCase(char c);
char LowerCase(char c);
std::string UpperCase(std::string text);
std::string LowerCase(std::string text);

// Without the blanks at either end.
std::string Trimmed(std::string_view text);

}  // namespace quorvel
