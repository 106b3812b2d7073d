#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// Conversions between text and numbers, and narrowing, with the classic failures.

// The number that `text` spells: blanks around it, one sign, digits with at most one point, an
// exponent. RuntimeError 13 (type mismatch) for anything else, the empty text included.
double ToNumber(std::string_view text);

// Whether ToNumber(text) would succeed.
bool IsNumber(std::string_view text);

// `number` rounded to the nearest whole number, halves to even. RuntimeError 6 (overflow) when it
// does not fit 16 bits with sign.
std::int16_t RoundToInt16(double number);

// ToNumber and RoundToInt16 in one.
std::int16_t ToInt16(std::string_view text);

// The number at the front of `text` (blanks are skipped anywhere ahead of and in it); 0 if there
// is none. Never fails.
double LeadingNumber(std::string_view text);

// A number as short as it is, at most six digits: "10", "8.25".
std::string ShortNumber(double number);

// `number` if it fits 16 bits with sign; RuntimeError 6 (overflow) otherwise.
std::int16_t CheckedInt16(std::int64_t number);

}  // namespace quorvel
