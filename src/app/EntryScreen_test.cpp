// How a data-entry screen opens, is built from its definition, and goes.

#include "app/EntryTest.h"

namespace quorvel {
namespace {

class EntryScreenTest : public EntryTest {
 protected:
  static std::string Key(int column, int row, int width) { return PlaceAt(column, row, width); }
  static std::string Stored(int column, int row, int width, ByPosition values = {}) {
    values[1] = PlaceAt(column, row, width);
    values.try_emplace(2, MappingOf({{2, "1"}}));
    return DefinitionOf(values);
  }
  static std::string Line(int column, int row, const std::string& text) {
    return std::to_string(column) + SVM + std::to_string(row) + VM + text;
  }
  static std::string Box(const Control& control) {
    std::string out;
    for (const int length : {control.Left(), control.Top(), control.Width(), control.Height()}) {
      out += std::to_string(length) + " ";
    }
    return out;
  }
};

TEST_F(EntryScreenTest, LinesKeysAndFieldsInTheirPlaces) {
  Open({{1, "2"},
        {2, DefinitionOf({{1, Key(10, 2, 6)}, {3, "The code"}, {18, "20"}})},
        {3, Stored(0, 0, 1, {{2, MappingOf({{6, "5"}})}})},  // not on the screen
        {4, Key(12, 3, 2)},
        {5, Stored(10, 4, 20)},
        {6, DefinitionOf({{1, Key(10, 5, 3)}})},  // no number any more: not a key
        {7, Stored(10, 6, 10,
                   {{4, "MR2"},
                    {21,
                     "100\xFC"
                     "250\xFC"}})},
        {8, Stored(10, 7, 99, {{22, "30"}})},
        {9, Stored(10, 8, 99)},
        {10, Stored(50, 8, 9, {{2, MappingOf({{2, "1"}, {6, "4"}})}})},
        {20, DefinitionOf({{1, Key(20, 2, 15)}, {2, MappingOf({{6, "5"}})}, {21, "x\xFCy"}})}},
       "",
       Line(2, 1, "1. Code:") + AM + Line(0, 0, "=====") + AM + Line(2, 3, "Name|") + AM +
           Line(2, 7, "Terms"));
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Session().ScreenLoaded, kTrue);
  EXPECT_EQ(Session().FieldList,
            "2\xFD"
            "20\xFD"
            "4\xFD"
            "5\xFD"
            "6\xFD"
            "7\xFD"
            "8\xFD"
            "9\xFD"
            "10");
  EXPECT_EQ(Session().FieldKinds,
            "T\xFDT\xFDT\xFDT\xFDT\xFD"
            "C\xFDT\xFDT\xFDT");
  EXPECT_EQ(Session().FieldFlags,
            "K\xFD"
            "D\xFDK\xFD\xFD\xFD\xFD\xFD\xFD"
            "D");
  EXPECT_EQ(Session().FieldCount, 9);
  EXPECT_EQ(Session().FirstField, 2);

  frmEntry& screen = Screen();
  EXPECT_EQ(screen.lblDisp.Count(), 3);
  EXPECT_EQ(screen.lblDisp(1).Caption(), "   Code");
  EXPECT_EQ(screen.lblDisp(1).Left(), 260);
  EXPECT_EQ(screen.lblDisp(1).Top(), 520);
  EXPECT_EQ(screen.lblDisp(1).Width(), 945);
  EXPECT_EQ(screen.lblDisp(3).Caption(), "Name");
  const std::pair<int, const char*> boxes[] = {
      {2, "1300 765 855 300 "},   {20, "2600 765 1935 300 "}, {4, "1560 1020 375 300 "},
      {5, "1300 1275 2535 300 "}, {8, "1300 2040 3735 300 "}, {9, "1300 2295 12015 300 "}};
  for (const auto& [number, place] : boxes) EXPECT_EQ(Box(Text(number)), place) << number;
  EXPECT_EQ(Box(Combo(7)), "1300 1785 1590 300 ");
  EXPECT_EQ(Box(screen.cmdOK), "2015 1020 615 300 ");

