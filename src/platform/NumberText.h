#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// What an operator may enter as a number, and how the program writes one.
//
// A number text: blanks around it; one sign in front, "$" ahead of or behind it; digits, at least
// one, with at most one "."; "," anywhere ahead of the point. No exponent, no "()", no sign behind.
// So everything that a numeric mask can show is a number again ("-,123", "$-1,234.50"). A number
// that a double can't hold (above 1.8e308) is none.

// The value of a number text; nothing if it is none. One pass, whatever its length.
std::optional<double> ParseNumber(std::string_view text);

bool IsNumeric(std::string_view text);

// The value of a number text; 0 if it is none.
double NumberOf(std::string_view text);

// The shortest decimal form of at most 15 significant digits: "." as point, "0" before a point that
// would lead, no thousands marks, never an exponent. RuntimeError 6 (overflow) for what is no
// finite number.
std::string PlainNumber(double number);

}  // namespace quorvel
