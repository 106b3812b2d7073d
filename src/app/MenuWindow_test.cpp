// The menu window: what a menu message makes of it, and what the user does with it.

#include "app/FarEndTest.h"

namespace quorvel {
namespace {

// Records in the tests are written with "^" for AM and "]" for VM.
std::string Record(std::string text) {
  for (char& c : text) c = c == '^' ? AM : c == ']' ? VM : c;
  return text;
}

class MenuWindowTest : public FarEndTest {
 protected:
  MenuWindowTest() { LogIn("UserId=demo\n", "QuickExit=0\n[MAINFORM]\nCaption=Shop\n"); }

  std::string Menu(const std::string& text, const std::string& ids, const std::string& who = "") {
    return Deliver(FrameOf({"~STARTMENU~", "MAIN", Record(text), Record(ids), who}));
  }
  frmSubMenu& Window() { return *LoadedForm<frmSubMenu>(); }
  // The visible pages: "caption: row [icon], ..." each.
  Texts Pages() {
    Texts pages;
    for (int page = 0; page < Window().tabMenu.Tabs(); ++page) {
      EXPECT_EQ(Window().lstOptions(page).Visible(), Window().tabMenu.TabVisible(page));
      EXPECT_EQ(Window().lstOptions(page).TabStop(), Window().tabMenu.TabVisible(page));
      if (!Window().tabMenu.TabVisible(page)) continue;
      std::string text = Window().tabMenu.TabCaption(page) + ":";
      for (const ListView::Item& row : Window().lstOptions(page).Items()) {
        text += " " + row.text + "[" + row.icon + "]";
      }
      pages.push_back(text);
    }
    return pages;
  }
  // What the host is sent first for a choice; the wait of that request is then answered.
  std::string OptionRunBy(const std::function<void()>& choice) {
    Answer({FrameOf({"~ERRORMSG~", ""}), FrameOf({"OK"})});
    choice();
    backend.RunUntilIdle();
    Line().TakeSent();
    return asked.empty() ? "nothing" : asked[0];
  }
  static std::string ReadOf(const std::string& option) {
    return RequestOf({"READ", "DICTIONARY", option});
  }
  void Enter(const std::string& text) {
    user.Click(Window().cboExecute);
    user.Type(text + "\r");
  }
};

TEST_F(MenuWindowTest, TheRecordsMakePagesAndRows) {
  const struct {
    const char* what;
    std::string text, ids;
    Texts pages;
    std::string caption;
  } cases[] = {
      {"two tabs, three kinds",
       "Main^A]B^one]A^two]B^three]A",
       "^AR*X^ARMENU^AR.Z",
       {"A: one  [Report] three  [Program]", "B: two  [Menu]"},
       "Shop - Main - host"},
      {"kinds by the id",
       "M^A^1]A^2]A^3]A^4]A^5]A",
       "^ab*^Menu^xxmEnU^a*bMENU^MEN",
       {"A: 1  [Report] 2  [Menu] 3  [Menu] 4  [Menu] 5  [Program]"},
       "Shop - M - host"},
      {"a report goes before a menu", "M^A^1]A", "^xx*MENU", {"A: 1  [Report]"}, "Shop - M - host"},
      {"no tabs", "M^^one^two]A", "^1^2", {": one  [Program]"}, "Shop - M - host"},
      {"blank tabs", "M^A] ^one]A", "^1", {"A: one  [Program]"}, "Shop - M - host"},
      {"only the last tab is trimmed",
       "M^ A ] B ^1] A ^2]B^3] B ",
       "^1^2^3",
       {" A : 1  [Program]", "B: 2  [Program]"},
       "Shop - M - host"},
      {"an empty tab in the middle",
       "M^A]]C^1]A^2]^3]C^4",
       "^1^2^3^4",
       {"A: 1  [Program]", ": 2  [Program] 4  [Program]", "C: 3  [Program]"},
       "Shop - M - host"},
      {"a tab twice", "M^A]A^1]A", "^1", {"A: 1  [Program]", "A: 1  [Program]"}, "Shop - M - host"},
      {"an option of no tab", "M^A^1]X^2]A", "^AAMENU^2", {"A: 2  [Program]"}, "Shop - M - host"},
      {"the rest is the tab's name", "M^A]B^1]A]B", "^1", {"A:", "B:"}, "Shop - M - host"},
      {"fewer ids", "M^A^1]A^2]A", "^AAMENU", {"A: 1  [Menu] 2  [Program]"}, "Shop - M - host"},
      {"ids without a mark", "M^A^1]A", "AAMENU", {"A: 1  [Menu]"}, "Shop - M - host"},
      {"an empty text", "M^A^]A^2]A^", "^1^2", {"A:   [Program] 2  [Program]"}, "Shop - M - host"},
      {"title and one option", "M^one", "^1", {": one  [Program]"}, "Shop - M - host"},
      {"one option, no title", "one", "^1", {": one  [Program]"}, "Quorvel GUI - host"},
  };
  for (const auto& c : cases) {
    LoadedForm<mdiMain>()->Caption = "Quorvel GUI - host";
    Menu(c.text, c.ids);
    EXPECT_EQ(Pages(), c.pages) << c.what;
    EXPECT_EQ(LoadedForm<mdiMain>()->Caption(), c.caption) << c.what;
    EXPECT_EQ(Window().tabMenu.TabsPerRow(), static_cast<int>(c.pages.size())) << c.what;
  }
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(MenuWindowTest, LimitsOfTheTables) {
  const auto menu = [this](int tabs, int options) {
    std::string text = "M^", ids;
    for (int i = 0; i < tabs; ++i) text += (i ? "]t" : "t") + std::to_string(i);
    for (int i = 0; i < options; ++i) {
      text += "^o" + std::to_string(i) + "]t0";
      ids += "^" + std::to_string(i);
    }
    backend.messageBoxes.clear();
    Menu(text, ids);
    return BoxTexts();
  };
  // A first menu that can't be built leaves no window behind.
  EXPECT_EQ(menu(11, 1), Texts{"Run-time error '340':\n\nControl array element does not exist"});
  EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
  EXPECT_EQ(Session().MenuLoaded, 0);
  EXPECT_EQ(menu(10, 100), Texts{});
  EXPECT_EQ(Window().Width(), LoadedForm<mdiMain>()->ClientWidth() + 15);
  EXPECT_EQ(Window().lstOptions(0).Items().size(), 100u);
  EXPECT_EQ(Pages().size(), 10u);
  // Beyond: one box, and the next menu is a whole one again.
  for (const auto& [tabs, options] : {std::pair{1, 101}, {11, 1}, {101, 1}, {10, 100}, {12, 3}}) {
    const bool fits = tabs <= 10 && options <= 100;
    EXPECT_EQ(menu(tabs, options).size(), fits ? 0u : 1u) << tabs << ' ' << options;
    EXPECT_EQ(menu(2, 2), Texts{});
    EXPECT_EQ(Pages(), (Texts{"t0: o0  [Program] o1  [Program]", "t1:"}));
    EXPECT_TRUE(Window().tabMenu.Visible()) << tabs << ' ' << options;
    EXPECT_TRUE(Window().lstOptions(0).HasFocus()) << tabs << ' ' << options;
  }
}

TEST_F(MenuWindowTest, TheFirstMenuAndTheNext) {
  Menu("Main^A]B^one]A^two]B", "^1^2", "demo on 3");
  EXPECT_TRUE(InFront(&Window()));
  EXPECT_EQ(Session().ActiveContext, "MENU");
  EXPECT_EQ(Session().MenuLoaded, 1);
  EXPECT_EQ(Session().MenuId, "MAIN");
  EXPECT_EQ(Window().lblWho.Caption(), "demo on 3");
  EXPECT_TRUE(Window().lstOptions(0).HasFocus());
  // The shown menu is noted from the second message on, so that one rebuilds once more.
  Window().lstOptions(0).UserPick(1);
  Menu("Main^A]B^one]A^two]B", "^1^2");
  EXPECT_EQ(Window().lstOptions(0).SelectedIndex(), -1);
  Window().tabMenu.UserTab(1);
  Window().lstOptions(1).UserPick(1);
  // The same again keeps page and selection; what it says of the user is new.
  Menu("Main^A]B^one]A^two]B", "^1^2", "other");
  EXPECT_EQ(Window().tabMenu.Tab(), 1);
  EXPECT_EQ(Window().lstOptions(1).SelectedIndex(), 1);
  EXPECT_EQ(Window().lblWho.Caption(), "other");
  // Another one begins at its first page, even if only the ids differ.
  Menu("Main^A]B^one]A^two]B", "^1^3");
  EXPECT_EQ(Window().tabMenu.Tab(), 0);
  EXPECT_EQ(Session().ShownMenuCommands, Record("^1^3"));

  // An empty text changes no window.
  Menu("", "^9");
  EXPECT_EQ(BoxTexts(), Texts{"No Screen record found"});
  EXPECT_EQ(Pages().size(), 2u);
}

TEST_F(MenuWindowTest, ChoosingAnOption) {
  Menu("Main^A]B^one]A^two]B^three]B", "^AR.1^AR.2");
  frmSubMenu& menu = Window();
  // Nothing is selected: nothing runs.
  EXPECT_EQ(OptionRunBy([&] { user.Press(KeyCode::Return); }), "nothing");
  EXPECT_EQ(OptionRunBy([&] { user.DoubleClick(menu.lstOptions(0)); }), "nothing");
  EXPECT_EQ(OptionRunBy([&] { user.Click(menu.cmdDo); }), "nothing");

  EXPECT_EQ(OptionRunBy([&] {
              menu.lstOptions(0).UserPick(1);
              user.DoubleClick(menu.lstOptions(0));
            }),
            ReadOf("AR.1"));
  EXPECT_EQ(asked.at(1), RequestOf({"READ", "MENUS", "AR.1", "E"}));
  menu.tabMenu.UserTab(1);
  EXPECT_EQ(OptionRunBy([&] {
              menu.lstOptions(1).UserPick(1);
              user.Click(menu.lstOptions(1));
              user.Press(KeyCode::Return);
            }),
            ReadOf("AR.2"));
  EXPECT_EQ(OptionRunBy([&] { user.Click(menu.cmdDo); }), ReadOf("AR.2"));
  // An option that the host sent no id for.
  EXPECT_EQ(OptionRunBy([&] {
              menu.lstOptions(1).UserPick(2);
              user.DoubleClick(menu.lstOptions(1));
            }),
            ReadOf(""));
}

TEST_F(MenuWindowTest, DirectEntryKeepsAHistory) {
  Menu("Main^A^one]A", "^AR.1");
  frmSubMenu& menu = Window();
  EXPECT_EQ(OptionRunBy([&] { Enter("AR.X"); }), ReadOf("AR.X"));
  EXPECT_EQ(menu.cboExecute.Text(), "");
  EXPECT_EQ(OptionRunBy([&] { Enter("ic"); }), ReadOf("ic.MENU"));
  EXPECT_EQ(OptionRunBy([&] { Enter("IC"); }), ReadOf("IC.MENU"));
  EXPECT_EQ(OptionRunBy([&] { Enter("A"); }), ReadOf("A"));
  EXPECT_EQ(OptionRunBy([&] {
              user.Click(menu.cboExecute);
              menu.cboExecute.UserPick(3);
              user.Click(menu.cmdDo);
            }),
            ReadOf("AR.X"));
  EXPECT_EQ(menu.cboExecute.List.All(), (Texts{"AR.X", "A", "IC.MENU", "ic.MENU"}));
  EXPECT_EQ(OptionRunBy([&] { Enter("IC"); }), ReadOf("IC.MENU"));
  EXPECT_EQ(menu.cboExecute.List.All(), (Texts{"IC.MENU", "AR.X", "A", "ic.MENU"}));
  // What would break the frame goes out as elsewhere.
  EXPECT_EQ(OptionRunBy([&] { Enter("A\xFA\x7FX"); }), ReadOf("A??X"));
}

TEST_F(MenuWindowTest, ButtonsAndMenuBar) {
  Menu("Main^A^one]A", "^AR.1");
  frmSubMenu& menu = Window();
  EXPECT_EQ(Do([&] { user.Click(menu.cmdBack); }), "E\r");
  EXPECT_TRUE(InFront(&menu));
  EXPECT_EQ(Do([&] { user.Click(menu.cmdHelp); }), RequestOf({"READHELP", "MAIN", "MAIN"}));
  menu.lstOptions(0).UserPick(1);
  EXPECT_EQ(Do([&] { menu.mnuHelpCurrent.UserClick(); }), RequestOf({"READHELP", "AR.1", "MAIN"}));
  EXPECT_EQ(Session().HelpKey, "AR.1");
  EXPECT_EQ(Session().PendingOp, "");

  Session().PendingOp = "Keep";
  Do([&] { menu.mnuOptCapOff.UserClick(); });
  EXPECT_EQ(Session().PendingOp, "Keep");
  Session().PendingOp = "Capture";
  Do([&] { menu.mnuOptCapOff.UserClick(); });
  EXPECT_EQ(Session().PendingOp, "");
  Texts calls;
  Ask().ShowBookmarks = [&] { calls.emplace_back("bookmarks"); };
  Ask().ShowAbout = [&] { calls.emplace_back("about"); };
  Do([&] { menu.mnuBookMark.UserClick(), menu.mnuHelpAbout.UserClick(); });
  EXPECT_EQ(calls, (Texts{"bookmarks", "about"}));
  EXPECT_EQ(Session().BookmarkContext, "MENU");

  // The terminal in front; the next menu brings the window back.
  EXPECT_EQ(Do([&] { user.Click(menu.cmdTcl); }), "T\r");
  EXPECT_FALSE(menu.IsVisible());
  EXPECT_TRUE(InFront(LoadedForm<frmTelnet>()));
  EXPECT_EQ(Session().MenuLoaded, 1);
  Menu("Main^A^one]A", "^AR.1");
  EXPECT_TRUE(InFront(&menu));
  EXPECT_TRUE(menu.lstOptions(0).HasFocus());
}

TEST_F(MenuWindowTest, LoggingOff) {
  const MessageBoxRequest question{"Are you sure you want to log off?", "Quorvel Menus", 36};
  Menu("Main^A^one]A", "^AR.1");
  backend.onMessageBox = [](const MessageBoxRequest&) { return MessageBoxAnswer::No; };
  EXPECT_EQ(Do([this] { user.Click(Window().cmdLogoff); }), "");
  EXPECT_EQ(backend.messageBoxes, std::vector{question});
  backend.onMessageBox = nullptr;
  EXPECT_EQ(Do([this] { Window().mnuLogoff.UserClick(); }), "OFF\r");
  EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
  EXPECT_EQ(Session().MenuLoaded, 0);
  EXPECT_TRUE(Line().open);  // the host drops the link

  // Without a link nothing is sent, but the window goes.
  Menu("Main^A^one]A", "^AR.1");
  LoadedForm<frmTelnet>()->TELNET1.Close();
  user.Click(Window().cmdLogoff);
  EXPECT_TRUE(Line().sent.empty());
  EXPECT_EQ(LoadedForm<frmSubMenu>(), nullptr);
}

TEST_F(MenuWindowTest, ItFillsTheMainWindow) {
  const auto isFitted = [this] {
    const mdiMain& main = *LoadedForm<mdiMain>();
    const frmSubMenu& menu = Window();
    EXPECT_EQ(menu.Height(), main.ClientHeight() + 15);
    EXPECT_EQ(menu.Width(), main.ClientWidth() + 15);
    EXPECT_EQ(menu.VideoSoftElastic1.Height(), menu.ClientHeight() + 15);
    EXPECT_EQ(menu.VideoSoftElastic1.Width(), menu.ClientWidth() + 14);
    const ListView& list = Window().lstOptions(0);
    const TabStrip& strip = menu.tabMenu;
    EXPECT_EQ(list.Top(), strip.TabHeight() + list.Left() - strip.Left() + strip.Top());
    EXPECT_EQ(list.Width(), strip.Width() - 2 * list.Left());
    EXPECT_EQ(list.Height(), strip.Height() - strip.TabHeight() - list.Top());
    EXPECT_EQ(Window().lstOptions(1).Top(), list.Top());
    EXPECT_EQ(Window().lstOptions(1).Width(), list.Width());
    EXPECT_EQ(Window().lstOptions(1).Height(), list.Height());
    EXPECT_TRUE(strip.Visible());
  };
  Menu("Main^A]B^one]A", "^AR.1");
  EXPECT_EQ(Window().Left(), 0);
  EXPECT_EQ(Window().Top(), 0);
  isFitted();
  const int column = Window().lstOptions(0).ColumnWidth();
  LoadedForm<mdiMain>()->UserResize(16000, 11000);
  isFitted();
  LoadedForm<mdiMain>()->UserResize(9000, 7000);
  isFitted();
  EXPECT_EQ(Window().lstOptions(0).ColumnWidth(), column);  // as at its load
  // A low main window leaves it as it was.
  const int height = Window().Height();
  LoadedForm<mdiMain>()->UserResize(9000, 690 + 825 + 999);
  EXPECT_EQ(Window().Height(), height);
  LoadedForm<mdiMain>()->UserResize(9000, 690 + 825 + 1000);
  EXPECT_EQ(Window().Height(), 1015);
  LoadedForm<mdiMain>()->UserResize(200, 2000);  // narrower than any margin
  LoadedForm<mdiMain>()->UserResize(12000, 9000);
  EXPECT_EQ(Window().Width(), LoadedForm<mdiMain>()->ClientWidth() + 15);
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(MenuWindowTest, WithoutRescalingItKeepsItsDesign) {
  Session().AutoSize = 0;
  Menu("Main^A^one]A", "^AR.1");
  const int width = Window().VideoSoftElastic1.Width();
  LoadedForm<mdiMain>()->UserResize(16000, 11000);
  EXPECT_EQ(Window().VideoSoftElastic1.Width(), width);
  EXPECT_EQ(Window().Width(), LoadedForm<mdiMain>()->ClientWidth() + 15);
}

}  // namespace
}  // namespace quorvel
