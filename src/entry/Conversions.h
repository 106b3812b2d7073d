#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Between a value as the host stores it and what the operator sees and enters. A conversion code
// names the family: "MR" or "MD" and a numeric mask, "MC" and a letter, "D" and a date form; its
// case does not matter. Nothing here touches a window or the session. Nothing is reported: a text
// that does not suit its code comes back as each function says.

// A stored date is a number of days after 31 December 1967; as a serial of DateText.h that is:
inline constexpr int kDayZero = 24837;

// Entry form to stored form; empty for an empty code. A text without year takes today's.
// RuntimeError 6 (overflow) where rounding meets a number that no double holds.
std::string InputConv(std::string_view text, std::string_view code);

// Stored form to display form; `text` itself for an empty code.
std::string OutputConv(std::string_view text, std::string_view code);

// A numeric mask is an optional digit, an optional second digit, then any of "$" and ",". One digit
// is the scale: the decimals that the stored whole number implies, all shown. Of two, the first is
// the decimals shown and the second the scale. An empty mask is "0".

// The stored whole number of an amount, rounded by adding 1 to it (also below zero) where the first
// decimal left is 5 or more; empty for a bad mask (on input "$" and "," must stand alone) and for
// what is no number.
std::string InputMask(std::string_view text, std::string_view mask);

// The amount of a stored whole number: scaled, rounded up (also below zero), padded; "," groups
// thousands, the sign counted as a digit; "$" goes first. `text` itself for a bad mask.
std::string OutputMask(std::string_view text, std::string_view mask);

// The date of a stored day number in a form of upper-case letters, digits and separators, at most
// two characters ("", "2/", "MA" ...); `text` itself for any other form, for what is no number, and
// for a day outside the years 100 to 9999.
std::string OutputDate(std::string_view text, std::string_view form);

// "U" upper case, "L" lower case, "T" each word with a capital; `text` itself for anything else.
std::string ConvertCase(std::string_view text, std::string_view letter);

}  // namespace quorvel
