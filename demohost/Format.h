// Stored and shown forms: amounts are whole cents, dates are day numbers, day 0 = 31 Dec 1967.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::demohost {

struct DateTime {
  int year = 1967, month = 12, day = 31, hour = 0, minute = 0, second = 0;
};

/// How a stored value is shown and entered.
enum class Form { Text, Whole, Money, Date };

std::string Show(Form form, std::string_view stored);
/// The stored form of an entry; nothing if the entry is no such value. Whole numbers lie in
/// 0..9,999,999, amounts in 0..9,999,999.99; dates are not entered.
std::optional<std::string> Enter(Form form, std::string_view entry);

/// 0 for a text that is no number below 10^12 in size.
long long Number(std::string_view stored);
/// Sum and product, kept within 10^15 in size, whatever a record holds.
long long Plus(long long a, long long b);
long long Times(long long a, long long b);

long long DayNumber(const DateTime& date);
std::string ShowDate(const DateTime& date);      // "22 Nov 2026"
std::string ShowShortDate(long long dayNumber);  // "11/22/26"
std::string ShowTime(const DateTime& date);      // "14:03:09"

/// Fit for the terminal: control characters become points, marks become commas. A record may hold
/// anything that a client has written.
std::string Clean(std::string_view text);

/// A clean text of exactly `width` characters, filled with blanks behind (Left) or before (Right).
/// A text that is too long is cut; a number that is too long becomes asterisks, since a cut one
/// would mislead.
std::string Left(std::string_view text, std::size_t width);
std::string Right(std::string_view text, std::size_t width);

}  // namespace quorvel::demohost