  EXPECT_EQ(Combo(7).List.All(), (Texts{"1.00", "2.50", ""}));
  const std::pair<int, int> limits[] = {{2, 6}, {5, 20}, {8, 0}, {9, 0}, {10, 9}};
  for (const auto& [number, limit] : limits) EXPECT_EQ(Text(number).MaxLength(), limit) << number;
  for (const int number : {2, 20, 4}) EXPECT_TRUE(Text(number).Enabled()) << number;
  for (const int number : {5, 6, 8, 9, 10}) EXPECT_FALSE(Text(number).Enabled()) << number;
  const std::pair<int, int> tabs[] = {{2, 0}, {4, 1}, {5, 2}, {6, 3}, {8, 5}, {9, 6}};
  for (const auto& [number, place] : tabs) EXPECT_EQ(Text(number).TabIndex(), place) << number;
  EXPECT_EQ(Combo(7).TabIndex(), 4);
  EXPECT_FALSE(Text(10).TabStop());
  EXPECT_FALSE(Text(20).TabStop());
}

TEST_F(EntryScreenTest, WhatAFieldIsCalled) {
  Open({{2, DefinitionOf({{1, Key(10, 2, 6)}, {3, "The code"}, {18, "3"}})},
        {3, DefinitionOf({{1, Key(20, 2, 6)}, {2, MappingOf({{6, "5"}})}})},
        {5, Stored(30, 4, 8)},
        {6, Stored(5, 4, 8)},
        {7, Stored(5, 9, 8, {{15, "Y"}})}},
       "", Line(2, 2, "Code:") + AM + Line(25, 4, "R&D") + AM + Line(2, 8, "Address"));
  EXPECT_EQ(Text(2).AccessibleName(), "Code");
  EXPECT_EQ(Text(2).ToolTipText(), "The code");
  EXPECT_EQ(Text(3).AccessibleName(), "Code (2)");
  EXPECT_EQ(Text(5).AccessibleName(), "R&D");
  EXPECT_EQ(Text(6).AccessibleName(), "R&D (2)");
  EXPECT_EQ(Text(7).AccessibleName(), "Address");
  EXPECT_TRUE(Text(7).Look().required);
  EXPECT_TRUE(Text(3).Look().displayOnly);
  EXPECT_FALSE(Text(2).Look().displayOnly);
}

// A definition that makes no sense ends the building where it stands.
TEST_F(EntryScreenTest, MalformedDefinitions) {
  const std::string good = Key(1, 1, 5);
  const struct {
    std::string what;
    std::string prompts;
    ByPosition parms;
    std::string box;
    int fields;
  } cases[] = {
      {"line without a place", "\xFDName", {{2, good}}, "Error# 13\nType mismatch\nZ = 1", 0},
      {"line below 16 bits", Line(1, 126, "Name"), {{2, good}}, "Error# 6\nOverflow\nZ = 1", 0},
      {"line beside 16 bits",
       AM + Line(253, 1, "Name"),
       {{2, good}},
       "Error# 6\nOverflow\nZ = 2",
       0},
      {"line too long",
       Line(1, 1, std::string(243, 'x')),
       {{2, good}},
       "Error# 6\nOverflow\nZ = 1",
       0},
      {"no row", "", {{2, good}, {3, "01"}}, "Error# 13\nType mismatch\nZ = 3", 1},
      {"no digits", "", {{2, good}, {5, "0x0105"}}, "Error# 13\nType mismatch\nZ = 5", 1},
      {"too wide",
       "",
       {{2, good}, {3, Stored(1, 1, 99, {{22, "280"}})}},
       "Error# 6\nOverflow\nZ = 3",
       2},
      {"negative width",
       "",
       {{2, good}, {3, "0101-51"}},
       "Error# 380\nInvalid property value\nZ = 3",
       2},
      {"bad class",
       "",
       {{2, good}, {4, Stored(1, 1, 5, {{2, MappingOf({{2, "1"}, {6, "x"}})}})}},
       "Error# 13\nType mismatch\nZ = 4",
       1},
      {"companion that is no field",
       "",
       {{2, DefinitionOf({{1, good}, {18, "70"}})}},
       "Error# 13\nType mismatch\nZ = 2",
       1},
      {"companion among the others",
       "",
       {{2, DefinitionOf({{1, good}, {18, "4"}})}, {4, Stored(9, 1, 5)}},
       "Error# 360\nObject already loaded\nZ = 4",
       2},
      {"companion that is a list among the others",
       "",
       {{2, DefinitionOf({{1, good}, {18, "4"}})}, {4, Stored(9, 1, 5, {{21, "x\xFCy"}})}},
       "Error# 360\nObject already loaded\nZ = 4",
       2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    backend.messageBoxes.clear();
    Open(c.parms, "", c.prompts);
    EXPECT_EQ(BoxTexts(), Texts{c.box});
    ASSERT_TRUE(IsOpen());
    EXPECT_TRUE(Screen().IsVisible());
    EXPECT_EQ(Session().ScreenLoaded, kFalse);
    EXPECT_EQ(backend.pointers.back(), MousePointer::Hourglass);
    EXPECT_EQ(Screen().txtEntry.Count(), c.fields);
    EXPECT_EQ(Screen().cboEntry.Count(), 0);
    Do([&] { Screen().UserClose(); });
    EXPECT_FALSE(IsOpen());
  }
  // What has been built of one makes way for the next screen.
  Open({{2, "01"}});
  EXPECT_EQ(Session().ScreenLoaded, kFalse);
  Open({{2, good}});
  EXPECT_EQ(Session().ScreenLoaded, kTrue);
  EXPECT_TRUE(Text(2).Enabled());
  EXPECT_EQ(backend.pointers.back(), MousePointer::Default);
}

TEST_F(EntryScreenTest, AScreenWithoutKeyFieldsOrWithoutAnything) {
  for (const ByPosition& parms : {ByPosition{}, ByPosition{{2, Stored(1, 1, 5)}}}) {
    Open(parms);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Session().FirstField, 0);
    Click(Screen().cmdExit);
    EXPECT_FALSE(IsOpen());
  }
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(EntryScreenTest, LimitsOfWhatIsBuilt) {
  std::string prompts;
  for (int i = 0; i < 1200; ++i) prompts += Line(i % 200, i / 200, "x") + AM;
  Open({{2, Key(1, 1, 5)}}, "", prompts);
  EXPECT_EQ(BoxTexts(), Texts{"Error# 7\nOut of memory\nZ = 1001"});
}

TEST_F(EntryScreenTest, TheScreenFollowsTheWindow) {
  Session().AutoSize = 1;
  Open({{2, Key(10, 2, 6)}, {3, Stored(70, 2, 20)}});
  // It is wider than the window and is scaled down to it, the fonts with it.
  const Elastic& all = Screen().VideoSoftElastic1;
  EXPECT_EQ(all.Width(), Screen().ClientWidth());
  EXPECT_LE(Text(3).Left() + Text(3).Width(), all.Width());
  EXPECT_LT(Text(3).Font().size, 9);
  Screen().Width = 2 * (70 * 130 + 2535 + 120);
  Screen().Height = 2 * Screen().Height();
  EXPECT_NEAR(Text(3).Left(), 2 * 70 * 130, 2);
  EXPECT_NEAR(Text(3).Top(), 2 * 3 * 255, 2);
  EXPECT_NEAR(Text(3).Font().size, 18, 0.1);
  Click(Screen().cmdExit);

  Session().AutoSize = 0;
  Open({{2, Key(10, 2, 6)}, {3, Stored(70, 2, 20)}});
  Screen().Width = 2 * Screen().Width();
  EXPECT_EQ(Text(3).Left(), 9100);
}

TEST_F(EntryScreenTest, WhatTheHostShows) {
  Open({{2, Key(10, 2, 6)},
        {3, Stored(10, 3, 6,
                   {{21,
                     "a\xFC"
                     "b"}})},
        {4, Stored(10, 4, 6, {{2, MappingOf({{2, "1"}, {6, "2"}})}})},
        {5, Stored(10, 5, 6, {{2, MappingOf({{2, "1"}, {6, "3"}})}})}});
  Deliver(FrameOf({"~GENOUT~", "2", "  shown  "}));
  EXPECT_EQ(plain, "");
  EXPECT_EQ(Text(2).Text(), "shown");
  Deliver(FrameOf({"~GENOUT~", "3", "b"}));
  EXPECT_EQ(Combo(3).ListIndex(), 1);
  Deliver(FrameOf({"~GENOUT~", "3", "c"}));
  EXPECT_EQ(Combo(3).ListIndex(), -1);
  Deliver(FrameOf({"~GENOUT~", "9", "c"}));  // no such field
  Text(4).Enabled = true;
  Text(5).Enabled = true;
  Deliver(FrameOf({"~MAINT.MODE~"}));
  EXPECT_EQ(plain, "\r");
  EXPECT_FALSE(Text(4).Enabled());
  EXPECT_TRUE(Text(5).Enabled());
  Deliver(FrameOf({"~ENTRY.MODE~"}));
  EXPECT_EQ(plain, "\r\r");
  EXPECT_FALSE(Text(5).Enabled());
  EXPECT_TRUE(Text(2).Enabled());
  Click(Screen().cmdExit);
  Deliver(FrameOf({"~GENOUT~", "2", "late"}));
  Deliver(FrameOf({"~ENTRY.MODE~"}));
  EXPECT_EQ(plain, "\r\r\r");
  EXPECT_EQ(BoxTexts(), Texts{});
}

// A screen replaces the one before it, unless a record is open there: that one goes on, and what it
// does is for its own file.
TEST_F(EntryScreenTest, OneScreenAtATime) {
  Open({{2, Key(10, 2, 6)}, {3, Stored(10, 3, 6, {{5, "X"}})}});
  Enter(2, "half");
  Open({{2, Key(10, 2, 6)}, {4, Stored(10, 3, 6)}});
  EXPECT_EQ(Session().FieldList,
            "2\xFD"
            "4");
  EXPECT_EQ(Text(2).Text(), "");
  EXPECT_EQ(Session().CurrentField, 2);

  Put("DATA", "1", "old");
  EnterKey("1");
  ASSERT_FALSE(Screen().mnuFileExit.Enabled());
  Put("DICTIONARY", "BR.Y", RecordOf({{22, "OTHER"}}));
  Put("SCREEN", "BR.Y", "");
  Put("DICT BPBR", "BR!Y", "OTHER");
  Put("DICT BPBR", "BR*Y", "RAW");
  Session().OptionId = "BR.Y";
  Run([] { RunOption(); });
  TakeRequests();
  EXPECT_EQ(Session().FieldList,
            "2\xFD"
            "4");
  Enter(4, "new");
  Click(Screen().cmdSave);
  EXPECT_EQ(TakeRequests(), (Texts{"WRITE DATA 1 new SYCRLOC", "LOCK AR.X DATA 1 U"}));

  // Nor does one that could not be opened leave its file behind.
  files["SCREEN"].erase("BR.Y");
  Run([] { RunOption(); });
  TakeRequests();
  EnterKey("1");
  EXPECT_EQ(TakeRequests(), (Texts{"LOCK AR.X DATA 1 L", "READ DATA 1"}));
}

// Whatever the screen waits for, it may be gone when the answer comes.
TEST_F(EntryScreenTest, GoneDuringAWait) {
  const ByPosition parms = {
      {1,
       "2\xFD"
       "3\xFD"
       "4"},
      {2, DefinitionOf({{1, Key(10, 2, 6)}, {6, "ID"}, {26, "YYYY"}})},
      {3, Stored(10, 3, 6, {{5, "X"}, {6, "F"}, {16, "LOOK"}, {17, "1"}, {18, "4"}, {26, "YYYY"}})},
      {4, Stored(10, 4, 6, {{5, "X"}, {6, "G"}, {26, "YYYY"}})}};
  const auto story = [&] {
    Open(parms, "CASE");
    if (IsOpen()) EnterKey("1");
    if (IsOpen() && Text(3).Enabled()) {
      Enter(3, "b");
      Press(KeyCode::Tab);
    }
    if (IsOpen()) Click(Screen().cmdSave);
  };
  Put("DATA", "1", "old");
  Put("LOOK", "b", "B");
  int requests = 0;
  int gone = 0;  // the request whose answer finds no screen; none at first
  onRequest = [&](const Texts&) -> std::optional<std::string> {
    if (IsOpen() && ++requests == gone) {
      Screen().mnuFileExit.Enabled = true;
      Screen().Unload();
      return std::string();  // nobody would take the reply
    }
    return std::nullopt;
  };
  story();
  ASSERT_TRUE(IsOpen());
  Click(Screen().cmdExit);
  const int all = requests;
  ASSERT_GT(all, 20);
  for (gone = 1; gone <= all; ++gone) {
    SCOPED_TRACE(gone);
    requests = 0;
    story();
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(backend.stalled);
    Session().PendingOp.clear();
  }
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(EntryScreenTest, AFurtherInstance) {
  Open({{2, Key(10, 2, 6)}});
  Run([&] {
    desktop().Post(EventKind::User, [&] {
      Window* front = desktop().focus().Front();
      EXPECT_EQ(front->Caption(), "Instance 1");
      EXPECT_TRUE(front->IsModal());
      front->UserClose();
    });
    Screen().CreateNewObject();
  });
  EXPECT_EQ(Session().InstanceCount, 1);
}

}  // namespace
}  // namespace quorvel
