// How fields are entered, left and judged: keys, mouse, conversions, look-ups, hooks.

#include "app/EntryTest.h"
#include "entry/DateText.h"
#include "entry/frmLocate.h"

namespace quorvel {
namespace {

class EntryFieldsTest : public EntryTest {
 protected:
  ~EntryFieldsTest() override { SetToday({}); }

  // A key field 2 and these fields of one line each, in one order; a record is open.
  void OpenOn(ByPosition fields, const std::string& program = {}) {
    std::string order = "2";
    for (const auto& [number, values] : fields) order += VM + std::to_string(number);
    fields[2] = DefinitionOf({{1, PlaceAt(1, 1, 8)}, {5, "X"}, {6, "ID"}, {26, keyHooks}});
    fields[1] = order;
    Open(fields, program);
    EnterKey("K");
    TakeRequests();
  }
  // Field `number` is stored in the attribute one below it.
  static std::string Field(int number, ByPosition values = {}, const std::string& type = "1",
                           int width = 8) {
    values[1] = PlaceAt(1, number, width, type);
    values.try_emplace(2, MappingOf({{2, std::to_string(number - 1)}}));
    values[5] = "X";
    values.try_emplace(6, "F" + std::to_string(number));
    return DefinitionOf(values);
  }
  std::string Stored(std::int16_t number) { return ExtractOf(Session().EntryRecord, number, 0, 0); }

  std::string keyHooks;
};

// --- where the keyboard goes

TEST_F(EntryFieldsTest, EnterWalksTheOrderOfTheHost) {
  Put("DATA", "K", "");
  ByPosition fields;
  for (int i = 3; i <= 6; ++i) fields[i] = Field(i);
  fields[5] = Field(5, {{2, MappingOf({{2, "4"}, {6, "4"}})}});  // display only
  OpenOn(fields);
  EXPECT_TRUE(HasKeyboard(Text(3)));
  for (const int next : {4, 6, 3, 4}) {  // past the display field, past the end and the closed key
    Press(KeyCode::Return);
    EXPECT_TRUE(HasKeyboard(Text(next))) << next;
  }
  Press(KeyCode::Tab, kShift);
  EXPECT_TRUE(HasKeyboard(Text(3)));
  for (const KeyCode other : {KeyCode::F1, KeyCode::Down, KeyCode::Left}) Press(other);
  EXPECT_TRUE(HasKeyboard(Text(3)));
  EXPECT_TRUE(TakeRequests().empty());
}

TEST_F(EntryFieldsTest, OrdersThatMakeNoSense) {
  const std::pair<std::string, int> cases[] = {
      {"", 3},  // no order: the keyboard stays
      {"99\xFDx\xFD\xFD-4\xFD"
       "4",
       4},  // what is no field is passed over
      {"3\xFD"
       "70000\xFD"
       "1e9\xFD"
       "4",
       4},
      {"4", 4},  // a field that is not in it begins at the top
      {"3\xFD"
       "2",
       3},  // nothing to the end: it does not begin anew
  };
  Put("DATA", "K", "");
  for (const auto& [order, next] : cases) {
    SCOPED_TRACE(order);
    Open({{1, order}, {2, PlaceAt(1, 1, 8)}, {3, Field(3)}, {4, Field(4)}});
    EnterKey("K");
    ASSERT_TRUE(HasKeyboard(Text(3)));
    Press(KeyCode::Return);
    EXPECT_TRUE(HasKeyboard(Text(next)));
    Click(Screen().cmdCancel);
    Click(Screen().cmdExit);
  }
}

TEST_F(EntryFieldsTest, SeveralKeyParts) {
  Put("DATA", "AB1", "x");
  Open({{1,
         "2\xFD"
         "3\xFD"
         "4"},
        {2, DefinitionOf({{1, PlaceAt(1, 1, 2)}, {5, "X"}})},
        {3, DefinitionOf({{1, PlaceAt(5, 1, 2)},
                          {5, "X"},
                          {21,
                           "A1\xFC"
                           "B1"}})},
        {4, Field(4)}});
  Enter(2, "A");
  Press(KeyCode::Tab);
  EXPECT_TRUE(HasKeyboard(Combo(3)));
  Do([&] { Combo(3).UserPick(1); });
  Press(KeyCode::Return);  // any key field but the first moves on by the order
  EXPECT_EQ(Stored(2) + Stored(3), "AB1");
  TakeRequests();
  Click(Screen().cmdOK);
  // The key is what the click's own validation has stored: of the current field alone.
  EXPECT_EQ(TakeRequests().front(), "LOCK AR.X DATA B1 L");
}

TEST_F(EntryFieldsTest, TheContextMenuOfAField) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{7, "LIST"}, {13, "LOC"}})}, {4, Field(4, {{6, ""}})}});
  std::vector<std::string> seen;
  backend.onPopUp = [&](MenuItem& menu) {
    EXPECT_FALSE(Text(seen.empty() ? 3 : 4).Enabled());
    std::string entries;
    for (const MenuItem* item : menu.Items()) entries += item->Enabled() ? "1" : "0";
    seen.push_back(entries);
    if (seen.size() == 1) Screen().mnuOptHelp.UserClick();
  };
  Do([&] { Text(4).UserMouseDown(MouseButton::Left); });
  EXPECT_TRUE(seen.empty());
  Do([&] { user.RightClick(Text(3)); });
  EXPECT_EQ(TakeRequests(), Texts{"READHELP F3 AR.X"});
  EXPECT_EQ(Session().CurrentField, 3);
  EXPECT_TRUE(Text(3).Enabled());
  EXPECT_FALSE(Screen().mnuOptions.Visible());
  Do([&] { Text(4).UserFocus(); });
  Press(KeyCode::F10, kShift);
  EXPECT_EQ(seen, (Texts{"111", "000"}));
  EXPECT_TRUE(HasKeyboard(Screen().cmdHelp));

  Click(Screen().cmdHelp);
  EXPECT_EQ(TakeRequests(), Texts{"READHELP  AR.X"});
}

