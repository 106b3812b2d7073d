// What is typed and clicked while the host is asked: kept, served in order, and to whatever has the
// keyboard then; dropped where a box opens that nobody has seen.

#include "app/SlowHostTest.h"
#include "entry/frmList.h"
#include "menus/frmHelpText.h"
#include "menus/frmSubMenu.h"

namespace quorvel {
namespace {

// Fields: 2 the key; 3 with hooks in front and behind; 4 without.
class TypingAhead : public SlowHostTest {
 protected:
  void OpenWithHooks() {
    Open({{1,
           "2\xFD"
           "3\xFD"
           "4"},
          {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "KEY"}, {15, "Y"}})},
          {3, DefinitionOf({{1, PlaceAt(10, 2, 20)},
                            {2, MappingOf({{2, "1"}})},
                            {5, "X"},
                            {6, "NAME"},
                            {7, "NAMES"},
                            {26, "YYY"}})},
          {4, DefinitionOf(
                  {{1, PlaceAt(10, 3, 20)}, {2, MappingOf({{2, "2"}})}, {5, "X"}, {6, "CITY"}})}},
         "PROG");
    Put("DATA", "100",
        "Acme\xFE"
        "Rome");
    Put("DATA", "200",
        "Beta\xFE"
        "Oslo");
  }
  void OpenRecord() {
    OpenWithHooks();
    EnterKey("100");
    ASSERT_EQ(Text(3).Text(), "Acme");
    TakeRequests();
  }
};

// A name is typed, Tab pressed and Save clicked before the host has answered the field's hook.
TEST_F(TypingAhead, SaveBehindAHook) {
  OpenRecord();
  HoldBack("HOOK ai_NAME");
  Enter(3, "New name");
  Meanwhile([this] { user.Click(Screen().cmdSave); });
  Meanwhile([this] { user.Click(Screen().cmdSave); });
  MeanwhileAnswer();
  Press(KeyCode::Tab);
  ExpectDone();
  EXPECT_EQ(files["DATA"]["100"],
            "New name\xFE"
            "Rome");
  EXPECT_EQ(Text(3).Text(), "");  // the screen is back at its key
  EXPECT_EQ(TakeRequests(), (Texts{"HOOK ai_NAME 3", "HOOK as_NAME 3", "HOOK BeforeWrite 0",
                                   "WRITE DATA 100 New name\xFE"
                                   "Rome SYCRLOC",
                                   "HOOK AfterWrite 0", "LOCK AR.X DATA 100 U"}));
}

// Keys go on to where the keyboard is when they are served.
TEST_F(TypingAhead, FieldsAreFilledInOrder) {
  OpenRecord();
  Do([&] { Text(4).UserFocus(); });
  HoldBack("HOOK bi_NAME");
  Meanwhile([this] {
    user.Type("Two");
    user.Press(KeyCode::Tab);
    user.Type("Paris");
    EXPECT_EQ(Text(3).Text(), "Acme");
  });
  MeanwhileAnswer();
  Do([&] { Text(3).UserFocus(); });
  ExpectDone();
  EXPECT_EQ(Text(3).Text(), "Two");
  EXPECT_EQ(Text(4).Text(), "Paris");
}

// Help is not asked for the old record while the new key is being read, and replies stay with their
// requests: the record that is shown is the one of its key.
TEST_F(TypingAhead, ButtonsWhileTheKeyIsRead) {
  OpenWithHooks();
  for (const char* verb : {"LOCK", "READ"}) {
    EnterKey("100");
    Do([this] { user.Click(Screen().cmdCancel); });
    HoldBack(verb);
    Meanwhile([this] { user.Click(Screen().cmdHelp); });
    Meanwhile([this] { Screen().mnuOptList.UserClick(); });
    MeanwhileAnswer();
    Meanwhile([this] { onRequest = nullptr; });
    if (std::string("READ") == verb) Meanwhile([] {});
    EnterKey("200");
    EXPECT_EQ(Session().RecordKey, "200") << verb;
    EXPECT_EQ(Text(3).Text(), "Beta") << verb;
    onRequest = nullptr;
    Do([this] { user.Click(Screen().cmdSave); });
    EXPECT_EQ(files["DATA"]["200"],
              "Beta\xFE"
              "Oslo")
        << verb;
    EXPECT_EQ(files["DATA"]["100"],
              "Acme\xFE"
              "Rome")
        << verb;
  }
}

