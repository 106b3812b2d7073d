// Windows: modal ones, message boxes, closing, menus, the shell.

#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

class ModalBehaviour : public BehaviourTest {
 protected:
  ModalBehaviour() {
    ShowOne();
    Do([] { One().txtB.SetFocus(); });
    Take();
  }
  // What showing a window modally raises before the user does anything.
  static Entries Opening(const std::string& name) {
    return {name + ".Load", name + ".Resize", name + ".Activate", name + ".txtA.GotFocus"};
  }
  static Entries Joined(Entries first, const Entries& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
  }
};

TEST_F(ModalBehaviour, TheFocusComesBackExactlyOnce) {
  struct Case {
    const char* what;
    std::function<void()> afterwards;
    Entries journal;
  };
  const std::vector<Case> cases = {
      {"nobody sets it: when the handler is done", [] {}, {"handler done", "One.txtB.GotFocus"}},
      {"the handler sets it where it was",
       [] { One().txtB.SetFocus(); },
       {"One.txtB.GotFocus", "handler done"}},
      {"the first SetFocus of the handler wins",
       [] {
         One().txtC.SetFocus();
         One().txtC.SetFocus();
       },
       {"One.txtC.GotFocus", "handler done"}},
  };
  for (const Case& c : cases) {
    for (const bool hides : {true, false}) {
      user->Meanwhile([&] { user->Type("x"); });
      user->Meanwhile([&] { hides ? Dialog().Hide() : static_cast<void>(Dialog().Unload()); });
      Do([&] {
        Dialog().ShowModal();
        EXPECT_EQ(Dialog().IsLoaded(), hides);
        c.afterwards();
        Note("handler done");
      });
      Entries expected = Opening("Dialog");
      if (!hides) expected.insert(expected.end(), {"Dialog.QueryUnload", "Dialog.Unload"});
      EXPECT_EQ(Take(), Joined(expected, c.journal)) << c.what;
      EXPECT_EQ(Dialog().txtA.Text(), hides ? "x" : "") << "a fresh one after an unload";
      EXPECT_EQ(One().txtB.Text(), "");
      Do([] {
        Dialog().Unload();
        One().txtB.SetFocus();
      });
      Take();
    }
  }
}

TEST_F(ModalBehaviour, AControlDisabledMeanwhileGetsItBack) {
  user->Meanwhile([] { Dialog().Unload(); });
  Do([] {
    One().txtB.Enabled = false;
    Dialog().ShowModal();
    One().txtB.Enabled = true;
    Take();
  });
  EXPECT_EQ(Take(), Entries{"One.txtB.GotFocus"});
}

TEST_F(ModalBehaviour, NestedModalWindowsGiveItBackOneByOne) {
  Dialog().cmdOK.Click = [] {
    Inner().ShowModal();
    Note("inner is gone");
  };
  user->Meanwhile([&] { user->Click(Dialog().cmdOK); });
  user->Meanwhile([] { Inner().Unload(); });
  user->Meanwhile([&] { user->Click(Dialog().cmdCancel); });
  Dialog().cmdCancel.Click = [] { Dialog().Unload(); };
  Do([] {
    Dialog().ShowModal();
    Note("handler done");
  });
  const Entries story = {"Dialog.cmdOK.GotFocus",  //
                         "Inner.Load",
                         "Inner.Resize",
                         "Inner.Activate",
                         "Inner.txtA.GotFocus",
                         "Inner.QueryUnload",
                         "Inner.Unload",
                         "inner is gone",
                         "Dialog.cmdOK.GotFocus",  // outermost above Dialog
                         "Dialog.cmdCancel.GotFocus",
                         "Dialog.QueryUnload",
                         "Dialog.Unload",
                         "handler done",
                         "One.txtB.GotFocus"};
  EXPECT_EQ(Take(), Joined(Opening("Dialog"), story));
}

