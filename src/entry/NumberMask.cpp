// The numeric family of the conversions.

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "entry/Conversions.h"
#include "platform/NumberText.h"
#include "platform/PlainText.h"

namespace quorvel {
namespace {

bool IsFlag(char c) {
  return c == '$' || c == ',';
}
std::size_t Digit(char c) {
  return static_cast<std::size_t>(c - '0');
}

// What each scale divides by, and one unit of the last place.
constexpr std::array<double, 10> kPowers = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
constexpr std::array<double, 10> kUnits = {1, .1, .01, .001, .0001, 1e-5, 1e-6, 1e-7, 1e-8, 1e-9};

// On input all behind a first digit is passed over but for a second digit.
std::optional<std::size_t> InputScale(std::string_view mask) {
  if (mask.empty()) return 0;
  if (!IsDigit(mask[0])) {
    if (IsFlag(mask[0]) && mask.size() == 1) return 0;
    return std::nullopt;
  }
  return Digit(mask.size() > 1 && IsDigit(mask[1]) ? mask[1] : mask[0]);
}

struct Mask {
  std::size_t scale = 0;
  std::optional<std::size_t> shown;  // unset: as many decimals as the scale
  bool dollar = false;
  bool commas = false;
};

std::optional<Mask> ParseOutputMask(std::string_view text) {
  Mask mask;
  std::size_t flags = 0;  // where they begin
  if (!text.empty() && IsDigit(text[0])) {
    mask.scale = Digit(text[0]);
    flags = 1;
    if (text.size() > 1 && IsDigit(text[1])) {
      mask.shown = mask.scale;
      mask.scale = Digit(text[1]);
      flags = 2;
    }
  }
  for (const char c : text.substr(flags)) {
    if (!IsFlag(c)) return std::nullopt;
    (c == '$' ? mask.dollar : mask.commas) = true;
  }
  return mask;
}

// An amount while it is fitted to its places.
class Amount {
 public:
  explicit Amount(double value) : value_(value), text_(PlainNumber(value)) {}

  // Shows `places` decimals: pads, or rounds what is too long by adding one unit of the last
  // place, which takes what is below zero toward zero.
  void Fit(std::size_t places) {
    if (Decimals() > places && Digit(text_[Point() + 1 + places]) >= 5) {
      value_ += kUnits.at(places);
      text_ = PlainNumber(value_);
    }
    AddPoint(places > 0);
    if (Point() == std::string::npos) return;
    text_.resize(Point() + 1 + places, '0');
  }
  // The same for the decimals that are shown: from the text, as it has been fitted to the scale.
  void FitAgain(std::size_t places) {
    AddPoint(true);
    value_ = NumberOf(text_);
    Fit(places);
  }
  std::string Take() { return std::move(text_); }

 private:
  std::size_t Point() const { return text_.find('.'); }
  std::size_t Decimals() const {
    const std::size_t point = Point();
    return point == std::string::npos ? 0 : text_.size() - point - 1;
  }
  void AddPoint(bool wanted) {
    if (wanted && Point() == std::string::npos) text_ += '.';
  }

  double value_;
  std::string text_;
};

// Puts "," behind each third character from the right of the whole part; a sign is a character too.
std::string Grouped(const std::string& text) {
  const std::size_t whole = std::min(text.find('.'), text.size());
  std::string out;
  out.reserve(text.size() + whole / 3);
  for (std::size_t i = 0; i < whole; ++i) {
    if (i > 0 && (whole - i) % 3 == 0) out += ',';
    out += text[i];
  }
  return out.append(text, whole);
}

}  // namespace

std::string InputMask(std::string_view text, std::string_view mask) {
  const auto scale = InputScale(mask);
  if (!scale || !IsNumeric(text)) return {};
  if (text.find_first_not_of('0') == std::string_view::npos) return "0";
  // The digits without their point, the sign first, and where the point stood. Leading zeros are
  // left out.
  std::string digits;
  digits.reserve(text.size());
  std::optional<std::size_t> point;
  for (const char c : text) {
    if (c == '.') {
      point = digits.size();
    } else if (c == '-' || (IsDigit(c) && (c != '0' || point || !digits.empty()))) {
      digits += c;
    }
  }
  const std::size_t whole = point.value_or(digits.size()) + *scale;
  const bool roundUp = whole < digits.size() && IsDigit(digits[whole]) && digits[whole] >= '5';
  digits.resize(whole, '0');
  if (!roundUp) return digits;
  if (digits.empty() || digits == "-") return "1";  // ".5" has a whole part of 0
  return PlainNumber(ParseNumber(digits).value_or(HUGE_VAL) + 1);
}

std::string OutputMask(std::string_view text, std::string_view mask) {
  const auto parsed = ParseOutputMask(mask);
  const auto number = ParseNumber(text);
  if (!parsed || !number) return std::string(text);
  Amount amount(*number / kPowers.at(parsed->scale));
  amount.Fit(parsed->scale);
  if (parsed->shown && *parsed->shown != parsed->scale) amount.FitAgain(*parsed->shown);
  std::string shown = amount.Take();
  if (parsed->commas) shown = Grouped(shown);
  if (shown.ends_with('.')) shown.pop_back();
  if (parsed->dollar) shown.insert(0, 1, '$');
  return shown;
}

}  // namespace quorvel
