// Controls: text, lists, options, tabs, control arrays, scaling, names.

#include <chrono>
#include <set>

#include "platform/controls/Elastic.h"
#include "platform/headless/BehaviourTestForms.h"

namespace quorvel {
namespace {

// A child window with one control of every kind that the user can change.
struct FormAll : JournalForm {
  FormAll() : JournalForm(Kind::Child, "All") {
    Width.Adopt(11000), Height.Adopt(7000);
    const std::vector<Control*> right = {&cboFree, &cboFixed, &lstBox, &lvwList, &chkOn, &fraGroup};
    int top = 100;
    for (Control* control : right) {
      control->Move(3500, top, 3000, 900);
      control->Click = [control] { Note(control->Name() + ".Click"); };
      top += 1000;
    }
    lvwList.DblClick = [] { Note("lvwList.DblClick"); };
    cboFixed.style = ComboBox::Style::DropDownList;
    cboFree.Change = [this] { Note("cboFree.Change " + cboFree.Text()); };
    txtA.Change = [this] { Note("txtA.Change " + txtA.Text()); };
    lblText.Change = [this] { Note("lblText.Change " + lblText.Caption()); };
    lblText.Move(7000, 100, 2000, 300);
    optOne.Move(100, 250, 1200, 300);
    optTwo.Move(1400, 250, 1200, 300);
    chkOn.Caption = "On", optOne.Caption = "One", optTwo.Caption = "Two";
    for (const char* row : {"alpha", "beta", "gamma"}) {
      cboFree.List.Add(row);
      cboFixed.List.Add(row);
      lstBox.List.Add(row);
      lvwList.Add(row, "Report");
    }
  }
  ComboBox cboFree{*this, "cboFree"};
  ComboBox cboFixed{*this, "cboFixed"};
  ListBox lstBox{*this, "lstBox"};
  ListView lvwList{*this, "lvwList"};
  CheckBox chkOn{*this, "chkOn"};
  Frame fraGroup{*this, "fraGroup"};
  OptionButton optOne{fraGroup, "optOne"};
  OptionButton optTwo{fraGroup, "optTwo"};
  Label lblText{*this, "lblText"};
};

class ControlBehaviour : public BehaviourTest {
 protected:
  ControlBehaviour() {
    Do([] { All().Show(); });
    Take();
  }
  static FormAll& All() { return *desktop().FormObject<FormAll>(); }
  // The number of the run-time failure that the statements end in; 0 for none.
  static int FailureOf(const std::function<void()>& statements) {
    try {
      statements();
    } catch (const RuntimeError& failure) {
      return failure.number();
    }
    return 0;
  }
};

TEST_F(ControlBehaviour, MaxLengthLimitsTypingOnly) {
  Do([] { All().txtA.MaxLength = 4; });
  Type("abcdef");
  EXPECT_EQ(All().txtA.Text(), "abcd");
  EXPECT_EQ(Take(),
            (Entries{"txtA.Change a", "txtA.Change ab", "txtA.Change abc", "txtA.Change abcd"}));
  Do([] { All().txtA.Text = "from the program"; });
  EXPECT_EQ(All().txtA.Text(), "from the program");
  Take();
  for (const KeyCode place : {KeyCode::Home, KeyCode::End}) {
    Press(place);
    Type("x");
    EXPECT_EQ(All().txtA.Text(), "from the program");
    EXPECT_EQ(Take(), Entries{});
  }
  Press(KeyCode::Backspace);
  EXPECT_EQ(All().txtA.Text(), "from the progra");
  EXPECT_EQ(Take(), Entries{"txtA.Change from the progra"});
  // A locked box shows, but takes no typing.
  Do([] { All().txtA.Locked = true; });
  Type("x");
  Press(KeyCode::Backspace);
  EXPECT_EQ(All().txtA.Text(), "from the progra");
}

TEST_F(ControlBehaviour, ChangeIsRaisedByTheProgramToo) {
  Do([] {
    All().txtA.Text = "one";
    Note("set");
    All().txtA.Text = "one";  // no change
    All().lblText.Caption = "label";
    All().cboFree.Text = "combo";
    Note("done");
  });
  EXPECT_EQ(Take(), (Entries{"txtA.Change one", "set", "lblText.Change label",
                             "cboFree.Change combo", "done"}));
  // Bytes above 127 stay what they are on the way to the screen and back.
  Do([] { All().txtA.Text = "caf\xE9 \x80 \x81"; });
  Press(KeyCode::End);
  Type("!");
  EXPECT_EQ(All().txtA.Text(), "caf\xE9 \x80 \x81!");
}

TEST_F(ControlBehaviour, HandlersMaySwallowAndReplaceKeys) {
  All().txtA.KeyPress = [](int& code) { code = code == 'a' ? 0 : code == 'b' ? 'B' : code; };
  All().txtA.KeyDown = [](KeyEvent& key) {
    Note("key " + std::to_string(key.code) + "+" + std::to_string(key.shift));
    if (key.code == 'X') key.code = 0;
  };
  All().txtA.Change = {};
  Type("abcx");
  EXPECT_EQ(All().txtA.Text(), "Bc");
  EXPECT_EQ(Take(), (Entries{"key 65+0", "key 66+0", "key 67+0", "key 88+0"}));
  Press(KeyCode::F12, kShift);
  EXPECT_EQ(Take(), Entries{"key 123+1"});
}

TEST_F(ControlBehaviour, DropDownListsHoldOnlyWhatIsInThem) {
  ComboBox& box = All().cboFixed;
  struct Case {
    const char* what;
    std::function<void()> act;
    int index;
    const char* text;
  };
  const std::vector<Case> cases = {
      {"nothing at first", [] {}, -1, ""},
      {"the equal item", [&] { box.Text = "beta"; }, 1, "beta"},
      {"no equal item", [&] { box.Text = "delta"; }, -1, ""},
      {"by index", [&] { box.ListIndex = 2; }, 2, "gamma"},
      {"an item goes in before it", [&] { box.List.Insert(0, "first"); }, 3, "gamma"},
      {"it goes", [&] { box.List.Remove(3); }, -1, ""},
      {"by index again", [&] { box.ListIndex = 0; }, 0, "first"},
      {"none", [&] { box.ListIndex = -1; }, -1, ""},
      {"outside", [&] { EXPECT_EQ(FailureOf([&] { box.ListIndex = 9; }), 5); }, -1, ""},
  };
  for (const Case& c : cases) {
    Do(c.act);
    EXPECT_EQ(box.ListIndex(), c.index) << c.what;
    EXPECT_EQ(box.Text(), c.text) << c.what;
  }
  EXPECT_EQ(Take(), Entries{}) << "the program raises no Click";
  UserDoes([&] { user->PickItem(box, 1); });
  EXPECT_EQ(box.Text(), "alpha");
  EXPECT_EQ(Take(), Entries{"cboFixed.Click"});
}

TEST_F(ControlBehaviour, AComboBoxTakesTypingAndPicks) {
  ComboBox& box = All().cboFree;
  Do([&] { box.SetFocus(); });
  Type("hi");
  EXPECT_EQ(box.Text(), "hi");
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(Take(), (Entries{"cboFree.Change h", "cboFree.Change hi"}));
  UserDoes([&] { user->PickItem(box, 2); });
  EXPECT_EQ(box.Text(), "gamma");
  EXPECT_EQ(box.ListIndex(), 2);
  const Entries raised = Take();
  EXPECT_EQ(std::count(raised.begin(), raised.end(), "cboFree.Click"), 1);
  Do([&] { box.Text = "alpha"; });
  EXPECT_EQ(box.ListIndex(), 0);
}

class PageWindow : public Window {
 public:
  PageWindow() : Window(Kind::Dialog, "frmPage") {
    txtPage.MultiLine = true;
    txtPage.Move(0, 0, 6000, 4000);
  }
  TextBox txtPage{*this, "txtPage"};
};

// Broken at the ends of its lines word by word it would take the square of its length: 10 s and
// more.
TEST_F(ControlBehaviour, AWordWithoutEndIsShownSoon) {
  using Clock = std::chrono::steady_clock;
  Do([] { Form<PageWindow>()->Show(); });
  const auto begin = Clock::now();
  Do([] { Form<PageWindow>()->txtPage.Text = std::string(400'000, 'x'); });
  EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5));
  Do([] { Form<PageWindow>()->Unload(); });
}

TEST_F(ControlBehaviour, ListsTellTheRowThatTheUserPicked) {
  const auto picks = [](const Entries& entries, const char* click) {
    return std::count(entries.begin(), entries.end(), click);
  };
  UserDoes([&] { user->PickRow(All().lstBox, 1); });
  EXPECT_EQ(All().lstBox.Text(), "beta");
  EXPECT_EQ(picks(Take(), "lstBox.Click"), 1);
  EXPECT_EQ(FailureOf([&] { All().lstBox.ListIndex = 3; }), 5);
  EXPECT_EQ(All().lstBox.Text(), "beta") << "a failure changes nothing";

  ListView& list = All().lvwList;
  EXPECT_EQ(list.SelectedIndex(), -1);
  Do([&] { list.SetFocus(); });
  Press(KeyCode::Down);  // what is selected first shows so, too
  EXPECT_EQ(list.SelectedIndex(), 1);
  EXPECT_EQ(picks(Take(), "lvwList.Click"), 1);
  UserDoes([&] { user->PickRow(list, 2); });
  EXPECT_EQ(list.SelectedIndex(), 2);
  EXPECT_EQ(picks(Take(), "lvwList.Click"), 1);
  Do([&] {
    list.SetFocus();
    list.Select(1);
  });
  EXPECT_EQ(Take(), Entries{});
  Press(KeyCode::Down);
  Press(KeyCode::Down);
  Press(KeyCode::Down);  // the last one; stays
  EXPECT_EQ(list.SelectedIndex(), 3);
  UserDoes([&] { user->DoubleClick(list); });
  EXPECT_EQ(picks(Take(), "lvwList.DblClick"), 1);
  Do([&] { list.Clear(); });
  EXPECT_EQ(list.SelectedIndex(), -1);
  EXPECT_EQ(FailureOf([&] { list.Select(1); }), 5);
}

TEST_F(ControlBehaviour, BoxesTurnOverAndOptionsExclude) {
  Click(All().chkOn);
  EXPECT_TRUE(All().chkOn.Value());
  Type(" ");
  EXPECT_FALSE(All().chkOn.Value());
  EXPECT_EQ(Take(), (Entries{"chkOn.Click", "chkOn.Click"}));
  Do([] { All().chkOn.Value = true; });
  EXPECT_EQ(Take(), Entries{}) << "the program raises no Click";

  Click(All().optOne);
  Click(All().optTwo);
  EXPECT_FALSE(All().optOne.Value());
  EXPECT_TRUE(All().optTwo.Value());
  Do([] { All().optOne.Value = true; });
  EXPECT_FALSE(All().optTwo.Value());
  // Disabled with all that they lie on.
  Do([] { All().fraGroup.Enabled = false; });
  Click(All().optTwo);
  EXPECT_TRUE(All().optOne.Value());
}

TEST_F(ControlBehaviour, ControlArraysAreSparseAndGrowWhileTheWindowShows) {
  ControlArray<Button> cmdPick(All(), "cmdPick");
  Do([&] {
    for (const int index : {7, 2}) {
      cmdPick.Load(index).Move(7000, 1000 + 500 * index, 1500, 400);
      cmdPick(index).Caption = "Pick";
      cmdPick(index).Click = [index] { Note("pick " + std::to_string(index)); };
    }
  });
  EXPECT_TRUE(cmdPick.Has(7) && cmdPick.Has(2));
  for (const int missing : {-1, 0, 3, 8}) {
    EXPECT_FALSE(cmdPick.Has(missing));
    EXPECT_EQ(FailureOf([&] { cmdPick(missing).Caption = "x"; }), 340) << missing;
  }
  EXPECT_EQ(cmdPick(7).CodeName(), "cmdPick(7)");
  Click(cmdPick(7));
  Click(cmdPick(2));
  EXPECT_EQ(Take(), (Entries{"pick 7", "pick 2"}));
  // The one with the keyboard goes: it passes to another control of the window.
  Do([&] { cmdPick.Unload(2); });
  EXPECT_EQ(FailureOf([&] { cmdPick(2).Caption = "x"; }), 340);
  EXPECT_NE(KeyTarget(), "nothing");
}

TEST_F(ControlBehaviour, TabStripsTurnByTheUserAndTheProgram) {
  TabStrip tabs(All(), "tabs");
  tabs.Move(7000, 3000, 3000, 2500);
  for (int page = 0; page < 3; ++page) tabs.SetTabCaption(page, "Page " + std::to_string(page));
  tabs.Click = [&] { Note("page " + std::to_string(tabs.Tab())); };
  TextBox inside(tabs, "txtInside");
  inside.Move(200, 800, 2000, 400);
  Do([&] {
    inside.SetFocus();
    tabs.SetTabVisible(1, false);
  });
  Take();
  UserDoes([&] { user->TurnTo(tabs, 1); });
  EXPECT_EQ(tabs.Tab(), 0) << "a hidden page";
  UserDoes([&] { user->TurnTo(tabs, 2); });
  EXPECT_EQ(tabs.Tab(), 2);
  EXPECT_EQ(Take().front(), "page 2");
  EXPECT_FALSE(inside.Reachable());
  EXPECT_NE(KeyTarget(), "All.txtInside") << "it lies on another page now";
  EXPECT_NE(KeyTarget(), "nothing");
  for (const int missing : {-1, 3}) {
    EXPECT_EQ(FailureOf([&] { tabs.TabCaption(missing); }), 9);
  }
  Do([&] { tabs.Tab = 0; });
  EXPECT_TRUE(inside.Reachable());
}

TEST_F(ControlBehaviour, ElasticScalesFromWhatWasBuiltFirst) {
  Elastic elastic(All(), "elastic");
  elastic.Move(0, 0, 4000, 3000);
  Panel panel(elastic, "panel");
  panel.Move(1000, 500, 2000, 1000);
  TextBox inner(panel, "inner");
  inner.Move(333, 101, 999, 303);
  inner.Font = {"MS Sans Serif", 8};
  struct Case {
    int mode, width, height;
    int left, top, innerWidth, innerHeight;
    double size;
  };
  const std::vector<Case> cases = {
      {Elastic::kOff, 8000, 6000, 333, 101, 999, 303, 8},
      {Elastic::kOff, 4000, 3000, 333, 101, 999, 303, 8},
      {Elastic::kScaleAll, 8000, 6000, 666, 202, 1998, 606, 16},
      {Elastic::kScaleAll, 1234, 777, -1, -1, -1, -1, -1},      // an odd size on the way
      {Elastic::kScaleAll, 4000, 3000, 333, 101, 999, 303, 8},  // exactly as built
      {Elastic::kScaleAll, 4000, 6000, 333, 202, 999, 606, 8},
  };
  for (const Case& c : cases) {
    elastic.Mode = c.mode;
    elastic.Width = c.width;
    elastic.Height = c.height;
    if (c.left < 0) continue;
    EXPECT_EQ((std::vector<int>{inner.Left(), inner.Top(), inner.Width(), inner.Height()}),
              (std::vector<int>{c.left, c.top, c.innerWidth, c.innerHeight}))
        << c.mode << ": " << c.width << " by " << c.height;
    EXPECT_DOUBLE_EQ(inner.Font().size, c.size);
  }
}

TEST_F(ControlBehaviour, AccessibleNamesComeFromLabelsAndAreUnique) {
  ControlArray<TextBox> txtEntry(All(), "txtEntry");
  Label lblUser(All(), "lblUser"), lblOther(All(), "lblOther");
  lblUser.Caption = "&User name:";
  lblOther.Caption = "User name";
  lblUser.StandsFor(txtEntry.Load(0));
  lblOther.StandsFor(txtEntry.Load(1));
  Button cmdTip(All(), "cmdTip");
  cmdTip.ToolTipText = "Save && go on";
  Button cmdBare(All(), "cmdBare");
  EXPECT_EQ(txtEntry(0).AccessibleName(), "User name");
  EXPECT_NE(txtEntry(1).AccessibleName(), "User name");
  EXPECT_EQ(txtEntry(1).AccessibleName().rfind("User name", 0), 0u);
  EXPECT_EQ(All().chkOn.AccessibleName(), "On");
  std::set<std::string> names;
  for (const Control* control : All().Controls()) {
    if (control->kind() == ControlKind::Label) continue;
    EXPECT_FALSE(control->AccessibleName().empty()) << control->CodeName();
    EXPECT_TRUE(names.insert(control->AccessibleName()).second) << control->AccessibleName();
  }
}

}  // namespace
}  // namespace quorvel
