// Windows that go while one of their own events waits, and what opened last answers first.

#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

// A dialog and a child with a list each.
struct ListForm : JournalForm {
  ListForm(Kind kind, const std::string& name) : JournalForm(kind, name) {
    list.Move(3200, 100, 2600, 3000);
    if (kind == Kind::Dialog) SetLayout({});
  }
  ListView list{*this, "lvw"};
  ComboBox combo{*this, "cbo", -1, ComboBox::Style::DropDownList};
  MenuItem mnuTop{*this, "mnuTop", "&Top"};
  MenuItem mnuRun{mnuTop, "mnuRun", "&Run"};

 protected:
  void Form_Load() override {
    JournalForm::Form_Load();
    for (const char* row : {"one", "two", "three"}) {
      list.Add(row, "");
      combo.List.Add(row);
    }
    combo.Move(100, 2600, 2000, 400);
  }
};
struct ListChild : ListForm {
  ListChild() : ListForm(Kind::Child, "ListChild") { Width.Adopt(6000), Height.Adopt(4000); }
};

class LifetimeBehaviour : public BehaviourTest {
 protected:
  static ListChild& Child() { return *desktop().FormObject<ListChild>(); }
  // A handler waits; meanwhile the host's event unloads its window, and much else is served.
  void WaitWhileUnloaded() {
    bool waiting = true;
    user->Meanwhile([] {
      // As the network tells it: from within an event of the toolkit.
      desktop().Handle(EventKind::Receive, [] {
        Child().Unload();
        Note("unloaded");
      });
    });
    user->Meanwhile([] { desktop().Post(EventKind::Receive, [] { Two().Show(); }); });
    user->Meanwhile([] { desktop().Post(EventKind::Receive, [] { Two().Unload(); }); });
    user->Meanwhile([&] { waiting = false; });
    desktop().WaitWhile([&] { return waiting; });
    Note("waited");
  }
};

TEST_F(LifetimeBehaviour, AWindowMayGoWhileAnyEventOfItsOwnWaits) {
  struct Case {
    const char* what;
    std::function<void(const std::function<void()>&)> hook;
    std::function<void()> act;
  };
  const std::vector<Case> cases = {
      {"double click in a list", [](auto& wait) { Child().list.DblClick = wait; },
       [&] {
         user->PickRow(Child().list, 2);
         user->DoubleClick(Child().list);
       }},
      {"a row picked", [](auto& wait) { Child().list.Click = wait; },
       [&] { user->PickRow(Child().list, 2); }},
      {"a button", [](auto& wait) { Child().cmdOK.Click = wait; },
       [&] { user->Click(Child().cmdOK); }},
      {"entering a box", [](auto& wait) { Child().txtB.GotFocus = wait; },
       [&] { user->Click(Child().txtB); }},
      {"typing", [](auto& wait) { Child().txtA.Change = wait; }, [&] { user->Type("x"); }},
      {"choosing of a list that drops down", [](auto& wait) { Child().combo.Click = wait; },
       [&] { user->PickItem(Child().combo, 1); }},
      {"a menu entry", [](auto& wait) { Child().mnuRun.Click = wait; },
       [&] { user->ClickMenu(Child().mnuRun); }},
      {"a menu that pops up",
       [this](auto& wait) {
         Child().mnuRun.Click = wait;
         Child().cmdOK.Click = [this] {
           user->ChooseInPopUp(Child().mnuRun);
           desktop().PopupMenu(Child().mnuTop);
         };
       },
       [&] { user->Click(Child().cmdOK); }},
  };
  for (const Case& c : cases) {
    Do([] { Child().Show(); });
    Take();
    const std::function<void()> wait = [this] { WaitWhileUnloaded(); };
    c.hook(wait);
    UserDoes(c.act);
    Entries entries = Take();
    std::erase_if(entries, [](const std::string& e) { return e.find('.') != e.npos; });
    EXPECT_EQ(entries, (Entries{"unloaded", "waited"})) << c.what;
    EXPECT_EQ(LoadedForm<ListChild>(), nullptr) << c.what;
  }
}

