#include "platform/NumberText.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

TEST(NumberText, WhatIsANumberAndItsValue) {
  const struct {
    std::string text;
    double value;
  } numbers[] = {
      {"0", 0},
      {"12", 12},
      {"12.5", 12.5},
      {".5", .5},
      {"5.", 5},
      {" 7 ", 7},
      {"-3", -3},
      {"+3", 3},
      {"$4", 4},
      {"-$4", -4},
      {"$-4", -4},
      {"1,234.50", 1234.5},
      {"-,123", -123},
      {"1,,2", 12},
      {",5", 5},
      {"$-1,234.50", -1234.5},
      {"007", 7},
      {",.5", .5},
      {"$1,234.50", 1234.5},
      {std::string(300, '0') + "1", 1},
      {"0." + std::string(400, '0') + "1", 0},
      {"1" + std::string(308, '0'), 1e308},
  };
  for (const auto& n : numbers) {
    EXPECT_TRUE(IsNumeric(n.text)) << n.text;
    EXPECT_EQ(NumberOf(n.text), n.value) << n.text;
  }
  const std::string none[] = {"",
                              " ",
                              ".",
                              "-",
                              "$",
                              "-$",
                              "abc",
                              "1a",
                              "1e5",
                              "1E5",
                              "(5)",
                              "5-",
                              "5+",
                              "5$",
                              "&H10",
                              "--5",
                              "+-5",
                              "$$5",
                              "- 5",
                              "$ 5",
                              "1.2.3",
                              "1.2,3",
                              "1 2",
                              "nan",
                              "inf",
                              "-inf",
                              "0x1",
                              "1\t",
                              "\xB2",
                              "1\xA0",
                              std::string("1\0", 2),
                              "1" + std::string(309, '0'),
                              "-9" + std::string(400, '9')};
  for (const std::string& text : none) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(NumberOf(text), 0) << text;
  }
}

TEST(NumberText, PlainFormHasAtMostFifteenDigits) {
  const struct {
    double number;
    std::string text;
  } cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-12.5, "-12.5"},
      {.05, "0.05"},
      {-.5, "-0.5"},
      {.1 + .2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2e6 / 3, "666666.666666667"},
      {123456789012345678.0, "123456789012346000"},
      {999999999999999.9, "1000000000000000"},
      {1e-20, "0.00000000000000000001"},
      {1e308, "1" + std::string(308, '0')},
      {std::numeric_limits<double>::min(), "0." + std::string(307, '0') + "222507385850720"},
  };
  for (const auto& c : cases) {
    std::string expected = c.text;
    if (expected.size() > 320) expected.erase(expected.find_last_not_of('0') + 1);
    EXPECT_EQ(PlainNumber(c.number), expected);
  }
  EXPECT_THROW(PlainNumber(HUGE_VAL), RuntimeError);
  EXPECT_THROW(PlainNumber(std::nan("")), RuntimeError);
}

}  // namespace
}  // namespace quorvel