TEST_F(ModalBehaviour, WhatIsBelowTakesNoInput) {
  One().mnuFileRun.Click = [] { Note("menu"); };
  user->Meanwhile([&] {
    user->Click(One().cmdOK);
    user->ClickMenu(One().mnuFileRun);
    user->CloseBox(One());
    user->TurnTo(One());
  });
  // The program may still work down there; the keyboard stays with the modal window.
  user->Meanwhile([] {
    desktop().Post(EventKind::Receive, [] {
      One().txtC.SetFocus();
      Two().Show();
      Note("received");
    });
  });
  user->Meanwhile([&] {
    EXPECT_EQ(KeyTarget(), "Dialog.txtA");
    Dialog().Unload();
  });
  Do([] { Dialog().ShowModal(); });
  EXPECT_EQ(Take(),
            Joined(Opening("Dialog"), {"Two.Load", "Two.Resize", "received", "Dialog.QueryUnload",
                                       "Dialog.Unload", "Two.Activate", "Two.txtA.GotFocus"}));
}

TEST_F(ModalBehaviour, AMessageBoxComesAndGoesWithoutAnyEvent) {
  using Style = int;
  struct Case {
    Style style;
    MessageBoxAnswer answer;
  };
  const Style yesNo = MessageBoxStyle::kYesNo | MessageBoxStyle::kQuestion;
  for (const Case& c : {Case{MessageBoxStyle::kExclamation, MessageBoxAnswer::Ok},
                        Case{yesNo, MessageBoxAnswer::Yes}, Case{yesNo, MessageBoxAnswer::No},
                        Case{MessageBoxStyle::kYesNoCancel, MessageBoxAnswer::No},
                        Case{MessageBoxStyle::kYesNoCancel, MessageBoxAnswer::Cancel}}) {
    user->AnswerBox(c.answer, [&] {
      user->Type("x");
      user->Click(One().cmdOK);
      user->CloseBox(One());
      EXPECT_EQ(KeyTarget(), "nothing");
    });
    Do([&] {
      EXPECT_EQ(desktop().MsgBox("Line 1\nLine <b>2</b> & more", c.style, "Title"), c.answer);
    });
  }
  EXPECT_EQ(Take(), Entries{});
  const MessageBoxRequest shown{"Line 1\nLine <b>2</b> & more", "Title", yesNo};
  ASSERT_EQ(user->boxes.size(), 5u);
  EXPECT_EQ(user->boxes[2], shown);
  EXPECT_EQ(user->boxes[4].style, int{MessageBoxStyle::kYesNoCancel});
  desktop().backend().application().SetTitle("Program");
  Do([] { desktop().MsgBox("untitled"); });
  EXPECT_EQ(user->boxes.back().title, "Program");
  Type("y");
  EXPECT_EQ(One().txtB.Text(), "y");
}

class ClosingBehaviour : public BehaviourTest {};

TEST_F(ClosingBehaviour, EachQuestionRunsOnceAndMayRefuse) {
  struct Case {
    const char* what;
    bool refuseQuery, refuseUnload;
    Entries journal;
  };
  const std::vector<Case> cases = {
      {"QueryUnload refuses", true, false, {"One.QueryUnload"}},
      {"Unload refuses", false, true, {"One.QueryUnload", "One.Unload"}},
      {"nobody refuses", false, false, {"One.QueryUnload", "One.Unload"}},
  };
  ShowOne();
  for (const Case& c : cases) {
    One().onQueryUnload = [&](bool& cancel) { cancel = c.refuseQuery; };
    One().onUnload = [&](bool& cancel) { cancel = c.refuseUnload; };
    UserDoes([&] { user->CloseBox(One()); });
    EXPECT_EQ(Take(), c.journal) << c.what;
    const bool stays = c.refuseQuery || c.refuseUnload;
    EXPECT_EQ(LoadedForm<FormOne>() != nullptr, stays) << c.what;
    EXPECT_EQ(KeyTarget(), stays ? "One.txtA" : "nothing") << c.what;
  }
}

TEST_F(ClosingBehaviour, AClosingInsideTheQuestionIsTheSameClosing) {
  ShowOne();
  One().onQueryUnload = [form = &One()](bool&) {
    EXPECT_TRUE(form->Unload());
    EXPECT_FALSE(form->IsLoaded());
  };
  Do([] { EXPECT_TRUE(One().Unload()); });
  EXPECT_EQ(Take(), (Entries{"One.QueryUnload", "One.Unload"}));
}

