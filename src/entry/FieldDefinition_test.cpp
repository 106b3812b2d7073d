#include "entry/FieldDefinition.h"

#include <gtest/gtest.h>

#include "entry/EntryTestText.h"
#include "entry/ScreenDefinition.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

const std::string kPlace = PlaceAt(10, 2, 8);

FieldDefinition WithMapping(const ByPosition& subvalues, int number = 9) {
  return ParseFieldDefinition(number,
                              DefinitionOf({{1, kPlace}, {2, MappingOf(subvalues)}, {5, "X"}}));
}

TEST(FieldDefinition, AllPositions) {
  const FieldDefinition field = ParseFieldDefinition(12, DefinitionOf({{1, "0512992"},
                                                                       {3, "A tip"},
                                                                       {4, "MR2"},
                                                                       {6, "AMOUNT"},
                                                                       {7, "LIST.1"},
                                                                       {10, "R*0"},
                                                                       {13, "LOC"},
                                                                       {15, "Y"},
                                                                       {16, "ITEMS"},
                                                                       {17, "4"},
                                                                       {18, "13"},
                                                                       {21,
                                                                        "a\xFC\xFC"
                                                                        "b"},
                                                                       {22, "20"},
                                                                       {24, "150"},
                                                                       {26, "YNY"}}));
  EXPECT_TRUE(field.exists);
  ASSERT_TRUE(field.placement);
  EXPECT_EQ(field.placement->column, 5);
  EXPECT_EQ(field.placement->row, 12);
  EXPECT_EQ(field.placement->width, 99);
  EXPECT_EQ(field.shownWidth, 20);
  EXPECT_EQ(field.type, DataType::Numeric);
  EXPECT_EQ(field.tip, "A tip");
  EXPECT_EQ(field.conversion, "MR2");
  EXPECT_EQ(field.name, "AMOUNT");
  EXPECT_EQ(field.listName, "LIST.1");
  EXPECT_EQ(field.locator, "LOC");
  EXPECT_TRUE(field.justification.right);
  EXPECT_EQ(field.justification.fill, '0');
  EXPECT_TRUE(field.required);
  EXPECT_EQ(field.lookupFile, "ITEMS");
  EXPECT_EQ(field.lookupAttribute, 4);
  EXPECT_EQ(field.displayField, 13);
  EXPECT_EQ(field.items, (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(field.defaultValue, "150");
  EXPECT_TRUE(field.Calls(FieldHook::BeforeInput));
  EXPECT_FALSE(field.Calls(FieldHook::AfterInput));
  EXPECT_TRUE(field.Calls(FieldHook::AfterStore));
  EXPECT_FALSE(field.Calls(FieldHook::BeforeOutput));
}

TEST(FieldDefinition, KeyStoredBalanceAndClearedByMapping) {
  const struct {
    ByPosition mapping;
    bool key, stored, balance, cleared;
  } cases[] = {
      {{}, true, false, false, true},  // field 9: no attribute number, yet behind the key fields
      {{{2, "0"}, {7, "Y"}}, true, false, false, false},
      {{{2, "X"}, {7, "Y"}}, true, false, false, false},
      {{{2, "1"}}, false, true, false, true},
      {{{2, "999"}, {7, "Y"}}, false, true, true, true},
      {{{2, "1000"}, {7, "Y"}}, false, false, false, true},
      {{{2, "-1"}, {7, "Y"}}, false, false, false, false},
      {{{2, "3"}, {6, "4"}}, false, true, false, true},
      {{{2, "3"}, {6, "5"}, {7, "Y"}}, false, false, true, true},
      {{{2, "3"}, {6, "6"}, {7, "Y"}}, false, false, false, true},
      {{{2, "3"}, {7, "y"}}, false, true, false, true},
  };
  for (const auto& c : cases) {
    const FieldDefinition field = WithMapping(c.mapping);
    SCOPED_TRACE(MappingOf(c.mapping));
    EXPECT_EQ(field.isKeyPart, c.key);
    EXPECT_EQ(field.stored.has_value(), c.stored);
    EXPECT_EQ(field.balance, c.balance);
    EXPECT_EQ(field.cleared, c.cleared);
  }
  EXPECT_FALSE(WithMapping({}, 6).cleared);  // up to 6 stand the key fields
  EXPECT_TRUE(WithMapping({}, 7).cleared);
}

TEST(FieldDefinition, NinetyNineInEachPlace) {
  EXPECT_TRUE(ParseFieldDefinition(2, "990110").neverShown);
  EXPECT_FALSE(ParseFieldDefinition(2, "990110").passedBy);
  EXPECT_TRUE(ParseFieldDefinition(2, "019910").passedBy);
  EXPECT_FALSE(ParseFieldDefinition(2, "019910").neverShown);
  EXPECT_EQ(ParseFieldDefinition(2, "010199").shownWidth, 99);
  EXPECT_EQ(ParseFieldDefinition(2, DefinitionOf({{1, "010199"}, {22, "wide"}})).shownWidth, 99);
  EXPECT_EQ(ParseFieldDefinition(2, DefinitionOf({{1, "010108"}, {22, "20"}})).shownWidth, 8);
  const auto stored =
      ParseFieldDefinition(2, DefinitionOf({{1, "010199"}, {2, MappingOf({{2, "1"}})}}));
  EXPECT_EQ(stored.stored->width, 999);
  EXPECT_FALSE(ParseFieldDefinition(2, "").exists);
}

TEST(FieldDefinition, MalformedOnesFail) {
  const struct {
    std::string attribute;
    Failure failure;
  } cases[] = {
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {3, "x"}})}}), Failure::TypeMismatch},
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {5, "x"}})}}), Failure::TypeMismatch},
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {6, "x"}})}}), Failure::TypeMismatch},
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {5, "0"}})}}), Failure::InvalidCall},
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {3, "-2"}})}}), Failure::InvalidCall},
      {DefinitionOf({{1, kPlace}, {2, MappingOf({{2, "1"}, {3, "32768"}})}}), Failure::Overflow},
      {DefinitionOf({{1, kPlace}, {17, "32768"}}), Failure::Overflow},
      {DefinitionOf({{1, kPlace}, {18, "-40000"}}), Failure::Overflow},
      {DefinitionOf({{1, "010199"}, {22, "40000"}}), Failure::Overflow},
  };
  for (const auto& c : cases) {
    try {
      ParseFieldDefinition(2, c.attribute);
      ADD_FAILURE() << c.attribute;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.failure(), c.failure) << c.attribute;
    }
  }
  for (const char* place : {"", "0", "01", "0101", "010", "x10108", "01x108", "0101x8"}) {
    EXPECT_FALSE(ParseFieldDefinition(2, place).placement) << place;
  }
}

