#include "link/Records.h"

#include <random>

#include <gtest/gtest.h>

#include "link/Marks.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

// Records in the tests are written with "^" for AM, "]" for VM and "\\" for SVM.
std::string Record(std::string text) {
  for (char& c : text) c = c == '^' ? AM : c == ']' ? VM : c == '\\' ? SVM : c;
  return text;
}

int FailureOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
  return 0;
}

TEST(Marks, AreTheCharactersOfTheHost) {
  EXPECT_EQ(std::string({AM, VM, SVM, FS, CR, LF}), "\xFE\xFD\xFC\xFA\x0D\x0A");
  EXPECT_EQ(CRLF, "\x0D\x0A");
  EXPECT_EQ(BookmarkMark, "\xB6  ");
}

TEST(Records, FieldOf) {
  const struct {
    std::string text, delimiter;
    std::int16_t n;
    std::string field;
  } cases[] = {
      {"a:b", ":", 1, "a"},
      {"a:b", ":", 2, "b"},
      {"a:b", ":", 3, ""},
      {"a:b", ":", 0, ""},
      {"a:b", ":", -1, ""},
      {":b", ":", 1, ""},
      {"ab", ":", 1, "ab"},
      {"ab", ":", 2, ""},
      {"", ":", 1, ""},
      {"a::c", ":", 2, ""},
      {"a::c", ":", 3, "c"},
      {"a:", ":", 1, "a"},
      {"a:", ":", 2, ""},
      {":", ":", 1, ""},
      {"a", "", 1, ""},
      // A delimiter of two characters is always put behind the text first.
      {"a::b", "::", 2, "b"},
      {"a::", "::", 2, ""},
      {"a:", "::", 1, "a"},
      {"a:::", "::", 2, ""},
      {"a::b:", "::", 2, "b"},
      {"aXYXY", "XYX", 1, "a"},
      {"aXY", "XYXZ", 1, "aXY"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FieldOf(c.text, c.delimiter, c.n), c.field)
        << c.text << " by " << c.delimiter << ", " << c.n;
  }
}

TEST(Records, Counts) {
  EXPECT_EQ(CountOf("", AM), 0);
  EXPECT_EQ(DCountOf("", AM), 1);
  EXPECT_EQ(CountOf("a:b:", ":"), 2);
  EXPECT_EQ(DCountOf("a:b:", ":"), 3);
  EXPECT_EQ(CountOf("aaaaa", "aa"), 2);  // without overlap
  EXPECT_EQ(CountOf(std::string(32767, ':'), ':'), 32767);
  EXPECT_EQ(FailureOf([] { CountOf(std::string(32768, ':'), ':'); }), 6);
  EXPECT_EQ(FailureOf([] { DCountOf(std::string(32767, ':'), ':'); }), 6);
  EXPECT_EQ(FailureOf([] { CountOf("abc", ""); }), 5);
}

TEST(Records, LocateIn) {
  const struct {
    std::string value, text, delimiter;
    int place;
  } cases[] = {
      {"b", "a:b:b", ":", 2}, {"", "", ":", 1},        {"", "a:", ":", 2},
      {"", "a", ":", -1},     {"B", "a:b", ":", -1},   {"b", "abc", ":", -1},
      {"c", "a:b:c", ":", 3}, {"b", "a::b:", "::", 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LocateIn(c.value, c.text, c.delimiter), c.place) << c.value << " in " << c.text;
  }
}

// What the helpers tell about one text must agree, whatever the text.
TEST(Records, FieldsCountsAndFieldOfAgree) {
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 12, ' ');
    for (char& c : text) c = "ab:"[random() % 3];
    const std::string delimiter = round % 2 ? ":" : "ab";
    std::vector<std::string> fields;
    for (const std::string_view field : Fields(text, delimiter)) fields.emplace_back(field);
    ASSERT_EQ(fields.size(), static_cast<std::size_t>(DCountOf(text, delimiter))) << text;
    std::string joined;
    for (std::size_t i = 0; i < fields.size(); ++i) joined += (i ? delimiter : "") + fields[i];
    ASSERT_EQ(joined, text);
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
      ASSERT_EQ(FieldOf(text, delimiter, static_cast<std::int16_t>(i + 1)), fields[i]) << text;
    }
    ASSERT_EQ(FieldOf(text, delimiter, static_cast<std::int16_t>(fields.size() + 1)), "") << text;
  }
}

// The rule as it is told: the first occurrence from the front, again and again.
std::string SwapSlowly(const std::string& from, const std::string& to, std::string text) {
  for (int i = 0; i < 1000; ++i) {
    const auto hit = text.find(from);
    if (hit == std::string::npos) return text;
    text.replace(hit, from.size(), to);
  }
  return "does not end";
}

