#include "platform/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

#include "platform/PlainText.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

// Parses all of `text` (no sign, no blanks); false if anything is left over.
bool ParseUnsigned(std::string_view text, double& number) {
  if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9'))) return false;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size();
}

bool Parse(std::string_view text, double& number) {
  text = Trimmed(text);
  const bool negative = !text.empty() && text[0] == '-';
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
  if (!ParseUnsigned(Trimmed(text), number)) return false;
  if (negative) number = -number;
  return true;
}

}  // namespace

double ToNumber(std::string_view text) {
  double number = 0;
  if (!Parse(text, number)) throw RuntimeError(Failure::TypeMismatch);
  return number;
}

bool IsNumber(std::string_view text) {
  double number = 0;
  return Parse(text, number);
}

std::int16_t RoundToInt16(double number) {
  // The default rounding mode of the floating-point environment is to nearest, halves to even.
  const double whole = std::nearbyint(number);
  if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
        whole <= std::numeric_limits<std::int16_t>::max())) {
    throw RuntimeError(Failure::Overflow);
  }
  return static_cast<std::int16_t>(whole);
}

std::int16_t ToInt16(std::string_view text) {
  return RoundToInt16(ToNumber(text));
}

double LeadingNumber(std::string_view text) {
  std::string packed;
  for (const char c : text) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') continue;
    packed += c;
    if (packed.size() == 400) break;  // longer than any double is written
  }
  const char* begin = packed.data();
  const char* end = begin + packed.size();
  const bool negative = begin != end && *begin == '-';
  if (begin != end && (*begin == '-' || *begin == '+')) ++begin;
  double number = 0;
  if (begin == end || !(*begin == '.' || (*begin >= '0' && *begin <= '9'))) return 0;
  const auto result = std::from_chars(begin, end, number);
  if (result.ec != std::errc{}) return 0;
  return negative ? -number : number;
}

std::string ShortNumber(double number) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << number;
  return text.str();
}

std::int16_t CheckedInt16(std::int64_t number) {
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeError(Failure::Overflow);
  }
  return static_cast<std::int16_t>(number);
}

}  // namespace quorvel