TEST_F(EntryFieldsTest, AFieldThatIsRefusedHasNoMenuBesideIt) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {}, "2")}, {4, Field(4)}});
  backend.onPopUp = [](MenuItem&) { ADD_FAILURE(); };
  Enter(3, "x");
  Do([&] { user.RightClick(Text(4)); });
  EXPECT_EQ(BoxTexts(), Texts{"Entry must be numeric!"});
  EXPECT_TRUE(HasKeyboard(Text(3)));
}

// --- what is accepted

TEST_F(EntryFieldsTest, EntriesAndWhatBecomesOfThem) {
  SetToday(CivilDate{2026, 11, 23});
  const struct {
    ByPosition values;
    std::string type;
    std::string entry;
    std::string box;     // the message box; empty: accepted
    std::string shown;   // what stands in the field then
    std::string stored;  // "=": as before
  } cases[] = {
      {{}, "1", "text", "", "text", "text"},
      {{}, "1", "   ", "", "", ""},
      {{}, "1", "Per\xFA", "", "Per?", "Per?"},  // would end the field of a request
      {{}, "x", "text", "", "text", "text"},
      {{{15, "Y"}}, "1", "   ", "Entry is required!", "", "="},
      {{{15, "Y"}}, "1", "", "Entry is required!", "", "="},
      {{{15, "N"}}, "1", "", "", "", ""},
      {{}, "2", "12", "", "12", "12"},
      {{}, "2", "1x", "Entry must be numeric!", "", "="},
      {{}, "2", "", "", "", ""},
      {{{4, "MR2"}}, "2", "$1,2.5", "", "12.50", "1250"},
      {{{4, "MR2"}}, "2", "0.05", "", "0.05", "05"},
      {{{4, "MR2,$"}}, "2", "1234", "", "$1,234.00", "123400"},
      {{{4, "MR,$"}}, "2", "1234", "", "", ""},  // no digit: "$" and "," must stand alone
      {{}, "3", "13/45/99", "Invalid Date!", "", "="},
      {{{4, "D2/"}}, "3", "12.31.67", "", "12/31/67", "0"},
      {{{4, "D4-"}}, "3", "12-31-68", "", "12-31-1968", "366"},
      {{{4, "D2/"}}, "3", "", "", "11/23/26", "21512"},
      {{}, "3", "", "", "11/23/26", "11/23/26"},
      {{{4, "MCU"}}, "1", "abc", "", "ABC", "ABC"},
      {{{10, "R0"}}, "1", "12", "", "00000012", "00000012"},
      {{{10, "L.x"}}, "1", "12", "", "12xxxxxx", "12xxxxxx"},
      {{{10, "R"}}, "1", "12", "", "RRRRRR12", "RRRRRR12"},
      {{{10, "C0"}}, "1", "12", "", "12", "12"},
      {{{10, "R0"}}, "1", "", "", "", ""},
      {{{10, "R0"}}, "1", "12345678", "", "12345678", "12345678"},
      {{{4, "MR0"}, {10, "R0"}}, "2", "12", "", "12", "12"},
  };
  Put("DATA", "K", "");
  for (const auto& c : cases) {
    SCOPED_TRACE(DefinitionOf(c.values) + " " + c.type + " " + c.entry);
    backend.messageBoxes.clear();
    OpenOn({{3, Field(3, c.values, c.type)}, {4, Field(4)}});
    Session().EntryRecord = ReplaceOf(Session().EntryRecord, 3, 0, 0, "");
    Enter(3, c.entry);
    Press(KeyCode::Return);
    EXPECT_EQ(BoxTexts(), c.box.empty() ? Texts{} : Texts{c.box});
    EXPECT_EQ(Session().FieldRejected, c.box.empty() ? kFalse : kTrue);
    EXPECT_TRUE(HasKeyboard(Text(c.box.empty() ? 4 : 3)));
    EXPECT_EQ(Text(3).Text(), c.shown);
    EXPECT_EQ(Stored(3), c.stored == "=" ? "" : c.stored);
    Screen().mnuFileExit.Enabled = true;
    Screen().Unload();
  }
}

