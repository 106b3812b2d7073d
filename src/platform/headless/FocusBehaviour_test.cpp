// Who has the keyboard, and who is told of it.

#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

class FocusBehaviour : public BehaviourTest {};

TEST_F(FocusBehaviour, ShowRaisesLoadResizeActivateGotFocus) {
  Do([] {
    One().Show();
    Note("shown");
  });
  EXPECT_EQ(Take(),
            (Entries{"One.Load", "One.Resize", "One.Activate", "One.txtA.GotFocus", "shown"}));
  // In front already: as if it came to the front once more, to the control that it was left at.
  Click(One().txtB);
  Take();
  Do([] { One().Show(); });
  EXPECT_EQ(Take(), (Entries{"One.Activate", "One.txtB.GotFocus"}));
  // Another window covers it; each keeps its own place.
  Do([] { Two().Show(); });
  EXPECT_EQ(Take(), (Entries{"Two.Load", "Two.Resize", "Two.Activate", "Two.txtA.GotFocus"}));
  Do([] { One().Show(); });
  EXPECT_EQ(Take(), (Entries{"One.Activate", "One.txtB.GotFocus"}));
}

TEST_F(FocusBehaviour, NoGotFocusBeforeLoadHasEnded) {
  One().onLoad = [] {
    One().txtB.SetFocus();
    Note("load done");
  };
  Do([] { One().Show(); });
  EXPECT_EQ(Take(),
            (Entries{"One.Load", "load done", "One.Resize", "One.Activate", "One.txtB.GotFocus"}));
  // A window none of whose controls can have it gets it itself.
  Do([] {
    for (Control* control : Two().Controls()) control->Enabled = false;
    Two().Show();
  });
  EXPECT_EQ(Take(), (Entries{"Two.Load", "Two.Resize", "Two.Activate", "Two.GotFocus"}));
}

TEST_F(FocusBehaviour, SetFocusRaisesGotFocusBeforeItReturns) {
  ShowOne();
  Do([] {
    One().txtB.SetFocus();
    Note("1");
    One().txtB.SetFocus();  // has it already
    Note("2");
  });
  EXPECT_EQ(Take(), (Entries{"One.txtB.GotFocus", "1", "2"}));

  // From inside another GotFocus: the inner one wins and stays.
  One().txtC.GotFocus = [] {
    Note("C begins");
    One().txtA.SetFocus();
    Note("C ends");
  };
  Do([] { One().txtC.SetFocus(); });
  EXPECT_EQ(Take(), (Entries{"C begins", "One.txtA.GotFocus", "C ends"}));
  Type("x");
  EXPECT_EQ(One().txtA.Text(), "x");
  // On the way by Tab the same.
  One().txtB.SetFocus();
  Take();
  Press(KeyCode::Tab);
  EXPECT_EQ(Take(), (Entries{"C begins", "One.txtA.GotFocus", "C ends"}));
}

TEST_F(FocusBehaviour, SetFocusOnWhatCannotHaveItIsNothing) {
  ShowOne();
  Do([] {
    One().txtB.Enabled = false;
    One().txtC.Visible = false;
    One().txtB.SetFocus();
    One().txtC.SetFocus();
    Two().txtA.SetFocus();  // not loaded
    Form<FormTwo>()->Hide();
    Take();
    Two().txtA.SetFocus();  // loaded, hidden
  });
  EXPECT_EQ(Take(), Entries{});
  EXPECT_EQ(KeyTarget(), "One.txtA");
  EXPECT_EQ(desktop().focus().Front(), &One());
}

TEST_F(FocusBehaviour, TabFollowsTabIndexOverReachableStopsAndWraps) {
  struct Case {
    const char* what;
    std::function<void()> arrange;
    Entries forward;  // where Tab leads from txtA, until it is back there
  };
  const std::vector<Case> cases = {
      {"as created", [] {}, {"txtB", "txtC", "cmdOK", "cmdCancel", "txtA"}},
      {"one is disabled",
       [] { One().txtB.Enabled = false; },
       {"txtC", "cmdOK", "cmdCancel", "txtA"}},
      {"and one hidden", [] { One().txtC.Visible = false; }, {"cmdOK", "cmdCancel", "txtA"}},
      {"and one no stop", [] { One().cmdOK.TabStop = false; }, {"cmdCancel", "txtA"}},
      {"all are back, the last becomes second",
       [] {
         One().txtB.Enabled = true;
         One().txtC.Visible = true;
         One().cmdOK.TabStop = true;
         One().cmdCancel.TabIndex = 1;
       },
       {"cmdCancel", "txtB", "txtC", "cmdOK", "txtA"}},
  };
  ShowOne();
  for (const Case& c : cases) {
    Do(c.arrange);
    Entries expected;
    for (const std::string& name : c.forward) expected.push_back("One." + name + ".GotFocus");
    for (std::size_t i = 0; i < c.forward.size(); ++i) Press(KeyCode::Tab);
    EXPECT_EQ(Take(), expected) << c.what;
    // Shift+Tab goes the same way back.
    for (std::size_t i = 0; i < c.forward.size(); ++i) Press(KeyCode::Tab, kShift);
    std::reverse(expected.begin(), expected.end() - 1);
    EXPECT_EQ(Take(), expected) << c.what << ", backward";
  }
  EXPECT_EQ(One().txtB.TabIndex(), 2) << "the new second has moved it";
}