TEST_F(ClosingBehaviour, AWindowLivesUntilItsOwnEventHasReturned) {
  Dialog().cmdOK.Click = [form = &Dialog()] {
    form->txtA.Text = "still here";
    EXPECT_TRUE(form->Unload());
    EXPECT_FALSE(form->IsLoaded());
    Note(form->txtA.Text());
    Note("fresh: " + Dialog().txtA.Text());  // the name stands for another one now
  };
  Do([] { Dialog().Show(); });
  Take();
  Click(Dialog().cmdOK);
  EXPECT_EQ(Take(), (Entries{"Dialog.cmdOK.GotFocus", "Dialog.QueryUnload", "Dialog.Unload",
                             "still here", "fresh: "}));
  // While its own box is open, too.
  Dialog().cmdOK.Click = [form = &Dialog()] {
    form->txtA.Text = "gone behind the box";
    desktop().MsgBox("?");
    Note(form->txtA.Text());
  };
  user->Meanwhile([&] { user->Click(Dialog().cmdOK); });
  user->AnswerBox(MessageBoxAnswer::Ok,
                  [&] { Do([] { EXPECT_TRUE(Dialog().Unload()); }, EventKind::Receive); });
  Do([] {
    Dialog().ShowModal();
    Note("handler done");
  });
  const Entries entries = Take();
  EXPECT_EQ(
      Entries(entries.end() - 4, entries.end()),
      (Entries{"Dialog.QueryUnload", "Dialog.Unload", "gone behind the box", "handler done"}));
  EXPECT_EQ(LoadedForm<DialogOne>(), nullptr);
}

TEST_F(ClosingBehaviour, FormsByNameAreLoadedByUseAndFreshAfterUnload) {
  Do([] {
    One().Hide();
    One().Width = 3000;
    One().Unload();
    EXPECT_EQ(LoadedForm<FormOne>(), nullptr);
    EXPECT_EQ(Take(), Entries{}) << "none of these loads it";
    Form<FormOne>()->txtA.Text = "first";
    EXPECT_FALSE(One().IsVisible());
    EXPECT_EQ(Form<FormOne>()->txtA.Text(), "first");
    EXPECT_EQ(Take(), Entries{"One.Load"});
    One().Unload();
    EXPECT_EQ(Form<FormOne>()->txtA.Text(), "");
  });
  EXPECT_EQ(Take(), (Entries{"One.QueryUnload", "One.Unload", "One.Load"}));
}

TEST_F(ClosingBehaviour, CloseBoxEscapeAndEnterPressTheDialogsButtons) {
  Do([] {
    Dialog().cmdOK.Default = true;
    Dialog().cmdCancel.Cancel = true;
    Dialog().Show();
  });
  Take();
  UserDoes([&] { user->CloseBox(Dialog()); });
  EXPECT_EQ(Take(), (Entries{"Dialog.cmdCancel.GotFocus", "Dialog.cmdCancel.Click"}));
  EXPECT_TRUE(Dialog().IsVisible()) << "it is the button that closes";
  Do([] { Dialog().txtA.SetFocus(); });
  Take();
  Press(KeyCode::Return);
  EXPECT_EQ(Take().back(), "Dialog.cmdOK.Click");
  Do([] { Dialog().txtA.SetFocus(); });
  Press(KeyCode::Escape);
  EXPECT_EQ(Take().back(), "Dialog.cmdCancel.Click");
  // Enter on another button is that button's.
  Do([] { Dialog().cmdCancel.SetFocus(); });
  Take();
  Press(KeyCode::Return);
  EXPECT_EQ(Take(), Entries{"Dialog.cmdCancel.Click"});
  // A disabled button answers nothing; without a cancel button the close box closes.
  Do([] {
    Dialog().txtA.SetFocus();
    Dialog().cmdOK.Enabled = false;
    Dialog().cmdCancel.Enabled = false;
  });
  Take();
  Press(KeyCode::Return);
  Press(KeyCode::Escape);
  EXPECT_EQ(Take(), Entries{});
  Do([] { Dialog().cmdCancel.Cancel = false; });
  UserDoes([&] { user->CloseBox(Dialog()); });
  EXPECT_EQ(Take(), (Entries{"Dialog.QueryUnload", "Dialog.Unload"}));
}

