#include "entry/DateText.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(DateText, SerialsFollowTheCalendar) {
  // The epoch of the serials, the days of its end, and leap years by the rule of the centuries.
  const struct {
    CivilDate date;
    int serial, weekday;
  } cases[] = {
      {{1899, 12, 30}, 0, 6},         {{1900, 1, 1}, 2, 1},
      {{1967, 12, 31}, 24837, 7},     {{1970, 1, 1}, 25569, 4},
      {{2000, 2, 29}, 36585, 2},      {{2000, 3, 1}, 36586, 3},
      {{100, 1, 1}, kFirstSerial, 5}, {{9999, 12, 31}, kLastSerial, 5},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(SerialOf(c.date), c.serial);
    EXPECT_EQ(DateOfSerial(c.serial), c.date) << c.serial;
    EXPECT_EQ(WeekdayOfSerial(c.serial), c.weekday) << c.serial;
  }
  for (const CivilDate& none : {CivilDate{1900, 2, 29},
                                {1967, 0, 1},
                                {1967, 13, 1},
                                {1967, 1, 0},
                                {1967, 4, 31},
                                {99, 1, 1},
                                {10000, 1, 1},
                                {-5, 1, 1}}) {
    EXPECT_EQ(SerialOf(none), std::nullopt) << none.year << ' ' << none.month << ' ' << none.day;
  }
}

TEST(DateText, WhatIsADate) {
  const struct {
    const char* text;
    CivilDate date;
  } dates[] = {
      {"12/31/1967", {1967, 12, 31}},
      {"12/31/67", {1967, 12, 31}},
      {"12-31-67", {1967, 12, 31}},
      {"12.31.67", {1967, 12, 31}},
      {"12:31:67", {1967, 12, 31}},
      {"12 31 67", {1967, 12, 31}},
      {" 12 / 31 - 67 ", {1967, 12, 31}},
      {"1/2/05", {2005, 1, 2}},
      {"01/02/2005", {2005, 1, 2}},
      {"12/31", {2024, 12, 31}},
      {"2/29", {2024, 2, 29}},
      {"1.2", {2024, 1, 2}},
      {"12:31", {2024, 12, 31}},
      {"31/12/67", {1967, 12, 31}},
      {"13/12", {2024, 12, 13}},
      {"12/13/14", {2014, 12, 13}},
      {"1/1/29", {2029, 1, 1}},
      {"1/1/30", {1930, 1, 1}},
      {"1/1/00", {2000, 1, 1}},
      {"1/1/99", {1999, 1, 1}},
      {"1/1/0100", {100, 1, 1}},
      {"12/31/9999", {9999, 12, 31}},
      {"31 Dec 1967", {1967, 12, 31}},
      {"Dec 31, 1967", {1967, 12, 31}},
      {"31 DECEMBER 67", {1967, 12, 31}},
      {"december 31 67", {1967, 12, 31}},
      {"31-dec-67", {1967, 12, 31}},
      {"Dec. 31, 1967", {1967, 12, 31}},
      {"5 may", {2024, 5, 5}},
      {"May 5", {2024, 5, 5}},
      {"29 Feb 2000", {2000, 2, 29}},
      {"31 DEC ", {2024, 12, 31}},
  };
  for (const auto& d : dates) {
    EXPECT_EQ(ParseDate(d.text, 2024), SerialOf(d.date)) << d.text;
  }
  const std::string none[] = {"",
                              " ",
                              "12",
                              "1967",
                              "/",
                              "12/",
                              "/12/31",
                              "12/31/",
                              "12//31",
                              "12/31/196",
                              "12/31/7",
                              "12/31/01967",
                              "2/30/67",
                              "4/31/67",
                              "0/5/67",
                              "5/0/67",
                              "13/13/67",
                              "2/29/1900",
                              "2/29/67",
                              "13/31",
                              "x12/31/67",
                              "12/31/67x",
                              "12/31/67 .",
                              "12/31/67/1",
                              "012/31/67",
                              "1967-12-31",
                              "12,31,67",
                              "31Dec1967",
                              "Decem 3",
                              "D 3 67",
                              "Dec Dec 67",
                              "31 31 Dec",
                              "Dec 1967",
                              "Dec",
                              "Dec 32 67",
                              "12/31/0099",
                              "12\t31\t67",
                              "-1/2/67",
                              "12/31/+67",
                              "12/31/67,",
                              "Sun 31 Dec 67",
                              "99999999999999999999/1/1",
                              "31 D\xC9K 67",
                              std::string("1/1\0", 4)};
  for (const std::string& text : none) {
    EXPECT_EQ(ParseDate(text, 2024), std::nullopt) << text;
  }
  EXPECT_EQ(ParseDate("2/29", 2023), std::nullopt);
}

TEST(DateText, TodayIsOfTheClockOrOfATest) {
  EXPECT_TRUE(ParseDate(TodayText()).has_value());
  EXPECT_EQ(SerialOf(Today()), ParseDate(TodayText()));
  SetToday(CivilDate{2007, 3, 9});
  EXPECT_EQ(TodayText(), "03/09/07");
  EXPECT_EQ(ParseDate("2/1"), SerialOf({2007, 2, 1}));
  SetToday(std::nullopt);
}

}  // namespace
}  // namespace quorvel