TEST_F(EntryFieldsTest, BoxesOfRefusals) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{15, "Y"}}, "2")}, {4, Field(4, {}, "3")}});
  Enter(3, "x");
  Press(KeyCode::Return);
  Replace(" ");
  Press(KeyCode::Return);
  constexpr int kStyle = MessageBoxStyle::kExclamation;
  EXPECT_EQ(backend.messageBoxes,
            (std::vector<MessageBoxRequest>{{"Entry must be numeric!", "Invalid Entry", kStyle},
                                            {"Entry is required!", "Required Field", kStyle}}));
}

// A refusal brings the old value back, as it is shown.
TEST_F(EntryFieldsTest, TabLeavesOnlyWhatIsValid) {
  Put("DATA", "K",
      "x\xFE"
      "1250\xFE"
      "a");
  OpenOn({{3, Field(3, {{4, "MR2"}}, "2")},
          {4, Field(4)},
          {5, Field(5, {{21,
                         "a\xFC"
                         "b"},
                        {15, "Y"}})}});
  EXPECT_EQ(Text(3).Text(), "12.50");
  Enter(3, "99");
  Press(KeyCode::Tab);
  EXPECT_EQ(Stored(3), "9900");
  Press(KeyCode::Tab, kShift);
  Replace("wrong");
  Press(KeyCode::Tab);
  EXPECT_TRUE(HasKeyboard(Text(3)));
  EXPECT_EQ(Text(3).Text(), "99.00");
  Press(KeyCode::Tab);
  Press(KeyCode::Tab);
  ASSERT_TRUE(HasKeyboard(Combo(5)));
  Combo(5).ListIndex = -1;  // as the host may do
  Press(KeyCode::Return);
  EXPECT_EQ(BoxTexts().back(), "Entry is required!");
  EXPECT_EQ(Combo(5).ListIndex(), -1);  // nothing was stored there
  EXPECT_TRUE(HasKeyboard(Combo(5)));
  Do([&] { Combo(5).UserPick(1); });
  Press(KeyCode::Return);
  EXPECT_EQ(Stored(5), "b");
  Do([&] { Combo(5).UserFocus(); });
  Combo(5).ListIndex = -1;
  Press(KeyCode::Return);
  EXPECT_EQ(Combo(5).ListIndex(), 1);  // back at the old value
}

