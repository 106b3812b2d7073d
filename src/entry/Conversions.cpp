#include "entry/Conversions.h"

#include <utility>

#include "entry/DateText.h"
#include "platform/NumberText.h"
#include "platform/PlainText.h"

namespace quorvel {
namespace {

enum class Family { None, Numeric, Case, Date };

// A conversion code taken apart; the argument in upper case. Codes are a few characters long, so
// none of this reaches the heap.
struct Code {
  explicit Code(std::string_view code) : upper(UpperCase(std::string(code))) {
    if (upper[0] == 'D') {
      family = Family::Date;
      argument = std::string_view(upper).substr(1);
    } else if (upper.size() > 1 && upper[0] == 'M') {
      const char second = upper[1];
      if (second == 'R' || second == 'D') family = Family::Numeric;
      if (second == 'C') family = Family::Case;
      argument = std::string_view(upper).substr(2);
    }
  }
  Code(const Code&) = delete;
  Code& operator=(const Code&) = delete;

  std::string upper;
  Family family = Family::None;
  std::string_view argument;
};

}  // namespace

std::string InputConv(std::string_view text, std::string_view code) {
  if (code.empty()) return {};
  const Code parsed(code);
  switch (parsed.family) {
    case Family::Numeric:
      return InputMask(text, parsed.argument);
    case Family::Case:
      return ConvertCase(text, parsed.argument);
    case Family::Date: {
      const auto serial = ParseDate(text);
      return serial ? std::to_string(*serial - kDayZero) : std::string();
    }
    case Family::None:
      break;
  }
  return std::string(text);
}

std::string OutputConv(std::string_view text, std::string_view code) {
  if (code.empty() || text.empty()) return std::string(text);
  const Code parsed(code);
  switch (parsed.family) {
    case Family::Numeric:
      return OutputMask(text, parsed.argument);
    case Family::Case:
      return ConvertCase(text, parsed.argument);
    case Family::Date:
      return OutputDate(text, parsed.argument);
    case Family::None:
      break;
  }
  return std::string(text);
}

std::string ConvertCase(std::string_view text, std::string_view letter) {
  std::string out(text);
  if (letter == "U") return UpperCase(std::move(out));
  if (letter == "L") return LowerCase(std::move(out));
  if (letter != "T") return out;
  bool wordBegins = true;
  for (char& c : out) {
    c = wordBegins ? UpperCase(c) : LowerCase(c);
    wordBegins = c == ' ';
  }
  return out;
}

}  // namespace quorvel
