#include "demohost/Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "demohost/Record.h"

namespace quorvel::demohost {
namespace {

constexpr std::chrono::sys_days kDayZero{std::chrono::year{1967} / 12 / 31};
constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr long long kLargestEntry = 9'999'999;
constexpr long long kLargestNumber = 1'000'000'000'000;
constexpr long long kLargestResult = 1'000 * kLargestNumber;

std::string TwoDigits(int number) {
  std::string text = std::to_string(number);
  return text.size() < 2 ? "0" + text : text;
}

std::string ShowMoney(long long cents) {
  std::string text = std::to_string(cents < 0 ? -cents : cents);
  if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
  text.insert(text.size() - 2, ".");
  for (auto place = text.size() - 3; place > 3;) text.insert(place -= 3, ",");
  return cents < 0 ? "-" + text : text;
}

std::string ShowDay(long long dayNumber) {
  // A record may hold anything; beyond this range a calendar says nothing.
  if (dayNumber < -100'000 || dayNumber > 1'000'000) return std::to_string(dayNumber);
  const std::chrono::year_month_day date{kDayZero + std::chrono::days{dayNumber}};
  return ShowDate({static_cast<int>(date.year()),
                   static_cast<int>(static_cast<unsigned>(date.month())),
                   static_cast<int>(static_cast<unsigned>(date.day()))});
}

std::optional<long long> Digits(std::string_view text) {
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || text.front() == '-' || error != std::errc() ||
      end != text.data() + text.size() || number > kLargestEntry)
    return std::nullopt;
  return number;
}

std::optional<std::string> EnterMoney(std::string_view entry) {
  const auto point = entry.find('.');
  const auto units = Digits(entry.substr(0, point));
  if (!units) return std::nullopt;
  if (point == std::string_view::npos) return std::to_string(*units * 100);
  std::string cents(entry.substr(point + 1));
  if (cents.size() == 1) cents += '0';
  const auto fraction = Digits(cents);
  if (cents.size() != 2 || !fraction) return std::nullopt;
  return std::to_string(*units * 100 + *fraction);
}

}  // namespace

std::string Show(Form form, std::string_view stored) {
  if (stored.empty() || form == Form::Text) return std::string(stored);
  const auto number = Number(stored);
  if (form == Form::Money) return ShowMoney(number);
  if (form == Form::Date) return ShowDay(number);
  return std::to_string(number);
}

std::optional<std::string> Enter(Form form, std::string_view entry) {
  if (form == Form::Text) return std::string(entry);
  if (form == Form::Money) return EnterMoney(entry);
  const auto number = Digits(entry);
  if (!number || form != Form::Whole) return std::nullopt;
  return std::to_string(*number);
}

long long Number(std::string_view stored) {
  long long number = 0;
  const auto [end, error] = std::from_chars(stored.data(), stored.data() + stored.size(), number);
  const bool fits = number > -kLargestNumber && number < kLargestNumber;
  return error == std::errc() && end == stored.data() + stored.size() && fits ? number : 0;
}

long long Plus(long long a, long long b) {
  return std::clamp(a + b, -kLargestResult, kLargestResult);
}

long long Times(long long a, long long b) {
  const auto size = [](long long n) { return n < 0 ? -n : n; };
  if (a != 0 && size(b) > kLargestResult / size(a))
    return (a < 0) == (b < 0) ? kLargestResult : -kLargestResult;
  return a * b;
}

long long DayNumber(const DateTime& date) {
  const std::chrono::sys_days day{std::chrono::year{date.year} / date.month / date.day};
  return (day - kDayZero).count();
}

std::string ShowDate(const DateTime& date) {
  const auto month = static_cast<std::size_t>(date.month - 1) % kMonths.size();
  return TwoDigits(date.day) + " " + kMonths[month] + " " + std::to_string(date.year);
}

std::string ShowShortDate(long long dayNumber) {
  const std::chrono::year_month_day date{kDayZero + std::chrono::days{dayNumber}};
  return TwoDigits(static_cast<int>(static_cast<unsigned>(date.month()))) + "/" +
         TwoDigits(static_cast<int>(static_cast<unsigned>(date.day()))) + "/" +
         TwoDigits(static_cast<int>(date.year()) % 100);
}

std::string ShowTime(const DateTime& date) {
  return TwoDigits(date.hour) + ":" + TwoDigits(date.minute) + ":" + TwoDigits(date.second);
}

std::string Clean(std::string_view text) {
  std::string clean(text);
  for (char& c : clean) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 250) c = ',';
    if (code < 32 || (code >= 127 && code < 160)) c = '.';
  }
  return clean;
}

std::string Left(std::string_view text, std::size_t width) {
  auto field = Clean(text.substr(0, width));
  field.append(width - field.size(), ' ');
  return field;
}

std::string Right(std::string_view text, std::size_t width) {
  if (text.size() > width) return std::string(width, '*');
  return std::string(width - text.size(), ' ') + Clean(text);
}

}  // namespace quorvel::demohost