// No limit of typing is a width all the same.
TEST_F(EntryFieldsTest, AFieldWithoutLimitIsPaddedToItsWidth) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{10, "L*"}}, "1", 99)}, {4, Field(4)}});
  Enter(3, std::string(97, 'x'));
  Press(KeyCode::Return);
  EXPECT_EQ(Stored(3), std::string(97, 'x') + "**");
  Enter(3, std::string(100, 'y'));
  Press(KeyCode::Return);
  EXPECT_EQ(Stored(3), std::string(100, 'y'));
}

// A list can only show its items: what is chosen is padded to another one, or not at all.
TEST_F(EntryFieldsTest, AListIsJustifiedWithinItsItems) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3,
                    {{10, "R0"},
                     {21,
                      "12\xFC"
                      "7\xFC"
                      "0007"}},
                    "1", 4)},
          {4, Field(4)}});
  const char* const stored[] = {"12", "0007"};
  for (const int item : {0, 1}) {
    Do([&] { Combo(3).UserFocus(); });
    Do([&] { Combo(3).UserPick(item); });
    Press(KeyCode::Return);
    EXPECT_EQ(Stored(3), stored[item]);
    EXPECT_EQ(Combo(3).Text(), stored[item]);
  }
}

TEST_F(EntryFieldsTest, DefaultsOnEmptyFields) {
  Put("DATA", "K",
      "\xFE\xFE\xFE"
      "7");
  OpenOn({{3, Field(3, {{4, "MR2"}, {24, "150"}})},
          {4, Field(4, {{21,
                         "100\xFC"
                         "200"},
                        {4, "MR2"},
                        {24, "200"}})},
          {5, Field(5, {{24, "9"}})},
          {6, Field(6, {{21, "a"}, {24, "z"}})}});
  EXPECT_EQ(Text(3).Text(), "1.50");
  Press(KeyCode::Return);
  EXPECT_EQ(Stored(3), "150");
  EXPECT_EQ(Combo(4).ListIndex(), 1);
  Press(KeyCode::Return);
  EXPECT_EQ(Stored(4), "200");
  Press(KeyCode::Return);
  EXPECT_EQ(Text(5).Text(), "7");
  EXPECT_EQ(Combo(6).ListIndex(), -1);
}

// --- look-ups

TEST_F(EntryFieldsTest, ALookupShowsADescriptionAndSoOn) {
  Put("DATA", "K",
      "x\xFE"
      "A");
  Put("DICTIONARY", "F3", RecordOf({{14, "<"}, {15, ">"}}));
  Put("CODES", "<A>",
      "x\xFE"
      "250");
  Put("CODES", "<B>",
      "x\xFE"
      "300");
  Put("GROUPS", "250", "Group of A");
  Put("PARM", "PROMPTS", RecordOf({{6, "\xFD\xFD** none **"}}));
  OpenOn(
      {{3, Field(3, {{16, "CODES"}, {17, "2"}, {18, "4"}})},
       {4,
        Field(4, {{2, MappingOf({{6, "4"}})}, {4, "MR2"}, {16, "GROUPS"}, {17, "1"}, {18, "5"}})},
       {5, Field(5, {{2, MappingOf({{6, "4"}})}}, "1", 20)}});
  EXPECT_EQ(Text(4).Text(), "2.50");
  EXPECT_EQ(Text(5).Text(), "Group of A");

  Enter(3, "B");
  Press(KeyCode::Return);
  EXPECT_EQ(TakeRequests(), (Texts{"READ DICTIONARY F3", "READ CODES <B>", "READ DICTIONARY F4",
                                   "READ GROUPS 300", "READ PARM PROMPTS"}));
  EXPECT_EQ(Text(4).Text(), "3.00");
  EXPECT_EQ(Text(5).Text(), "** none **");

  Enter(3, "C");
  Press(KeyCode::Return);
  EXPECT_EQ(backend.messageBoxes,
            (std::vector<MessageBoxRequest>{
                {"Item C not on file!", backend.messageBoxes[0].title, MessageBoxStyle::kOkOnly}}));
  EXPECT_EQ(Text(3).Text(), "B");
  EXPECT_TRUE(HasKeyboard(Text(3)));
  TakeRequests();
  Press(KeyCode::Return);  // the old value is not looked up again
  EXPECT_TRUE(TakeRequests().empty());
}

