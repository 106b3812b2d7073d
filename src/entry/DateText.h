#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// Dates as an operator enters them, and as serials: days after 30 December 1899, in the Gregorian
// calendar, for the years 100 to 9999.

struct CivilDate {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  bool operator==(const CivilDate&) const = default;
};

inline constexpr int kFirstSerial = -657434;  // 1 January 100
inline constexpr int kLastSerial = 2958465;   // 31 December 9999

// `serial` must stand between the first and the last one.
CivilDate DateOfSerial(int serial);
// Nothing for a day that does not exist.
std::optional<int> SerialOf(const CivilDate& date);

const char* MonthName(int month);      // "January" for 1
int WeekdayOfSerial(int serial);       // Monday 1 to Sunday 7
const char* WeekdayName(int weekday);  // "Monday" for 1

// The serial of a date text; nothing if it is none. Month first ("12/31/1967"), or day first where
// only that can be ("31/12/1967"); one of the two may be an English month name, full or its first
// three letters ("31 Dec 1967", "Dec 31, 1967"). One or two digits for the day, two or four for the
// year: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999; without a year it is `currentYear`.
// Between the parts stands one of "/-.:" or blanks, or both. Blanks may stand around it.
std::optional<int> ParseDate(std::string_view text, int currentYear);
// With today's year.
std::optional<int> ParseDate(std::string_view text);

// The date of today here, and as "mm/dd/yy".
CivilDate Today();
std::string TodayText();
// For tests: what Today() says from now on; nothing for the clock again.
void SetToday(std::optional<CivilDate> date);

// The last two digits of a number, for day, month and year ("07").
std::string TwoDigits(int number);

}  // namespace quorvel