TEST(ScreenDefinition, DisplayLines) {
  const struct {
    std::string text;
    std::string shown;  // empty: not drawn
  } cases[] = {
      {"Name", "Name"},
      {"  Name:  ", "Name"},
      {"12. Name:", "    Name"},
      {"Name|", "Name"},
      {"Name::", "Name:"},
      {"A. Name", "A. Name"},
      {"1.5.Name", "  5.Name"},
      {"12", ""},
      {"", ""},
      {"   ", ""},
      {":", ""},
      {"=====", ""},
      {"-----:", ""},
      {"-=-=", "-=-="},
  };
  for (const auto& c : cases) {
    const std::string place =
        "3\xFC"
        "4.4\xFD";
    const auto line = ScreenDefinition(place + c.text, "").Line(1);
    EXPECT_EQ(line ? line->text : "", c.shown) << c.text;
    if (!line) continue;
    EXPECT_EQ(line->column, 3);
    EXPECT_EQ(line->row, 5);
  }
  EXPECT_THROW(ScreenDefinition("x\xFC"
                                "1\xFDName",
                                "")
                   .Line(1),
               RuntimeError);
  EXPECT_THROW(ScreenDefinition("1\xFC\xFDName", "").Line(1), RuntimeError);
  EXPECT_NO_THROW(ScreenDefinition("x\xFC\xFD====", "").Line(1));  // nothing is placed
  EXPECT_EQ(ScreenDefinition("", "").LineCount(), 1);
}

TEST(ScreenDefinition, FieldsByNumberAndOrder) {
  const ScreenDefinition screen("", RecordOf({{1,
                                               "3\xFD\xFD"
                                               "2"},
                                              {2, kPlace},
                                              {80, kPlace},
                                              {81, kPlace}}));
  EXPECT_EQ(screen.Order(), (std::vector<std::string>{"3", "", "2"}));
  for (const int number : {-1, 0, 1, 3, 79, 81, 32767}) EXPECT_FALSE(screen.Field(number).exists);
  EXPECT_TRUE(screen.Field(2).exists);
  EXPECT_EQ(screen.Field(80).number, 80);
  EXPECT_TRUE(ScreenDefinition("", "").Order().empty());
}

}  // namespace
}  // namespace quorvel