TEST_F(FocusBehaviour, TabLeavesOutOtherPages) {
  TabStrip tabs(One(), "tabs");
  ListBox first(tabs, "lstFirst"), second(tabs, "lstSecond");
  tabs.Move(3200, 100, 2600, 3000);
  for (ListBox* list : {&first, &second}) list->Move(100, 500, 2000, 2000);
  second.Page = 1;
  One().cmdOK.Enabled = false;
  One().cmdCancel.Enabled = false;
  ShowOne();
  One().txtC.SetFocus();
  Take();
  Entries way;
  for (int page : {0, 1}) {
    UserDoes([&] { user->TurnTo(tabs, page); });
    Do([] { One().txtC.SetFocus(); });
    for (int i = 0; i < 3; ++i) {
      Press(KeyCode::Tab);
      way.push_back(KeyTarget());
    }
  }
  EXPECT_EQ(way, (Entries{"One.tabs", "One.lstFirst", "One.txtA",  //
                          "One.tabs", "One.lstSecond", "One.txtA"}));
}

// The focused control is disabled or hidden in a handler that then waits.
class LostFocusBehaviour : public BehaviourTest {
 protected:
  // Runs `lose`, a wait in which the user types "x", and `after`, as one event.
  void LoseAndWait(const std::function<void()>& lose, const std::function<void()>& after) {
    user->Meanwhile([this] { user->Type("x"); });
    user->Meanwhile([this] { waiting_ = false; });
    Do([&] {
      waiting_ = true;
      lose();
      desktop().WaitWhile([this] { return waiting_; });
      EXPECT_EQ(KeyTarget(), "nothing");
      after();
      Note("done");
    });
  }
  static Entries Texts() { return {One().txtA.Text(), One().txtB.Text(), One().txtC.Text()}; }

 private:
  bool waiting_ = false;
};

TEST_F(LostFocusBehaviour, KeysGoNowhereUntilTheHandlerIsDone) {
  struct Case {
    const char* what;
    std::function<void()> lose;
    std::function<void()> after;
    Entries journal;
    const char* target;
  };
  const auto enable = [] { One().txtA.Enabled = true; };
  const std::vector<Case> cases = {
      {"disabled: the next in tab order",
       [] { One().txtA.Enabled = false; },
       [] {},
       {"done", "One.txtB.GotFocus"},
       "One.txtB"},
      {"hidden: the next in tab order",
       [] { One().txtA.Visible = false; },
       [] {},
       {"done", "One.txtB.GotFocus"},
       "One.txtB"},
      {"the next that can have it",
       [] {
         One().txtA.Enabled = false;
         One().txtB.Visible = false;
       },
       [] {},
       {"done", "One.txtC.GotFocus"},
       "One.txtC"},
      {"from the middle: not the first, the next",
       [] {
         One().txtB.SetFocus();
         One().txtB.Enabled = false;
       },
       [] {},
       {"One.txtB.GotFocus", "done", "One.txtC.GotFocus"},
       "One.txtC"},
      {"SetFocus elsewhere settles it",
       [] { One().txtA.Enabled = false; },
       [] { One().txtC.SetFocus(); },
       {"One.txtC.GotFocus", "done"},
       "One.txtC"},
      {"SetFocus on the very control",
       [] { One().txtA.Enabled = false; },
       [&] {
         enable();
         One().txtA.SetFocus();
       },
       {"One.txtA.GotFocus", "done"},
       "One.txtA"},
      {"enabled again: back silently",
       [] { One().txtA.Enabled = false; },
       enable,
       {"done"},
       "One.txtA"},
      {"hidden and shown again",
       [] { One().txtA.Visible = false; },
       [] { One().txtA.Visible = true; },
       {"done"},
       "One.txtA"},
  };
  ShowOne();
  for (const Case& c : cases) {
    LoseAndWait(c.lose, c.after);
    EXPECT_EQ(Take(), c.journal) << c.what;
    EXPECT_EQ(KeyTarget(), c.target) << c.what;
    EXPECT_EQ(Texts(), (Entries{"", "", ""})) << c.what;
    Type("k");
    EXPECT_EQ(static_cast<TextBox*>(desktop().focus().KeyTarget())->Text(), "k") << c.what;
    Do([] {
      for (TextBox* box : {&One().txtA, &One().txtB, &One().txtC}) {
        box->Enabled = true;
        box->Visible = true;
        box->Text = "";
      }
      One().txtA.SetFocus();
    });
    Take();
  }
}