// Enter twice in a field that is looked up: one question, one answer.
TEST_F(TypingAhead, EnterTwiceInALookUp) {
  Open({{1,
         "2\xFD"
         "3\xFD"
         "4"},
        {2, DefinitionOf({{1, PlaceAt(10, 1, 8)}, {5, "X"}, {6, "KEY"}})},
        {3, DefinitionOf({{1, PlaceAt(10, 2, 8)},
                          {2, MappingOf({{2, "1"}})},
                          {6, "REP"},
                          {16, "REPS"},
                          {17, "1"},
                          {18, "5"}})},
        {4, DefinitionOf({{1, PlaceAt(10, 3, 8)}, {2, MappingOf({{2, "2"}})}, {6, "B"}})},
        {5,
         DefinitionOf({{1, PlaceAt(20, 2, 8)}, {2, MappingOf({{2, "3"}, {6, "4"}})}, {6, "C"}})}});
  Put("DATA", "1",
      "A1\xFE"
      "b");
  Put("REPS", "A1", "Ann");
  Put("REPS", "A2", "Bob");
  EnterKey("1");
  TakeRequests();
  Enter(3, "A2");
  HoldBack("READ");
  Meanwhile([this] { user.Press(KeyCode::Return); });
  MeanwhileAnswer();
  MeanwhileAnswer();
  Press(KeyCode::Return);
  ExpectDone();
  EXPECT_EQ(BoxTexts(), Texts{});
  EXPECT_EQ(TakeRequests(), (Texts{"READ DICTIONARY REP", "READ REPS A2"}));
  EXPECT_EQ(Text(5).Text(), "Bob");
}

// Who has typed ahead of a question has not seen it: it stays until he has.
TEST_F(TypingAhead, ABoxDropsIt) {
  OpenWithHooks();
  HoldBack("LOCK");
  Meanwhile([this] { user.Type("y\r\r"); });
  MeanwhileAnswer();
  backend.answersAtOnce = false;
  std::size_t kept = 1;
  Meanwhile([&] {
    ASSERT_NE(backend.BoxInFront(), nullptr);
    EXPECT_EQ(backend.BoxInFront()->message.text, "Do you want to add this record?");
    kept = desktop().HasKeptInput() ? 1 : 0;
    backend.BoxInFront()->answer = MessageBoxAnswer::Yes;
    backend.BoxInFront()->Close();
  });
  EnterKey("300");
  ExpectDone();
  EXPECT_EQ(kept, 0u);
  EXPECT_EQ(Text(3).Text(), "");
  EXPECT_EQ(Session().NewRecord, "Y");
}

// The list that the host opens in a wait answers at once; the screen below waits on, and has left
// the field by the time that it could take the answer.
TEST_F(TypingAhead, AListInAWaitAnswersAtOnce) {
  OpenRecord();
  HoldBack("HOOK ai_NAME");
  Enter(3, "x");
  Meanwhile([this] { Line().Deliver(FrameOf({"~LISTBOX~", "Pick", "0,0,0,0", "one", "two"})); });
  Meanwhile([this] {
    EXPECT_TRUE(InFront(LoadedForm<frmList>()));
    LoadedForm<frmList>()->lstItems.UserPick(1);
    user.Press(KeyCode::Return);
    EXPECT_EQ(LoadedForm<frmList>(), nullptr);
    EXPECT_EQ(Text(3).Text(), "x");
  });
  MeanwhileAnswer();
  plain.clear();
  Press(KeyCode::Tab);
  ExpectDone();
  EXPECT_EQ(plain, "two\r");
  EXPECT_EQ(ScreenFields::Stored(3), "x");
}

// A click that a wait has kept finds what it was meant for gone, and does nothing.
TEST_F(TypingAhead, TheLinksEndDropsIt) {
  OpenRecord();
  HoldBack("HOOK ai_NAME");
  Enter(3, "x");
  Meanwhile([this] {
    user.Click(Screen().cmdDelete);
    Line().HangUp();
  });
  Meanwhile([this] { EXPECT_FALSE(desktop().HasKeptInput()); });
  Meanwhile([this] { user.Click(Screen().cmdExit); });
  Press(KeyCode::Tab);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(BoxTexts().empty());
}

// --- menus