class MenuBehaviour : public BehaviourTest {};

TEST_F(MenuBehaviour, ADisabledWindowsMenuStillWorks) {
  One().mnuFileRun.Click = [] { Note("run"); };
  One().mnuFileGrey.Click = [] { Note("unreachable"); };
  One().mnuFileGrey.Enabled = false;
  ShowOne();
  for (const bool enabled : {true, false}) {
    Do([&] { One().Enabled = enabled; });
    UserDoes([&] { user->ClickMenu(One().mnuFileRun); });
    UserDoes([&] { user->ClickMenu(One().mnuFileGrey); });
    EXPECT_EQ(Take(), Entries{"run"}) << "enabled: " << enabled;
  }
  Click(One().cmdOK);
  Type("x");
  Do([] { One().txtB.SetFocus(); });
  EXPECT_EQ(Take(), Entries{});
  EXPECT_EQ(One().txtA.Text(), "");
  Do([] { One().Enabled = true; });
  Type("x");
  EXPECT_EQ(One().txtA.Text(), "x");
}

TEST_F(MenuBehaviour, APopUpReturnsWhenItsClickIsDone) {
  One().mnuFileRun.Click = [] { Note("run"); };
  ShowOne();
  user->ChooseInPopUp(One().mnuFileRun);
  Do([] {
    Note("opens");
    desktop().PopupMenu(One().mnuFile);
    Note("closed");
  });
  EXPECT_EQ(Take(), (Entries{"opens", "run", "closed"}));
  Type("x");
  EXPECT_EQ(One().txtA.Text(), "x");
}

class ShellBehaviour : public BehaviourTest {};

TEST_F(ShellBehaviour, ThePanelTakesItsHeightFromTheClientArea) {
  Shell& shell = TheShell();
  const int width = shell.ClientWidth(), height = shell.ClientHeight();
  EXPECT_LT(width, shell.Width() + 1);
  EXPECT_LT(height, shell.Height()) << "the menu bar is no client area";
  shell.resized = 0;
  Do([&] {
    shell.pnlBottom.Visible = true;
    EXPECT_EQ(shell.ClientHeight(), height - 825);
    EXPECT_EQ(shell.resized, 1);
    // Children that fill it, by a pixel too much: no scroll bar takes anything away.
    One().Show();
    One().Left = 0;
    One().Top = 0;
    One().Width = shell.ClientWidth() + 15;
    One().Height = shell.ClientHeight() + 15;
  });
  EXPECT_EQ(One().Width(), width + 15);
  EXPECT_EQ(One().Height(), height - 825 + 15);
  EXPECT_EQ(One().ClientHeight(), One().Height()) << "a child has no frame";
  EXPECT_EQ(shell.ClientWidth(), width);
  EXPECT_EQ(shell.ClientHeight(), height - 825);
  Do([&] { shell.pnlBottom.Visible = false; });
  EXPECT_EQ(shell.ClientHeight(), height);
  EXPECT_EQ(shell.resized, 2);
  Do([&] { shell.Height = shell.Height() + 600; });
  EXPECT_EQ(shell.ClientHeight(), height + 600);
  EXPECT_EQ(shell.resized, 3);
}

TEST_F(ModalBehaviour, AResizableDialogKeepsTheSizeGivenWhileLoading) {
  struct SizedDialog : JournalForm {
    SizedDialog() : JournalForm(Kind::Dialog, "Sized") { Resizable = true; }
  };
  SizedDialog& dialog = *desktop().FormObject<SizedDialog>();
  dialog.onLoad = [&] {
    dialog.Width = 7500;
    dialog.Height = 6000;
  };
  Do([&] { dialog.Show(); });
  EXPECT_EQ(dialog.Width(), 7500);
  EXPECT_EQ(dialog.Height(), 6000);
}

}  // namespace
}  // namespace quorvel
