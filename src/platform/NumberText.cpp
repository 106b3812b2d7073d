#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/PlainText.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

// Takes sign and "$" from the front of `text`; whether the number is negative.
bool TakeFront(std::string_view& text) {
  bool negative = false;
  bool sign = false;
  bool dollar = false;
  while (!text.empty()) {
    const char c = text[0];
    bool& seen = c == '$' ? dollar : sign;
    if ((c != '$' && c != '-' && c != '+') || seen) break;
    seen = true;
    negative = negative || c == '-';
    text.remove_prefix(1);
  }
  return negative;
}

struct Shape {
  bool valid = false;
  bool commas = false;
  bool whole = false;  // a digit other than 0 ahead of the point
};

Shape ShapeOf(std::string_view digits) {
  Shape shape;
  bool point = false;
  for (const char c : digits) {
    if (IsDigit(c)) {
      shape.valid = true;
      shape.whole = shape.whole || (!point && c != '0');
    } else if (c == '.' && !point) {
      point = true;
    } else if (c == ',' && !point) {
      shape.commas = true;
    } else {
      return {};
    }
  }
  return shape;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
  text = Trimmed(text);
  const bool negative = TakeFront(text);
  const Shape shape = ShapeOf(text);
  if (!shape.valid) return std::nullopt;
  std::string plain;
  if (shape.commas) {
    plain = text;
    std::erase(plain, ',');
    text = plain;
  }
  double number = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (result.ec != std::errc{}) {
    if (shape.whole) return std::nullopt;
    number = 0;  // too small for a double
  }
  return negative ? -number : number;
}

bool IsNumeric(std::string_view text) {
  return ParseNumber(text).has_value();
}

double NumberOf(std::string_view text) {
  return ParseNumber(text).value_or(0);
}

std::string PlainNumber(double number) {
  constexpr int kDigits = 15;
  if (!std::isfinite(number)) throw RuntimeError(Failure::Overflow);
  if (number == 0) return "0";
  std::array<char, 32> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                     std::fabs(number), std::chars_format::scientific, kDigits - 1);
  // "d.dddde-dd": the digits, then the power of ten of the first one.
  const std::string_view form(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const std::size_t e = form.find('e');
  int power = 0;
  const std::size_t powerAt = form[e + 1] == '+' ? e + 2 : e + 1;
  std::from_chars(form.data() + powerAt, form.data() + form.size(), power);
  std::string digits(1, form[0]);
  digits += form.substr(2, e - 2);
  digits.erase(digits.find_last_not_of('0') + 1);

  std::string text = number < 0 ? "-" : "";
  if (power < 0)
    return text.append("0.").append(static_cast<std::size_t>(-power - 1), '0') + digits;
  const std::size_t whole = static_cast<std::size_t>(power) + 1;
  if (digits.size() <= whole) return (text += digits).append(whole - digits.size(), '0');
  return text.append(digits, 0, whole).append(".").append(digits, whole);
}

}  // namespace quorvel