TEST_F(LifetimeBehaviour, AWindowMayGoWhileItIsSized) {
  Do([] {
    Dialog().Resizable = true;
    Dialog().Show();
  });
  Dialog().onResize = [] { Dialog().Unload(); };
  UserDoes([&] { user->Size(Dialog(), 9000, 7000); });
  EXPECT_EQ(LoadedForm<DialogOne>(), nullptr);

  ShowOne();
  TheShell().onResize = [] {
    One().Unload();
    TheShell().Unload();
  };
  UserDoes([&] { user->Size(TheShell(), 10000, 7000); });
  EXPECT_FALSE(TheShell().IsLoaded());
  EXPECT_EQ(LoadedForm<FormOne>(), nullptr);
}

class OrderBehaviour : public BehaviourTest {
 protected:
  static constexpr int kUntilSeen = 50;  // ms: the user has to see what has opened first

  OrderBehaviour() { ShowOne(); }
};

TEST_F(OrderBehaviour, AModalWindowOverABoxOverAModalWindow) {
  // Innermost first: a window, over a box, over a window.
  user->Meanwhile([&] { desktop().Post(EventKind::Receive, [] { desktop().MsgBox("between"); }); });
  user->AnswerBox(MessageBoxAnswer::Ok, [&] {
    user->Meanwhile(
        [&] {
          user->Type("i");
          user->Click(Dialog().cmdOK);
        },
        kUntilSeen);
    user->Meanwhile([] {
      Note("Inner has " + Inner().txtA.Text());
      Inner().Unload();
    });
    Do([] { Inner().ShowModal(); }, EventKind::Receive);
    user->Type("x");  // to the box again, which has no use for it
    EXPECT_EQ(KeyTarget(), "nothing");
    Note("the box may be answered");
    user->Meanwhile([&] { user->Type("d"); });
    user->Meanwhile([] {
      Note("Dialog has " + Dialog().txtA.Text());
      Dialog().Unload();
    });
  });
  Do([] { Dialog().ShowModal(); });
  Entries entries = Take();
  std::erase_if(entries, [](const std::string& e) { return e.find('.') != e.npos; });
  EXPECT_EQ(entries, (Entries{"Inner has i", "the box may be answered", "Dialog has d"}));
  Type("o");
  EXPECT_EQ(One().txtA.Text(), "o");
}

TEST_F(OrderBehaviour, WhatIsNotModalStaysBehindABox) {
  user->AnswerBox(MessageBoxAnswer::Ok, [&] {
    Do([] { Dialog().Show(); }, EventKind::Receive);
    user->Click(Dialog().cmdOK);
    user->Type("x");
    EXPECT_EQ(KeyTarget(), "nothing");
    Note("answered");
  });
  Do([] { desktop().MsgBox("?"); });
  const Entries entries = Take();
  EXPECT_EQ(entries.back(), "answered");
  EXPECT_EQ(std::count(entries.begin(), entries.end(), "Dialog.cmdOK.Click"), 0);
  Type("d");
  EXPECT_EQ(Dialog().txtA.Text(), "d");
  EXPECT_EQ(One().txtA.Text(), "");
}

TEST_F(OrderBehaviour, AModalWindowThatGoesUnderItsBoxBlocksNothing) {
  Dialog().cmdOK.Click = [] { desktop().MsgBox("over it"); };
  user->Meanwhile([&] { user->Click(Dialog().cmdOK); });
  user->AnswerBox(MessageBoxAnswer::Ok, [&] { Do([] { Dialog().Unload(); }, EventKind::Receive); });
  Do([] { Dialog().ShowModal(); });
  EXPECT_EQ(LoadedForm<DialogOne>(), nullptr);
  Take();
  Click(One().cmdOK);
  EXPECT_EQ(Take(), (Entries{"One.cmdOK.GotFocus", "One.cmdOK.Click"}));
}

}  // namespace
}  // namespace quorvel