// Even where it holds what may not be typed.
TEST_F(EntryFieldsTest, WhatTheHostSentStaysWhereNobodyTyped) {
  Put("DATA", "K",
      "x\xFE"
      "two\nrows\xFE"
      "a\nb");
  OpenOn({{3, Field(3, {{16, "CODES"}, {17, "1"}})},
          {4, Field(4, {{21,
                         "z\xFC"
                         "a\nb"}})},
          {5, Field(5)}});
  TakeRequests();
  const std::string before = Session().EntryRecord;
  Do([&] { Text(3).UserFocus(); });
  Press(KeyCode::Return);
  EXPECT_TRUE(HasKeyboard(Combo(4)));
  Press(KeyCode::Return);
  EXPECT_EQ(BoxTexts(), Texts{});
  EXPECT_TRUE(TakeRequests().empty());
  EXPECT_EQ(Text(3).Text(), "two\nrows");
  EXPECT_EQ(Combo(4).ListIndex(), 1);
  EXPECT_EQ(Session().EntryRecord, before);
}

TEST_F(EntryFieldsTest, LookupsInACircleEnd) {
  Put("DATA", "K", "");
  for (const char* code : {"a", "b"}) Put("CODES", code, code[0] == 'a' ? "b" : "a");
  OpenOn({{3, Field(3, {{16, "CODES"}, {17, "1"}, {18, "4"}})},
          {4, Field(4, {{16, "CODES"}, {17, "1"}, {18, "3"}})}});
  Enter(3, "a");
  Press(KeyCode::Return);
  EXPECT_LE(TakeRequests().size(), 200u);
}

// --- hooks

TEST_F(EntryFieldsTest, WhichHooksAreCalled) {
  Put("DATA", "K",
      "one\xFE"
      "two");
  const std::pair<const char*, Texts> cases[] = {
      {"Y", {"HOOK bi_F3 3"}},
      {"NY", {"HOOK ai_F3 3"}},
      {"--Y", {"HOOK as_F3 3"}},
      {"YYYY", {"HOOK bi_F3 3", "HOOK ai_F3 3", "HOOK as_F3 3"}},
      {"yyyy", {}},
      {"", {}},
  };
  for (const auto& [flags, hooks] : cases) {
    SCOPED_TRACE(flags);
    Open({{2, PlaceAt(1, 1, 8)},
          {3, Field(3, {{26, flags}})},
          {4, Field(4, {{6, ""}, {26, "YYYY"}})}},
         "CASE");
    Session().EntryRecord.clear();
    for (const int number : {3, 4}) Text(number).Enabled = true;
    Enter(3, "x");
    Enter(4, "y");
    Do([&] { Text(2).UserFocus(); });
    EXPECT_EQ(TakeRequests(), hooks);
    Click(Screen().cmdExit);
  }
}

