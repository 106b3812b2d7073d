// The conversions, the number test and the date parser under any text and code. The input is a
// code, a line end, and a text.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "entry/Conversions.h"
#include "entry/DateText.h"
#include "link/Marks.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

// The longest number is written with 309 digits, or 323 zeros ahead of fifteen, grouped and padded.
constexpr std::size_t kLongestNumber = 500;

void CheckNumber(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number) return;
  const std::string plain = PlainNumber(*number);
  const auto again = ParseNumber(plain);
  Require(again.has_value(), "the plain form is a number");
  Require(std::fabs(*again - *number) <= std::fabs(*number) * 1e-14 || std::fabs(*number) < 1e-300,
          "the plain form has fifteen digits");
  Require(PlainNumber(*again) == plain || std::fabs(*number) < 1e-300,
          "the plain form says itself");
}

void CheckDate(std::string_view text) {
  const auto serial = ParseDate(text, 2024);
  if (!serial) return;
  Require(*serial >= kFirstSerial && *serial <= kLastSerial, "serials stay in the calendar");
  const CivilDate date = DateOfSerial(*serial);
  Require(SerialOf(date) == serial, "there and back");
  const std::string shown = OutputDate(std::to_string(*serial - kDayZero), "/");
  Require(ParseDate(shown, 1) == serial, "what is shown is the date");
  std::string slashes(text);
  std::replace(slashes.begin(), slashes.end(), '.', '/');
  std::replace(slashes.begin(), slashes.end(), ':', '/');
  Require(ParseDate(slashes, 2024) == serial, "points and colons separate as slashes do");
}

std::ptrdiff_t Marks(std::string_view text) {
  return std::count_if(text.begin(), text.end(),
                       [](char c) { return c == AM || c == VM || c == SVM || c == FS; });
}

void CheckCase(std::string_view text) {
  for (const char* letter : {"U", "L", "T"}) {
    const std::string once = ConvertCase(text, letter);
    Require(once.size() == text.size(), "case keeps the length");
    Require(ConvertCase(once, letter) == once, "the second time changes nothing");
    Require(Marks(once) == Marks(text), "case makes no mark and loses none");
  }
}

void CheckCode(std::string_view text, std::string_view code) {
  const std::string shown = OutputConv(text, code);
  Require(shown.size() <= std::max(text.size(), kLongestNumber), "nothing grows");
  const bool numeric = code.size() > 1 && (code.starts_with("MR") || code.starts_with("md"));
  if (numeric) Require(IsNumeric(shown) == IsNumeric(text), "a number is shown as a number");
  try {
    const std::string stored = InputConv(text, code);
    Require(stored.size() <= text.size() + kLongestNumber, "nothing grows");
    if (numeric) Require(stored.empty() || IsNumeric(text), "only numbers are stored");
  } catch (const RuntimeError& error) {
    Require(error.failure() == Failure::Overflow, "no other failure");
  }
}

}  // namespace
}  // namespace quorvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvel;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string_view code = input.substr(0, end);
  const std::string_view text = input.substr(std::min(end + 1, input.size()));
  CheckNumber(text);
  CheckDate(text);
  CheckCase(text);
  CheckCode(text, code);
  return 0;
}