TEST(Records, SwapAllReplacesFromTheFrontUntilNoneIsLeft) {
  std::string text = "laaaame";
  EXPECT_EQ(&SwapAll("aa", "a", text), &text);
  EXPECT_EQ(text, "lame");
  EXPECT_EQ(SwapAll("", "x", text), "lame");
  EXPECT_EQ(SwapAll("a", "", text), "lme");
  EXPECT_EQ(FailureOf([&] { SwapAll("m", "mm", text); }), 5);
  text = "abb";
  EXPECT_EQ(FailureOf([&] { SwapAll("ab", "bbaa", text); }), 7);  // never ends
  EXPECT_EQ(text, "abb");

  std::mt19937 random(11);
  const auto word = [&](unsigned longest) {
    std::string made(random() % (longest + 1), ' ');
    for (char& c : made) c = "abc"[random() % 3];
    return made;
  };
  int compared = 0;
  while (compared < 3000) {
    const std::string from = word(3), to = word(3), before = word(14);
    if (from.empty() || to.find(from) != std::string::npos) continue;
    const std::string expected = SwapSlowly(from, to, before);
    if (expected == "does not end") continue;
    std::string after = before;
    ASSERT_EQ(SwapAll(from, to, after), expected) << from << " by " << to << " in " << before;
    ++compared;
  }
}

// Larger than the number of replacements that is allowed for a pair that may not end.
TEST(Records, SwapAllTakesLongTexts) {
  std::string text(1'500'000, AM);
  SwapAll(std::string(1, AM), "", text);
  EXPECT_EQ(text, "");
  text.assign(500'000, AM);
  SwapAll(std::string(1, AM), CRLF, text);
  EXPECT_EQ(text.size(), 1'000'000u);
}

TEST(Records, ExtractOf) {
  const std::string record = Record("a^b]c\\d]e^f");
  EXPECT_EQ(ExtractOf(record, 0, 0, 0), record);
  EXPECT_EQ(ExtractOf(record, 2, 0, 0), Record("b]c\\d]e"));
  EXPECT_EQ(ExtractOf(record, 2, 2, 0), Record("c\\d"));
  EXPECT_EQ(ExtractOf(record, 2, 2, 2), "d");
  EXPECT_EQ(ExtractOf(record, 3, 1, 1), "f");
  EXPECT_EQ(ExtractOf(record, 4, 0, 0), "");
  EXPECT_EQ(ExtractOf(record, -1, 0, 0), "");
  EXPECT_EQ(ExtractOf(record, 0, 2, 0), Record("c\\d"));
}

TEST(Records, ReplaceOf) {
  const struct {
    std::string record;
    std::int16_t attr, value, subvalue;
    std::string result;
  } cases[] = {
      {"a^b^c", 2, 0, 0, "a^x^c"},
      {"a^b]c^d", 2, 2, 0, "a^b]x^d"},
      {"a^b]c\\d^e", 2, 2, 1, "a^b]x\\d^e"},
      {"a^b]c\\d^e", 2, 0, 0, "a^x^e"},
      // marks are added as it takes
      {"", 3, 2, 0, "^^]x"},
      {"", 2, 3, 2, "^]]\\x"},
      {"a", 3, 0, 0, "a^^x"},
      {"a^b^c", 2, 3, 0, "a^b]]x^c"},
      {"a^", 3, 0, 0, "a^^x"},
      // 0 at a level
      {"a^b", 0, 0, 0, "x^a^b"},
      {"", 0, 0, 0, "x"},
      {"a]b^c", 0, 2, 0, "a]x^c"},
      {"a]b^c\\d", 2, 0, 2, "a]b^c\\x"},
      {"a^b", 0, 0, 2, "a\\x^b"},
      // appending
      {"a^b", -1, 0, 0, "a^b^x"},
      {"a^b^", -1, 0, 0, "a^b^x"},
      {"", -1, 0, 0, "x"},
      {"a^b]c^d", 2, -1, 0, "a^b]c]x^d"},
      {"a^b]^d", 2, -1, 0, "a^b]x^d"},
      {"a^^d", 2, -1, 0, "a^x^d"},
      {"a^b]c\\d^e", 2, 2, -1, "a^b]c\\d\\x^e"},
      {"a", -1, 2, 0, "a^]x"},
      {"", -1, -1, -1, "x"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReplaceOf(Record(c.record), c.attr, c.value, c.subvalue, "x"), Record(c.result))
        << c.record << ' ' << c.attr << ' ' << c.value << ' ' << c.subvalue;
  }
}

TEST(Records, ExpandCommandString) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},           {"abc^[13]", "abc\r"}, {"^[27]O^[0065]", "\x1BOA"},
      {"^[255]", "\xFF"}, {"^[]", "^[]"},        {"^", "^"},
      {"a^b", "a^b"},     {"^^[13]", "^^[13]"},  {"^[13", "^[13"},
      {"^[", "^["},       {"^[1x3]", "^[1x3]"},  {"^[1^[13]", "^[1\r"},
      {"^[1^", "^[1^"},   {"^[^[]", "^[^[]"},
  };
  for (const auto& [written, meant] : cases) EXPECT_EQ(ExpandCommandString(written), meant);
  EXPECT_EQ(ExpandCommandString("^[0]"), std::string(1, '\0'));
  EXPECT_EQ(FailureOf([] { ExpandCommandString("^[256]"); }), 5);
  EXPECT_EQ(FailureOf([] { ExpandCommandString("^[32768]"); }), 6);
}

}  // namespace
}  // namespace quorvel