TEST_F(EntryFieldsTest, ReplyWords) {
  const struct {
    std::string hook, word, data;
    std::string stored;
    bool rejected;
    int keyboard;  // the field that has it after Enter on field 3
  } cases[] = {
      {"ai_F3", "", "", "new", false, 4},
      {"ai_F3", "RETURN", "", "old", false, 4},
      {"ai_F3", "", "Error", "old", true, 3},
      {"ai_F3", "CHGKEY", "other", "other", false, 4},
      {"ai_F3", "CHGKEY", "Error", "old", true, 3},
      {"as_F3", "", "Error", "new", false, 4},  // Enter moves on from where the host has put it
      {"bi_F4", "RETURN", "", "new", false, 5},
      {"bi_F4", "", "Error", "new", false, 4},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.hook + " " + c.word + " " + c.data);
    onHook = nullptr;
    Put("DATA", "K", "x\xFEold");
    OpenOn({{3, Field(3, {{26, "YYY"}})}, {4, Field(4, {{26, "Y"}})}, {5, Field(5)}}, "CASE");
    onHook = [&](const Texts& f) {
      return f[4] == c.hook ? HookReply(f, c.word, c.data) : HookReply(f, f[4], f[7]);
    };
    Enter(3, "new");
    Press(KeyCode::Return);
    EXPECT_EQ(Stored(3), c.stored);
    EXPECT_EQ(Session().FieldRejected, c.rejected ? kTrue : kFalse);
    EXPECT_TRUE(HasKeyboard(Text(c.keyboard)));
    Screen().mnuFileExit.Enabled = true;
    Screen().Unload();
  }
}

// What is stored stays stored; the keyboard goes back and stays there.
TEST_F(EntryFieldsTest, AnErrorBehindTheStoreBringsTheKeyboardBack) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{26, "NNY"}})}, {4, Field(4)}}, "CASE");
  onHook = [](const Texts& f) { return HookReply(f, "", "Error"); };
  Enter(3, "new");
  Press(KeyCode::Tab);
  EXPECT_TRUE(HasKeyboard(Text(3)));
  EXPECT_EQ(Session().CurrentField, 3);
  EXPECT_EQ(Stored(3), "new");
}

TEST_F(EntryFieldsTest, AHostThatSkipsEveryField) {
  Put("DATA", "K", "");
  onHook = [](const Texts& f) { return HookReply(f, "RETURN", ""); };
  OpenOn({{3, Field(3, {{26, "Y"}})}, {4, Field(4, {{26, "Y"}})}}, "CASE");
  EXPECT_FALSE(backend.stalled);
  EXPECT_TRUE(Text(3).Enabled());
  EXPECT_TRUE(Screen().cmdSave.Enabled());
}

TEST_F(EntryFieldsTest, TheHostShowsAndRewritesDuringAHook) {
  Put("DATA", "K", "one\xFEtwo");
  onHook = [](const Texts& f) {
    if (f[4] != "bo_F3") return HookReply(f, f[4], f[7]);
    return FrameOf({"~GENOUT~", "4", "pushed"}) + FrameOf({"~CASELOGIC~", "",
                                                           f[5] + "\xFE\xFE\xFE"
                                                                  "five",
                                                           f[6], "[" + f[7] + "]"});
  };
  // Joined in one block, the second frame is held back until the first has been handled.
  OpenOn({{3, Field(3, {{26, "NNNY"}})}, {4, Field(4, {{2, MappingOf({{2, "9"}})}})}}, "CASE");
  EXPECT_EQ(Text(3).Text(), "[two]");
  EXPECT_EQ(Text(4).Text(), "pushed");
  EXPECT_EQ(Stored(3), "two");
}

TEST_F(EntryFieldsTest, ARecordTooLongForHooks) {
  const std::string full(3990, 'x');
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{26, "Y"}}, "1", 99)}, {4, Field(4)}}, "CASE");
  Session().EntryRecord = full;
  Session().OriginalRecord.clear();
  TakeRequests();
  Do([&] { Text(4).UserFocus(); });
  Do([&] { Text(3).UserFocus(); });
  EXPECT_EQ(BoxTexts().back(), "need to handle input > 4096");
  EXPECT_TRUE(TakeRequests().empty());
  EXPECT_TRUE(HasKeyboard(Text(3)));
}

