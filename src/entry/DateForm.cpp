// The date family of the conversions.

#include <cmath>

#include "entry/Conversions.h"
#include "entry/DateText.h"
#include "platform/NumberText.h"
#include "platform/PlainText.h"

namespace quorvel {
namespace {

// A day with what the forms show of it.
struct Day {
  explicit Day(int daySerial) : serial(daySerial), date(DateOfSerial(daySerial)) {}

  std::string Year() const { return TwoDigits(date.year / 100) + TwoDigits(date.year); }
  // The last n digits, or zeros ahead up to n.
  std::string YearCut(int n) const {
    const std::string year = Year();
    if (n > 4) return std::string(static_cast<std::size_t>(n - 4), '0') + year;
    return year.substr(static_cast<std::size_t>(4 - n));
  }
  // "dd mmm " for a year to follow.
  std::string DayAndMonth() const {
    return TwoDigits(date.day) + " " + std::string(MonthName(date.month), 3) + " ";
  }

  int serial;
  CivilDate date;
};

std::string LongForm(const Day& day, int n) {
  return UpperCase(day.DayAndMonth()) + day.YearCut(n);
}

// The year alone, for "Y" with a digit.
std::string YearForm(const Day& day, int n) {
  if (n == 0) return "0";
  return day.YearCut(n > 4 ? 4 : n);
}

std::string ShortForm(const Day& day, char c, int n) {
  switch (c) {
    case 'M':
      return std::to_string(day.date.month);
    case 'D':
      return TwoDigits(day.date.day);
    case 'Q':
      return std::to_string((day.date.month + 2) / 3);
    case 'J':
      return std::to_string(day.serial - *SerialOf({day.date.year, 1, 1}) + 1);
    case 'W':
      return std::to_string(WeekdayOfSerial(day.serial));
    case 'Y':
      return YearForm(day, n);
    default:
      break;
  }
  std::string text = TwoDigits(day.date.month) + c + TwoDigits(day.date.day);
  if (n > 0) text += c + day.YearCut(n);
  return text;
}

}  // namespace

std::string OutputDate(std::string_view text, std::string_view form) {
  const auto number = ParseNumber(text);
  // The whole part of a serial with a time of day in it, toward zero.
  const double serial = number ? std::trunc(*number + kDayZero) : 0;
  if (!number || serial < kFirstSerial || serial > kLastSerial || form.size() > 2) {
    return std::string(text);
  }
  const Day day(static_cast<int>(serial));
  if (form.empty()) return day.DayAndMonth() + day.Year();
  const char first = form[0];
  if (form.size() == 1) {
    return IsDigit(first) ? LongForm(day, first - '0') : ShortForm(day, first, 4);
  }
  const char second = form[1];
  if (IsDigit(first) && !IsDigit(second)) return ShortForm(day, second, first - '0');
  if (first == 'Y' && IsDigit(second)) return YearForm(day, second - '0');
  if (form == "MA") return UpperCase(MonthName(day.date.month));
  if (form == "WA") return UpperCase(WeekdayName(WeekdayOfSerial(day.serial)));
  return std::string(text);
}

}  // namespace quorvel
