#include "entry/DateText.h"

#include <array>
#include <chrono>
#include <ctime>
#include <utility>

#include "platform/PlainText.h"

namespace quorvel {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days kSerialZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                  "Friday", "Saturday", "Sunday"};

std::optional<CivilDate> g_today;

sys_days DayOf(int serial) {
  return kSerialZero + days(serial);
}

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// One part of a date text: a number of one to four digits, or a month's name.
struct Part {
  int number = 0;
  std::size_t digits = 0;  // 0 for a name
};

bool EqualLetters(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if ((a[i] | 0x20) != (b[i] | 0x20)) return false;
  }
  return true;
}

int MonthOf(std::string_view name) {
  for (int month = 1; month <= 12; ++month) {
    const std::string_view full = MonthName(month);
    if (EqualLetters(name, full) || EqualLetters(name, full.substr(0, 3))) return month;
  }
  return 0;
}

// What stands at the front of `text` and belongs together.
std::string_view TakeRun(std::string_view& text, bool (*belongs)(char)) {
  std::size_t size = 0;
  while (size < text.size() && belongs(text[size])) ++size;
  const std::string_view run = text.substr(0, size);
  text.remove_prefix(size);
  return run;
}

std::optional<Part> TakePart(std::string_view& text) {
  if (const std::string_view digits = TakeRun(text, IsDigit); !digits.empty()) {
    if (digits.size() > 4) return std::nullopt;
    Part part{0, digits.size()};
    for (const char c : digits) part.number = part.number * 10 + (c - '0');
    return part;
  }
  const int month = MonthOf(TakeRun(text, IsLetter));
  if (month == 0) return std::nullopt;
  return Part{month, 0};
}

// Takes blanks, one of `marks`, and blanks; false if there is none of it.
bool TakeSeparator(std::string_view& text, std::string_view marks) {
  const auto isBlank = [](char c) { return c == ' '; };
  const std::size_t before = text.size();
  TakeRun(text, isBlank);
  if (!text.empty() && marks.find(text[0]) != std::string_view::npos) text.remove_prefix(1);
  TakeRun(text, isBlank);
  return text.size() != before;
}

struct Parts {
  std::array<Part, 3> part;
  std::size_t count = 0;
};

// Two or three parts; none if the text is anything else.
Parts PartsOf(std::string_view text) {
  text = Trimmed(text);
  if (text.empty()) return {};
  Parts parts;
  while (true) {
    const auto part = TakePart(text);
    if (!part) return {};
    parts.part[parts.count++] = *part;
    if (text.empty()) break;
    // "Dec 31, 1967"
    const bool commaToo =
        parts.count == 2 && (parts.part[0].digits == 0 || parts.part[1].digits == 0);
    if (parts.count == 3 || !TakeSeparator(text, commaToo ? "/-.:," : "/-.:")) return {};
  }
  if (parts.count < 2) return {};
  return parts;
}

std::optional<int> FullYear(const Part& year) {
  if (year.digits == 4) return year.number;
  if (year.digits != 2) return std::nullopt;
  return year.number < 30 ? 2000 + year.number : 1900 + year.number;
}

std::optional<int> SerialOfParts(const Parts& parts, int currentYear) {
  if (parts.count == 0) return std::nullopt;
  Part month = parts.part[0];
  Part day = parts.part[1];
  const auto isMonth = [](int number) { return number >= 1 && number <= 12; };
  const bool dayFirst =
      month.digits != 0 && (day.digits == 0 || (!isMonth(month.number) && isMonth(day.number)));
  if (dayFirst) std::swap(month, day);
  if (day.digits == 0 || day.digits > 2 || month.digits > 2) return std::nullopt;
  const std::optional<int> year = parts.count == 3 ? FullYear(parts.part[2]) : currentYear;
  if (!year) return std::nullopt;
  return SerialOf({*year, month.number, day.number});
}

}  // namespace

CivilDate DateOfSerial(int serial) {
  const std::chrono::year_month_day date(DayOf(serial));
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::optional<int> SerialOf(const CivilDate& date) {
  if (date.year < 100 || date.year > 9999 || date.month < 1 || date.day < 1) return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year(date.year),
                                        std::chrono::month(static_cast<unsigned>(date.month)),
                                        std::chrono::day(static_cast<unsigned>(date.day))};
  if (!day.ok()) return std::nullopt;
  return static_cast<int>((sys_days(day) - kSerialZero).count());
}

const char* MonthName(int month) {
  return kMonths.at(static_cast<std::size_t>(month - 1));
}

int WeekdayOfSerial(int serial) {
  return static_cast<int>(std::chrono::weekday(DayOf(serial)).iso_encoding());
}

const char* WeekdayName(int weekday) {
  return kWeekdays.at(static_cast<std::size_t>(weekday - 1));
}

std::optional<int> ParseDate(std::string_view text, int currentYear) {
  return SerialOfParts(PartsOf(text), currentYear);
}

std::optional<int> ParseDate(std::string_view text) {
  const Parts parts = PartsOf(text);
  // Asking for today reads the rules of the time zone: twenty times the work of the rest.
  return SerialOfParts(parts, parts.count == 2 ? Today().year : 0);
}

CivilDate Today() {
  if (g_today) return *g_today;
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  if (!local) return DateOfSerial(0);
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday};
}

std::string TodayText() {
  const CivilDate today = Today();
  return TwoDigits(today.month) + "/" + TwoDigits(today.day) + "/" + TwoDigits(today.year);
}

void SetToday(std::optional<CivilDate> date) {
  g_today = date;
}

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

}  // namespace quorvel
