#include "entry/RecordMapping.h"

#include <gtest/gtest.h>

#include "entry/EntryTestText.h"

namespace quorvel {
namespace {

// One field (2) of this mapping, in a box of this width.
ScreenDefinition OneField(const ByPosition& mapping, int width = 99) {
  return {"", RecordOf({{2, DefinitionOf({{1, PlaceAt(1, 1, width)}, {2, MappingOf(mapping)}})}})};
}

TEST(RecordMapping, LoadsAPieceOfTheRecord) {
  const std::string record = RecordOf({{1, "one"},
                                       {3,
                                        "abcdef\xFD"
                                        "x*y*z\xFD"
                                        "gh"}});
  const struct {
    ByPosition mapping;
    int width;
    std::string value;
  } cases[] = {
      {{{2, "1"}}, 99, "one"},
      {{{2, "1"}}, 2, "on"},
      {{{2, "2"}}, 99, ""},
      {{{2, "9"}, {3, "2"}}, 99, ""},
      {{{2, "3"}},
       99,
       "abcdef\xFD"
       "x*y*z\xFD"
       "gh"},  // value 0 is the whole attribute
      {{{2, "3"}, {3, "1"}}, 99, "abcdef"},
      {{{2, "3"}, {3, "3"}}, 99, "gh"},
      {{{2, "3"}, {3, "4"}}, 99, ""},
      {{{2, "3"}, {3, "1"}, {5, "3"}}, 2, "cd"},
      {{{2, "3"}, {3, "1"}, {5, "6"}}, 4, "f"},
      {{{2, "3"}, {3, "1"}, {5, "7"}}, 4, ""},
      {{{2, "3"}, {3, "2"}, {5, "2"}, {8, "*"}}, 99, "y"},
      {{{2, "3"}, {3, "2"}, {5, "4"}, {8, "*"}}, 99, ""},
      {{{2, "3"}, {3, "*"}},
       99,
       "abcdef\xFD"
       "x*y*z\xFD"
       "gh"},
      {{{2, "3"}, {3, "*"}, {5, "2"}}, 1, "b\xFD*\xFDh"},
      {{{2, "3"}, {3, "*"}, {5, "2"}, {8, "*"}}, 99, "\xFDy\xFD"},
      {{{2, "2"}, {3, "*"}}, 99, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LoadEntryRecord(OneField(c.mapping, c.width), "", record), "\xFE" + c.value)
        << MappingOf(c.mapping);
  }
}

TEST(RecordMapping, PacksThePieceFromTheEntryItself) {
  const std::string file = RecordOf({{1, "one"}, {2, "p\xFDq\xFDr"}, {3, "three"}});
  const struct {
    ByPosition mapping;
    int width;
    std::string entry;
    std::string attribute;  // 2 of the packed record
  } cases[] = {
      {{{2, "2"}}, 99, "new", "new"},
      {{{2, "2"}}, 99, "", ""},
      {{{2, "2"}, {3, "2"}}, 99, "new", "p\xFDnew\xFDr"},
      {{{2, "2"}, {3, "5"}}, 99, "new", "p\xFDq\xFDr\xFD\xFDnew"},
      {{{2, "2"}, {3, "*"}},
       99,
       "a\xFD"
       "b",
       "a\xFD"
       "b"},
      // Fixed columns: what is ahead of them is taken from the entry, too.
      {{{2, "2"}, {3, "1"}, {5, "3"}}, 2, "cd", "cdcd\xFDq\xFDr"},
      {{{2, "2"}, {3, "1"}, {5, "3"}}, 2, "c", "c c\xFDq\xFDr"},
      {{{2, "2"}, {3, "1"}}, 2, "abcd", "abcdcd\xFDq\xFDr"},
      {{{2, "2"}, {5, "2"}, {8, "*"}}, 99, "cd", "*cd"},
      {{{2, "2"}, {5, "3"}, {8, "*"}}, 99, "cd", "**cd"},
      {{{2, "2"}, {5, "1"}, {8, "*"}}, 99, "cd", "cd"},
  };
  for (const auto& c : cases) {
    const std::string packed =
        PackEntryRecord(OneField(c.mapping, c.width), "\xFE" + c.entry, file);
    EXPECT_EQ(ExtractOf(packed, 2, 0, 0), c.attribute) << MappingOf(c.mapping);
    EXPECT_EQ(ExtractOf(packed, 1, 0, 0), "one");
    EXPECT_EQ(ExtractOf(packed, 3, 0, 0), "three");
  }
}

TEST(RecordMapping, OfFieldsThatShareAValueTheLaterOneWins) {
  const std::string place = PlaceAt(1, 1, 2);
  const ScreenDefinition screen(
      "", RecordOf({{2, DefinitionOf({{1, place}, {2, MappingOf({{2, "1"}, {3, "1"}, {5, "1"}})}})},
                    {3, DefinitionOf({{1, place}, {2, MappingOf({{2, "1"}, {3, "1"}, {5, "3"}})}})},
                    {4, DefinitionOf({{1, place}, {2, MappingOf({{2, "2"}, {6, "4"}})}})},
                    {5, DefinitionOf({{1, place}, {2, MappingOf({{2, "3"}, {6, "5"}})}})}}));
  EXPECT_EQ(LoadEntryRecord(screen, "", "abcd\xFEshown\xFEoff"),
            "\xFE"
            "ab\xFE"
            "cd\xFEsh");
  // A display-only field goes back, one that is not on the screen stays as it was.
  EXPECT_EQ(PackEntryRecord(screen,
                            "\xFE"
                            "ab\xFE"
                            "cd\xFEsh\xFEno",
                            "\xFE\xFEoff"),
            "cdcd\xFEsh\xFEoff");
}

TEST(RecordMapping, KeyFieldsStandInNoRecord) {
  const ScreenDefinition screen(
      "", RecordOf({{2, PlaceAt(1, 1, 5)},
                    {3, DefinitionOf({{1, PlaceAt(1, 1, 99)}, {2, MappingOf({{2, "1"}})}})}}));
  EXPECT_EQ(LoadEntryRecord(screen, "\xFEKEY", "a"),
            "\xFEKEY\xFE"
            "a");
  EXPECT_EQ(PackEntryRecord(screen,
                            "\xFEKEY\xFE"
                            "b",
                            "a\xFE"
                            "2"),
            "b\xFE"
            "2");
}

TEST(RecordMapping, OpenBalances) {
  const auto open = [](const std::string& fieldClass, const std::string& value) {
    const ScreenDefinition screen = OneField({{2, "1"}, {6, fieldClass}, {7, "Y"}});
    return HasOpenBalance(screen, "\xFE" + value);
  };
  EXPECT_TRUE(open("1", "5"));
  EXPECT_TRUE(open("5", "-1"));
  EXPECT_TRUE(open("1", "00"));
  EXPECT_FALSE(open("1", "0"));
  EXPECT_FALSE(open("1", ""));
  EXPECT_FALSE(open("6", "5"));
  EXPECT_FALSE(HasOpenBalance(OneField({{2, "1"}}),
                              "\xFE"
                              "5"));
}

}  // namespace
}  // namespace quorvel