TEST_F(LostFocusBehaviour, AReceiveEventInsideTheWaitSettlesNothing) {
  ShowOne();
  bool waiting = true;
  user->Meanwhile([&] {
    desktop().Post(EventKind::Receive, [&] {
      Note("received");
      waiting = false;
    });
  });
  Do([&] {
    One().txtA.Enabled = false;
    desktop().WaitWhile([&] { return waiting; });
    EXPECT_EQ(KeyTarget(), "nothing");
    Note("done");
  });
  EXPECT_EQ(Take(), (Entries{"received", "done", "One.txtB.GotFocus"}));
}

TEST_F(FocusBehaviour, HidingAContainerAcrossAYieldMovesNothing) {
  Frame frame(One(), "fraInner");
  frame.Move(3200, 100, 2600, 1200);
  TextBox inner(frame, "txtInner");
  inner.Move(100, 300, 2000, 400);
  inner.GotFocus = [] { Note("inner.GotFocus"); };
  ShowOne();
  Do([&] { inner.SetFocus(); });
  Take();
  Do([&] {
    frame.Visible = false;
    desktop().Yield();
    frame.Visible = true;
  });
  EXPECT_EQ(Take(), Entries{});
  Type("x");
  EXPECT_EQ(inner.Text(), "x");
}

TEST_F(FocusBehaviour, SetFocusAcrossChildWindowsBringsTheirsToTheFront) {
  ShowOne();
  Do([] { Two().Show(); });
  Take();
  Do([] {
    One().txtC.SetFocus();
    EXPECT_EQ(desktop().focus().Front(), &One());
  });
  EXPECT_EQ(Take(), (Entries{"One.Activate", "One.txtC.GotFocus"}));
  // By the user's hand.
  Click(Two().txtB);
  EXPECT_EQ(Take(), (Entries{"Two.Activate", "Two.txtB.GotFocus"}));
  Type("x");
  EXPECT_EQ(Two().txtB.Text(), "x");
  // An Activate that gives the keyboard to a control gives it once.
  One().onActivate = [] { One().txtB.SetFocus(); };
  Do([] { One().txtB.SetFocus(); });
  EXPECT_EQ(Take(), (Entries{"One.Activate", "One.txtB.GotFocus"}));
  // When the one in front goes, the one below is there.
  Do([] { One().Hide(); });
  EXPECT_EQ(desktop().focus().Front(), &Two());
  EXPECT_EQ(KeyTarget(), "Two.txtB");
}

TEST_F(FocusBehaviour, TheUserTurnsBetweenAWindowAndItsDialog) {
  ShowOne();
  Do([] { Dialog().Show(); });
  Take();
  UserDoes([&] { user->TurnTo(One()); });
  EXPECT_EQ(Take(), (Entries{"One.Activate", "One.txtA.GotFocus"}));
  Type("a");
  UserDoes([&] { user->TurnTo(Dialog()); });
  EXPECT_EQ(Take(), (Entries{"Dialog.Activate", "Dialog.txtA.GotFocus"}));
  UserDoes([&] { user->TurnTo(Dialog()); });  // from another program, say
  // A box above a dialog gives the keyboard back to the dialog.
  Do([] { desktop().MsgBox("?"); });
  Type("d");
  EXPECT_EQ(Take(), Entries{});
  EXPECT_EQ(One().txtA.Text() + Dialog().txtA.Text(), "ad");
}

TEST_F(FocusBehaviour, MnemonicsLeadToTheirControls) {
  constexpr auto key = [](char letter) { return static_cast<KeyCode>(letter); };
  Label lblUser(One(), "lblUser");
  lblUser.Caption = "&User:";
  lblUser.StandsFor(One().txtC);
  One().cmdOK.Caption = "&Go";
  One().cmdCancel.Caption = "R&&D";
  ShowOne();
  Press(key('U'), kAlt);
  EXPECT_EQ(Take(), Entries{"One.txtC.GotFocus"});
  Press(key('G'), kAlt);
  EXPECT_EQ(Take(), (Entries{"One.cmdOK.GotFocus", "One.cmdOK.Click"}));
  Press(key('D'), kAlt);
  EXPECT_EQ(Take(), Entries{}) << "an ampersand, not a mnemonic";
  Do([] { One().cmdOK.Enabled = false; });
  Take();
  Press(key('G'), kAlt);
  EXPECT_EQ(Take(), Entries{});
}

}  // namespace
}  // namespace quorvel
