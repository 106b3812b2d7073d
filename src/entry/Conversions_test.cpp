#include "entry/Conversions.h"

#include <gtest/gtest.h>

#include "entry/DateText.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

struct Row {
  std::string text, argument, result;
};

TEST(Conversions, NumbersIn) {
  const Row rows[] = {
      {"12.34", "2", "1234"},
      {"12.345", "2", "1235"},
      {"$1,234.50", "2", "123450"},
      {"0.5", "2", "50"},
      {"5", "3", "5000"},
      {"000", "2", "0"},
      {"12.5", "0", "13"},
      {"12.34", "20", "12"},
      {"12.34", "$2", ""},
      // masks
      {"12.5", "", "13"},
      {"12.5", "$", "13"},
      {"12.4", ",", "12"},
      {"12.5", ",$", ""},
      {"12.5", "x", ""},
      {"12.5", "2x", "1250"},
      {"12.5", "2,$", "1250"},
      {"12.5", "x2", ""},
      {"12.345", "02", "1235"},
      {"12.345", "025", "1235"},
      {"1", "9", "1000000000"},
      // what is no number
      {"", "2", ""},
      {"abc", "2", ""},
      {"1e3", "2", ""},
      {"12-", "2", ""},
      // zeros
      {"0", "0", "0"},
      {"0.00", "2", "00"},
      {"0.05", "2", "05"},
      {"0.4", "0", ""},
      {"0.5", "0", "1"},
      {".5", "0", "1"},
      {"0012", "0", "12"},
      {"100", "0", "100"},
      {" 7 ", "1", "70"},
      // below zero 1 is added all the same
      {"-12.7", "0", "-11"},
      {"-12.4", "0", "-12"},
      {"-0.7", "0", "1"},
      {"-.7", "0", "1"},
      {"-5", "2", "-500"},
      {"$-1,234.50", "2", "-123450"},
      {"+5", "1", "50"},
      // fifteen digits of what had to be rounded; all of what had not
      {"1234567890123456789.5", "0", "1234567890123460000"},
      {"1234567890123456789", "2", "123456789012345678900"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(InputMask(row.text, row.argument), row.result) << row.text << " by " << row.argument;
  }
  const std::string large = "9." + std::string(400, '9');
  EXPECT_EQ(InputMask(large, "0"), "10");
  EXPECT_THROW(InputMask("1" + std::string(305, '0') + ".0000000005", "9"), RuntimeError);
}

TEST(Conversions, NumbersOut) {
  const Row rows[] = {
      {"1234", "2", "12.34"},
      {"123456", "2,$", "$1,234.56"},
      {"1234567", "0,", "1,234,567"},
      {"1234", "20", "1234.00"},
      {"1256", "02", "13"},
      {"5", "2", "0.05"},
      {"1234", "x", "1234"},
      // masks
      {"1234", "", "1234"},
      {"1234", ",", "1,234"},
      {"1234", "$", "$1234"},
      {"1234", "$,", "$1,234"},
      {"1234", ",$,$$", "$1,234"},
      {"1234", "2$,", "$12.34"},
      {"1234", "$2", "1234"},
      {"1234", "2$2", "1234"},
      {"1234", "222", "1234"},
      {"1234", "2x", "1234"},
      {"1234", "22", "12.34"},
      {"1234", "32", "12.340"},
      {"1234", "12", "12.3"},
      {"1250", "12", "12.5"},
      {"1255", "12", "12.6"},
      {"1", "9", "0.000000001"},
      {"1", "09", "0"},
      {"123456789", "09,", "0"},
      // what is no number stays; one that is, is written anew
      {"", "2", ""},
      {"abc", "2", "abc"},
      {"0012", "0", "12"},
      {"$1,234", "0", "1234"},
      {"1.", "0", "1"},
      // rounding goes up in the last place that is kept
      {"1234.5", "2", "12.35"},
      {"-1234.5", "2", "-12.33"},
      {"-1234.4", "2", "-12.34"},
      {"0.5", "0", "1"},
      {"-0.5", "0", "0"},
      {"9.99", "0", "10"},
      {"99.99", "1", "10.0"},
      {"-4", "01", "-0"},
      {"-6", "01", "0"},
      // twice: to the scale, then to what is shown
      {"12.45", "01", "1"},
      {"14.5", "01", "2"},
      // groups; the sign counts
      {"-123", "0,", "-,123"},
      {"-1234", "0,", "-1,234"},
      {"-123456", "2,$", "$-1,234.56"},
      {"-12345", "2,$", "$-,123.45"},
      {"123", "0,", "123"},
      {"123456", "0,", "123,456"},
      {"1234567890123456789", "0,", "1,234,567,890,123,460,000"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(OutputMask(row.text, row.argument), row.result) << row.text << " by " << row.argument;
    // What the operator sees passes the number test untouched.
    EXPECT_EQ(IsNumeric(OutputMask(row.text, row.argument)), IsNumeric(row.text)) << row.text;
  }
}

TEST(Conversions, DatesOut) {
  const Row rows[] = {
      {"0", "", "31 Dec 1967"},
      {"0", "2", "31 DEC 67"},
      {"0", "/", "12/31/1967"},
      {"0", "2/", "12/31/67"},
      {"0", "2-", "12-31-67"},
      {"0", "0/", "12/31"},
      {"0", "Y", "1967"},
      {"0", "2Y", "67"},
      {"0", "Y2", "67"},
      {"0", "M", "12"},
      {"0", "MA", "DECEMBER"},
      {"0", "D", "31"},
      {"0", "Q", "4"},
      {"0", "J", "365"},
      {"0", "W", "7"},
      {"0", "WA", "SUNDAY"},
      // 1 to 3 January and 29 February 1968, a leap year
      {"1", "", "01 Jan 1968"},
      {"1", "/", "01/01/1968"},
      {"1", "M", "1"},
      {"1", "D", "01"},
      {"1", "Q", "1"},
      {"1", "J", "1"},
      {"1", "W", "1"},
      {"2", "WA", "TUESDAY"},
      {"60", "J", "60"},
      {"60", "MA", "FEBRUARY"},
      {"366", "J", "366"},
      // years cut and padded
      {"0", "0", "31 DEC "},
      {"0", "4", "31 DEC 1967"},
      {"0", "6", "31 DEC 001967"},
      {"0", "9/", "12/31/000001967"},
      {"0", "1.", "12.31.7"},
      {"0", "Y0", "0"},
      {"0", "0Y", "0"},
      {"0", "Y3", "967"},
      {"0", "Y9", "1967"},
      {"0", "9Y", "1967"},
      // a letter that is no form separates too
      {"0", "2X", "12X31X67"},
      {"0", "X", "12X31X1967"},
      {"0", "2M", "12"},
      {"0", "2 ", "12 31 67"},
      // no form
      {"0", "22", "0"},
      {"0", "/2", "0"},
      {"0", "M2", "0"},
      {"0", "MM", "0"},
      {"0", "YA", "0"},
      {"0", "2//", "0"},
      {"0", "MAA", "0"},
      // no day
      {"", "2/", ""},
      {"abc", "2/", "abc"},
      {"1e3", "2/", "1e3"},
      // days with a time, far days
      {"0.9", "/", "12/31/1967"},
      {"-1", "/", "12/30/1967"},
      {"-24838.5", "/", "12/29/1899"},
      {"-682271", "/", "01/01/0100"},
      {"-682272", "/", "-682272"},
      {"2933628", "/", "12/31/9999"},
      {"2933629", "/", "2933629"},
      {"9" + std::string(300, '9'), "2", "9" + std::string(300, '9')},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(OutputDate(row.text, row.argument), row.result) << row.text << " by " << row.argument;
  }
}

TEST(Conversions, Case) {
  const Row rows[] = {
      {"ab Cd", "U", "AB CD"},
      {"ab Cd", "L", "ab cd"},
      {"  the QUICK  bROWN fox ", "T", "  The Quick  Brown Fox "},
      {"o'neil-smith", "T", "O'neil-smith"},
      {"ab", "X", "ab"},
      {"ab", "", "ab"},
      {"ab", "UX", "ab"},
      {"", "T", ""},
      // Windows-1252; the marks of records are no letters, and no letter becomes one
      {"\xE9\xF1\x9C\xDF\xF7", "U", "\xC9\xD1\x8C\xDF\xF7"},
      {"\xC9T\xC9 \xE0", "T", "\xC9t\xE9 \xC0"},
      {"\xFA\xFC\xFD\xFE", "U", "\xFA\xFC\xFD\xFE"},
      {"\xDA\xDC\xDD\xDE\xDB", "L", "\xDA\xDC\xDD\xDE\xFB"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ConvertCase(row.text, row.argument), row.result) << row.text;
  }
}

TEST(Conversions, CodesChooseTheFamily) {
  SetToday(CivilDate{2026, 11, 22});
  const struct {
    const char *text, *code, *in, *out;
  } rows[] = {
      {"12", "", "", "12"},
      {"12", "MR2", "1200", "0.12"},
      {"12", "md2", "1200", "0.12"},
      {"12", "mr", "12", "12"},
      {"12", "MR$2", "", "12"},
      {"", "MR2", "", ""},
      {"x", "MR2", "", "x"},
      {"", "MCU", "", ""},
      {"aB", "mcu", "AB", "AB"},
      {"aB", "MCL", "ab", "ab"},
      {"aB", "MCt", "Ab", "Ab"},
      {"aB", "MC", "aB", "aB"},
      {"aB", "M", "aB", "aB"},
      {"aB", "MX", "aB", "aB"},
      {"aB", "G1", "aB", "aB"},
      {"", "X", "", ""},
      {"12/31/67", "D2/", "0", "12/31/67"},
      {"12.31.67", "d", "0", "12.31.67"},
      {"1:1:1968", "DWA", "1", "1:1:1968"},
      {"31 DEC 67", "Dzzzz", "0", "31 DEC 67"},
      {"1/1", "D", "21186", "1/1"},
      {"2/30/67", "D2/", "", "2/30/67"},
      {"", "D2/", "", ""},
      {"0", "d2/", "", "12/31/67"},
      {"0", "dwa", "", "SUNDAY"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(InputConv(row.text, row.code), row.in) << row.text << " in " << row.code;
    EXPECT_EQ(OutputConv(row.text, row.code), row.out) << row.text << " out " << row.code;
  }
  SetToday(std::nullopt);
}

TEST(Conversions, WhatIsShownComesBack) {
  for (const char* code : {"MR", "MR0,", "MR2", "MR2,", "MR2,$", "MD3", "MR22", "MR42"}) {
    for (const char* value : {"1", "12", "123", "1234567", "-1", "-100", "-123456", "-1234567"}) {
      const std::string back = InputConv(OutputConv(value, code), code);
      EXPECT_EQ(NumberOf(back), NumberOf(value)) << value << " by " << code << ": " << back;
    }
  }
  for (const char* code : {"D", "D2", "D4", "D/", "D2/", "D2-", "D4.", "D4:", "D2 "}) {
    for (int day = -13000; day < 22000; day += 61) {  // within two-digit years
      const std::string shown = OutputConv(std::to_string(day), code);
      EXPECT_EQ(InputConv(shown, code), std::to_string(day)) << code << ": " << shown;
    }
  }
}

// Texts of any length take time in proportion; the square of it would outlast the test's limit.
TEST(Conversions, LongTexts) {
  const std::size_t size = 1 << 18;
  for (const char* piece : {"9", "0", ".", ",", "-", " ", "a b ", "1/", "$"}) {
    std::string text;
    while (text.size() < size) text += piece;
    for (const char* code : {"MR2,$", "MR09", "MCT", "D2/", "D"}) {
      EXPECT_LE(InputConv(text, code).size(), text.size() + 9);
      EXPECT_LE(OutputConv(text, code).size(), text.size());
      EXPECT_LE(OutputConv("5", code + text).size(), 32u);
    }
  }
  EXPECT_EQ(OutputConv("0." + std::string(size, '1'), "MR2"), "0.00");
  EXPECT_EQ(InputConv(std::string(size, '0') + "7", "MR2"), "700");
}

}  // namespace
}  // namespace quorvel