class TypingAheadInMenus : public SlowHostTest {
 protected:
  TypingAheadInMenus() { ShowMenu("Main", "One", "A.MENU"); }
  void ShowMenu(const std::string& title, const std::string& option, const std::string& id) {
    Deliver(MenuOf(title, option, id));
  }
  static std::string MenuOf(const std::string& title, const std::string& option,
                            const std::string& id) {
    return FrameOf({"~STARTMENU~", title,
                    title +
                        "\xFE"
                        "Tab\xFE" +
                        option +
                        "\xFD"
                        "Tab",
                    "\xFE" + id, "who"});
  }
  frmSubMenu& Menu() { return *LoadedForm<frmSubMenu>(); }
  std::size_t CountOf(const std::string& request) {
    const Texts all = TakeRequests();
    return static_cast<std::size_t>(std::count(all.begin(), all.end(), request));
  }
};

// Enter once more, or a double click, while the option is being looked up runs nothing twice; no
// more does one behind the answer of the host and ahead of what it opens.
TEST_F(TypingAheadInMenus, AnOptionRunsOnce) {
  HoldBack("READ");
  Menu().lstOptions(0).UserPick(1);
  Meanwhile([this] {
    user.Press(KeyCode::Return);
    user.DoubleClick(Menu().lstOptions(0));
    user.Click(Menu().cmdDo);
  });
  MeanwhileAnswer(FrameOf({"~ERRORMSG~", "none"}));
  Press(KeyCode::Return);
  user.DoubleClick(Menu().lstOptions(0));
  backend.RunUntilIdle();
  EXPECT_EQ(TakeRequests(), (Texts{"READ DICTIONARY A.MENU", "READ MENUS A.MENU E"}));
  Line().Deliver(FrameOf({"OK"}));
  backend.RunUntilIdle();
  EXPECT_EQ(std::exchange(plain, ""), "A.MENU\r");
  Line().Deliver(MenuOf("Main", "One", "A.MENU"));
  backend.RunUntilIdle();
  EXPECT_EQ(TakeRequests(), Texts{});
  ForgetHeld();
  onRequest = nullptr;
  Menu().lstOptions(0).UserPick(1);
  Press(KeyCode::Return);  // seen, and meant
  EXPECT_EQ(CountOf("READ DICTIONARY A.MENU"), 1u);
}

// What is typed ahead goes on to the menu that the option opens.
TEST_F(TypingAheadInMenus, TheNextMenuGetsIt) {
  HoldBack("READ");
  Menu().lstOptions(0).UserPick(1);
  Meanwhile([this] {
    user.Press(KeyCode::Down);
    user.Press(KeyCode::Return);
  });
  MeanwhileAnswer(FrameOf({"~ERRORMSG~", "none"}));
  Press(KeyCode::Return);
  Line().Deliver(FrameOf({"OK"}));
  backend.RunUntilIdle();
  ForgetHeld();
  TakeRequests();
  Line().Deliver(MenuOf("Next", "Two", "B.MENU"));
  backend.RunUntilIdle();
  EXPECT_EQ(TakeRequests(), Texts{"READ DICTIONARY B.MENU"});
}

// What else the host sends ahead of its answer takes nothing from the run.
TEST_F(TypingAheadInMenus, WhatComesBetweenLeavesTheRunItsReply) {
  const auto isSlow = [](const Texts& f) { return f[0] == "CASELOGIC" || f[1] == "MENUS"; };
  onRequest = [&](const Texts& f) {
    return isSlow(f) ? std::optional<std::string>("") : std::nullopt;
  };
  Session().CaseProgram = "P";
  Session().CaseHook = "ai_KEY";
  Menu().lstOptions(0).UserPick(1);
  Press(KeyCode::Return);
  Meanwhile([this] { Line().Deliver(FrameOf({"~FIELDHELP~", "KEY", "MENU", "Heading"})); });
  Meanwhile([this] { Line().Deliver(FrameOf({"~CASELOGIC~", "ai_KEY", "", "", "data"})); });
  Run([] { CaseCall("0"); });
  EXPECT_NE(LoadedForm<frmHelpText>(), nullptr);
  Line().Deliver(FrameOf({"OK"}));
  backend.RunUntilIdle();
  EXPECT_EQ(plain, "A.MENU\r");
  EXPECT_EQ(BoxTexts(), Texts{});
  EXPECT_EQ(Session().PendingOp, "");
}

// The ways out are served at once.
TEST_F(TypingAheadInMenus, LoggingOffInAWait) {
  HoldBack("READ");
  Menu().lstOptions(0).UserPick(1);
  Meanwhile([this] {
    user.Click(Menu().cmdLogoff);
    EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
  });
  Press(KeyCode::Return);
  EXPECT_EQ(plain, "OFF\r");
  EXPECT_FALSE(backend.stalled);
}

}  // namespace
}  // namespace quorvel
