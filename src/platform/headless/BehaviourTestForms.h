#pragma once

#include <gtest/gtest.h>

#include "platform/controls/ControlArray.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/BehaviourTestDesktop.h"

namespace quorvel {

using Entries = std::vector<std::string>;

// What was raised and noted so far, oldest first: "One.Activate", "One.txtA.GotFocus".
inline Entries& Journal() {
  static Entries entries;
  return entries;
}
inline void Note(const std::string& entry) {
  Journal().push_back(entry);
}

// A window that journals its events, with three text boxes and two buttons in tab order.
class JournalForm : public Window {
 public:
  TextBox txtA{*this, "txtA"};
  TextBox txtB{*this, "txtB"};
  TextBox txtC{*this, "txtC"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  std::function<void()> onLoad, onResize, onActivate;
  std::function<void(bool&cancel)> onQueryUnload, onUnload;
  std::function<void(KeyEvent& key)> onKeyDown;

 protected:
  JournalForm(Kind kind, const std::string& name) : Window(kind, name) {
    Caption = name;
    cmdOK.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    int top = 100;
    for (Control* control : std::vector<Control*>{&txtA, &txtB, &txtC, &cmdOK, &cmdCancel}) {
      control->Move(100, top, 3000, 400);
      top += 500;
      const std::string prefix = name + "." + control->Name();
      control->AccessibleText = control->Name();
      control->GotFocus = [prefix] { Note(prefix + ".GotFocus"); };
    }
    cmdOK.Click = [name] { Note(name + ".cmdOK.Click"); };
    cmdCancel.Click = [name] { Note(name + ".cmdCancel.Click"); };
    if (kind == Kind::Dialog) {
      SetLayout({Wide(txtA), Wide(txtB), Wide(txtC), Buttons({&cmdOK, &cmdCancel})});
    }
  }

  void Form_Load() override { Tell("Load", onLoad); }
  void Form_Resize() override { Tell("Resize", onResize); }
  void Form_Activate() override { Tell("Activate", onActivate); }
  void Form_GotFocus() override { Note(Name() + ".GotFocus"); }
  void Form_QueryUnload(bool& cancel) override {
    Note(Name() + ".QueryUnload");
    if (onQueryUnload) onQueryUnload(cancel);
  }
  void Form_Unload(bool& cancel) override {
    Note(Name() + ".Unload");
    if (onUnload) onUnload(cancel);
  }
  void Form_KeyDown(KeyEvent& key) override {
    if (onKeyDown) onKeyDown(key);
  }

 private:
  void Tell(const char* event, const std::function<void()>& hook) {
    Note(Name() + "." + event);
    if (hook) hook();
  }
};

// Two child windows of the shell, side by side, and two dialogs.
struct FormOne : JournalForm {
  FormOne() : JournalForm(Kind::Child, "One") { Width.Adopt(6000), Height.Adopt(4000); }
  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFileRun{mnuFile, "mnuFileRun", "&Run"};
  MenuItem mnuFileGrey{mnuFile, "mnuFileGrey", "&Grey"};
};
struct FormTwo : JournalForm {
  FormTwo() : JournalForm(Kind::Child, "Two") {
    Left.Adopt(6000), Width.Adopt(6000), Height.Adopt(4000);
  }
};
struct DialogOne : JournalForm {
  DialogOne() : JournalForm(Kind::Dialog, "Dialog") {}
};
struct DialogTwo : JournalForm {
  DialogTwo() : JournalForm(Kind::Dialog, "Inner") {}
};

// The main window, with a menu and a panel at its bottom.
struct Shell : Window {
  Shell() : Window(Kind::Main, "Shell") {
    Width.Adopt(12000), Height.Adopt(9000);
    pnlBottom.AlignBottom = true;
    pnlBottom.Visible = false;
    pnlBottom.Height = 825;
  }
  Panel pnlBottom{*this, "pnlBottom"};
  MenuItem mnuStart{*this, "mnuStart", "&Start"};
  int resized = 0;
  std::function<void()> onResize;

 protected:
  void Form_Resize() override {
    ++resized;
    if (onResize) onResize();
  }
};

class BehaviourTest : public ::testing::Test {
 protected:
  BehaviourTest() : user(MakeTestDesktop()) {
    Journal().clear();
    ShowShell();
  }
  void TearDown() override {
    EXPECT_TRUE(user->AllDone()) << "the program never got to where the user was to act";
    EXPECT_FALSE(user->Stalled()) << "the program waited for what could never come";
  }

  static Shell& TheShell() { return *desktop().FormObject<Shell>(); }
  static FormOne& One() { return *desktop().FormObject<FormOne>(); }
  static FormTwo& Two() { return *desktop().FormObject<FormTwo>(); }
  static DialogOne& Dialog() { return *desktop().FormObject<DialogOne>(); }
  static DialogTwo& Inner() { return *desktop().FormObject<DialogTwo>(); }

  // Runs the statements as one event, and serves all that follows from it.
  void Do(std::function<void()> statements, EventKind kind = EventKind::Program) {
    desktop().Post(kind, std::move(statements));
    user->ServeUntilIdle();
  }
  // One act of the user, and all that follows from it.
  void UserDoes(const std::function<void()>& act) {
    act();
    user->ServeUntilIdle();
  }
  void Press(KeyCode key, int shift = kNoShift) {
    UserDoes([&] { user->Press(key, shift); });
  }
  void Type(const std::string& text) {
    UserDoes([&] { user->Type(text); });
  }
  void Click(Control& control) {
    UserDoes([&] { user->Click(control); });
  }

  void ShowShell() {
    desktop().SetMain(&TheShell());
    Do([] { TheShell().Show(); });
  }
  // Shows child window One with the keyboard in txtA, and forgets the events of that.
  void ShowOne() {
    Do([] { One().Show(); });
    Journal().clear();
  }
  // What was journalled since the last call.
  static Entries Take() { return std::exchange(Journal(), {}); }
  // The texts of the boxes shown since the last call.
  Entries TakeBoxes() {
    Entries texts;
    for (const MessageBoxRequest& box : std::exchange(user->boxes, {})) texts.push_back(box.text);
    return texts;
  }
  static std::string KeyTarget() {
    Control* target = desktop().focus().KeyTarget();
    return target ? target->window().Name() + "." + target->CodeName() : "nothing";
  }

  std::unique_ptr<BehaviourTestDesktop> user;
};

}  // namespace quorvel
