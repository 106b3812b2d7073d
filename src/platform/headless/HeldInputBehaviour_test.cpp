// What the user does while an event waits for the host, and what presses of the mouse cause.

#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

class HeldInputBehaviour : public BehaviourTest {
 protected:
  HeldInputBehaviour() { ShowOne(); }

  // An event that holds the input and waits until the user has done all of `acts`.
  void WaitHolding(std::vector<std::function<void()>> acts, const std::function<void()>& after) {
    for (auto& act : acts) user->Meanwhile(std::move(act));
    user->Meanwhile([this] { waiting_ = false; });
    Do([&] {
      waiting_ = true;
      desktop().HoldInput();
      desktop().WaitWhile([this] { return waiting_; });
      after();
      Note("done");
    });
  }
  static Entries Texts() { return {One().txtA.Text(), One().txtB.Text(), One().txtC.Text()}; }

  bool waiting_ = false;
};

TEST_F(HeldInputBehaviour, KeysAndClicksAreServedInTheirOrderAfterTheWait) {
  const Entries nothing = {"", "", ""};
  WaitHolding({[&] {
                 user->Type("ab");
                 user->Click(One().txtB);
                 user->Type("c");
                 user->Press(KeyCode::Tab);
                 user->Type("d");
                 user->Click(One().cmdOK);
                 user->Type(" ");  // presses it once more
               },
               [&] {
                 EXPECT_EQ(Texts(), nothing);
                 EXPECT_EQ(KeyTarget(), "One.txtA");
               }},
              [&] { EXPECT_EQ(Texts(), nothing); });
  EXPECT_EQ(Take(), (Entries{"done", "One.txtB.GotFocus", "One.txtC.GotFocus", "One.cmdOK.GotFocus",
                             "One.cmdOK.Click", "One.cmdOK.Click"}));
  EXPECT_EQ(Texts(), (Entries{"ab", "c", "d"}));
}

TEST_F(HeldInputBehaviour, AWaitInTheMidstOfWhatWasKeptHoldsTheRest) {
  bool again = false;
  One().txtB.GotFocus = [&] {
    again = true;
    user->Meanwhile([&] { EXPECT_EQ(Texts(), (Entries{"a", "", ""})); });
    user->Meanwhile([&] { again = false; });
    desktop().HoldInput();
    desktop().WaitWhile([&] { return again; });
    One().txtC.SetFocus();
  };
  WaitHolding({[&] {
                user->Type("a");
                user->Click(One().txtB);
                user->Type("c");
              }},
              [] {});
  EXPECT_EQ(Texts(), (Entries{"a", "", "c"})) << "typed where the keyboard was by then";
}

TEST_F(HeldInputBehaviour, ABoxDropsWhatWasKept) {
  One().txtB.Click = [] { Note("txtB.Click"); };
  user->AnswerBox(MessageBoxAnswer::Ok);
  WaitHolding({[&] {
                user->Type("a");
                user->Click(One().cmdOK);
                user->Click(One().txtB);
              }},
              [] { desktop().MsgBox("The host asks"); });
  EXPECT_EQ(Take(), Entries{"done"});
  EXPECT_EQ(Texts(), (Entries{"", "", ""}));
  EXPECT_EQ(KeyTarget(), "One.txtA");
  Type("b");
  EXPECT_EQ(Texts(), (Entries{"b", "", ""}));
}

TEST_F(HeldInputBehaviour, AWindowThatOpensMeanwhileAnswersAtOnce) {
  WaitHolding({[&] { user->Type("a"); },
               [] { desktop().Post(EventKind::Receive, [] { Dialog().Show(); }); },
               [&] {
                 user->Type("d");
                 user->Click(Dialog().cmdOK);
               },
               [&] { EXPECT_EQ(Dialog().txtA.Text(), "d"); }},
              [] {});
  Entries entries = Take();
  EXPECT_EQ(entries.back(), "done");
  EXPECT_NE(std::find(entries.begin(), entries.end(), "Dialog.cmdOK.Click"), entries.end());
  EXPECT_EQ(Texts(), (Entries{"", "", ""}));
}

TEST_F(HeldInputBehaviour, AWayOutIsServedAtOnce) {
  One().cmdCancel.IsWayOut = true;
  One().mnuFileRun.IsWayOut = true;
  One().mnuFileRun.Click = [] { Note("menu"); };
  WaitHolding({[&] {
                 user->Click(One().cmdOK);
                 user->Click(One().cmdCancel);
               },
               [&] { user->ClickMenu(One().mnuFileRun); }},
              [] {});
  Entries entries = Take();
  std::erase_if(entries, [](const std::string& e) { return e.ends_with("GotFocus"); });
  EXPECT_EQ(entries, (Entries{"One.cmdCancel.Click", "menu", "done", "One.cmdOK.Click"}));
}

class PressBehaviour : public HeldInputBehaviour {};

TEST_F(PressBehaviour, TheCaretStandsWhereItWasSetWhateverIsWaitedFor) {
  One().txtB.Text = "abcdef";
  bool waiting = true;
  One().txtB.GotFocus = [&] {
    Note("begins");
    One().txtB.SelectAll();
    desktop().WaitWhile([&] { return waiting; });
    Note("ends");
  };
  user->Meanwhile([&] { EXPECT_EQ(One().txtB.SelStart(), 3); });
  user->Meanwhile([&] { waiting = false; });
  UserDoes([&] { user->ClickInText(One().txtB, 3); });
  EXPECT_EQ(Take(), (Entries{"begins", "ends"})) << "once, by the press alone";
  EXPECT_EQ(One().txtB.SelStart(), 3);
  EXPECT_EQ(One().txtB.SelLength(), 0);
}

TEST_F(PressBehaviour, AHookThatSendsTheKeyboardElsewhereIsAskedOnce) {
  One().txtB.GotFocus = [] {
    Note("refused");
    One().txtC.SetFocus();
  };
  UserDoes([&] { user->ClickInText(One().txtB, 0); });
  EXPECT_EQ(Take(), (Entries{"refused", "One.txtC.GotFocus"}));
  EXPECT_EQ(KeyTarget(), "One.txtC");
}

TEST_F(PressBehaviour, TheListOfARefusedComboBoxStaysUp) {
  ComboBox combo(One(), "cboOne", -1, ComboBox::Style::DropDownList);
  combo.Move(3200, 100, 2000, 400);
  for (const char* row : {"one", "two", "three"}) combo.List.Add(row);
  bool refuse = true;
  combo.GotFocus = [&] {
    if (refuse) One().txtC.SetFocus();
  };
  Do([] {});
  UserDoes([&] { user->PickItem(combo, 1); });
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(KeyTarget(), "One.txtC");
  refuse = false;
  UserDoes([&] { user->PickItem(combo, 1); });
  EXPECT_EQ(combo.ListIndex(), 1);
}

}  // namespace
}  // namespace quorvel