// --- pick lists

TEST_F(EntryFieldsTest, TheAnswerOfAListIsTakenAsTyped) {
  Put("DATA", "K", "");
  OpenOn({{3, Field(3, {{4, "MCU"}, {7, "LIST.3"}})},
          {4, Field(4, {{21,
                         "a\xFC"
                         "b"}})},
          {5, Field(5)}});
  std::string answer = "pick";
  Ask().ShowList = [&] { Session().ListAnswer = answer; };
  Do([&] { Screen().mnuOptList.UserClick(); });
  EXPECT_EQ(TakeRequests(), Texts{"SYLIST LIST.3"});
  Do([&] { Screen().cmdHelp.UserFocus(); });
  Deliver(FrameOf({"~LISTBOX~", "Pick", "0,0,0,0", "pick"}));
  EXPECT_EQ(Stored(3), "PICK");
  EXPECT_TRUE(HasKeyboard(Combo(4)));
  EXPECT_EQ(Session().PendingOp, "");

  // It is for the screen that asked, whatever else has happened to the current screen since.
  answer = "other";
  Session().CurrentField = 3;
  Session().ScreenId = "ANOTHER";
  Deliver(FrameOf({"~LISTBOX~", "Pick", "0,0,0,0", "other"}));
  EXPECT_EQ(Stored(3), "OTHER");
  EXPECT_EQ(Session().PendingOp, "");

  // A combo box takes the equal item, if it has it, and no later field gets the answer.
  for (const auto& [text, item] : {std::pair{"b", 1}, std::pair{"z", 1}}) {
    answer = text;
    Session().CurrentField = 4;
    Deliver(FrameOf({"~LISTBOX~", "Pick", "0,0,0,0", "pick"}));
    EXPECT_EQ(Combo(4).ListIndex(), item);
    EXPECT_EQ(Session().PendingOp, "");
  }
  for (const int none : {0, 70}) {
    Session().CurrentField = static_cast<std::int16_t>(none);
    Deliver(FrameOf({"~LISTBOX~", "Pick", "0,0,0,0", "pick"}));
    EXPECT_EQ(Session().PendingOp, "");
  }
  EXPECT_EQ(Text(5).Text(), "");
}

TEST_F(EntryFieldsTest, TheLocatorOfAField) {
  Put("DATA", "K", "");
  Put("LOCATOR", "LOC", "Words\xFEINDEX");
  Put("INDEX", "SMITH", "C1");
  OpenOn({{3, Field(3, {{13, "LOC"}})}, {4, Field(4)}});
  Ask().ShowList = [] { Session().ListAnswer = "C1"; };
  onRequest = [](const Texts& f) -> std::optional<std::string> {
    if (f[0] != "SYLOCATR") return std::nullopt;
    return FrameOf({"~LISTBOX~", "Found", "0,0,0,0", "C1 Smith"});
  };
  int locators = 0;
  backend.onIdle = [&, serve = backend.onIdle] {
    if (serve()) return true;
    if (!LoadedForm<frmLocate>() || locators > 0) return false;
    ++locators;
    user.Type("smith\r");
    return true;
  };
  backend.onPopUp = [&](MenuItem&) { Screen().mnuOptLocate.UserClick(); };
  Do([&] { user.RightClick(Text(3)); });
  EXPECT_EQ(TakeRequests(), (Texts{"READ LOCATOR LOC", "READ INDEX SMITH", "SYLOCATR LOC SMITH "}));
  EXPECT_EQ(Stored(3), "C1");
  EXPECT_TRUE(HasKeyboard(Text(4)));
  // A field without one opens no window.
  Session().CurrentField = 4;
  Do([&] { Screen().mnuOptLocate.UserClick(); });
  EXPECT_EQ(locators, 1);
  EXPECT_EQ(LoadedForm<frmLocate>(), nullptr);
  EXPECT_TRUE(TakeRequests().empty());
}

}  // namespace
}  // namespace quorvel
