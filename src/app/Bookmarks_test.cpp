// The bookmarks: their file, the window that edits them, and what becomes of the line that is
// picked.

#include <sstream>

#include "app/ModalTest.h"
#include "menus/frmAddBook.h"
#include "menus/frmBookMark.h"

namespace quorvel {
namespace {

const std::string kHeader = "\xB6  ";

class BookmarksTest : public ModalTest {
 protected:
  // Opens the list from the terminal (or the menu window) and acts in it; closed afterwards.
  std::string InList(const std::function<void(frmBookMark&)>& act, bool menu = false) {
    In<frmBookMark>(
        [menu] {
          MenuItem& entry =
              menu ? LoadedForm<frmSubMenu>()->mnuBookMark : LoadedForm<frmTelnet>()->mnuBookMarks;
          entry.UserClick();
        },
        act);
    return Line().TakeSent();
  }
  // Presses a button of the list and acts in the window that asks for a line.
  void InLine(Button& button, const std::function<void(frmAddBook&)>& act) {
    In<frmAddBook>([&] { user.Click(button); }, act);
  }
  void Enter(Button& button, const std::string& text, bool header = false) {
    InLine(button, [&](frmAddBook& line) {
      line.txtCommand.UserEdit(text);
      if (line.chkHeader.Value() != header) user.Click(line.chkHeader);
      line.txtCommand.SetFocus();
      user.Press(KeyCode::Return);
    });
  }
  void Put(const std::string& text) { folder.Write("BOOKMARK.TXT", text); }
  std::string Stored() {
    std::ifstream file(folder.Path() + "/BOOKMARK.TXT", std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
};

TEST_F(BookmarksTest, TheFileKeepsCommasAndQuotes) {
  LogIn();
  InList([this](frmBookMark& window) {
    EXPECT_EQ(window.lstCommands.List.Count(), 0);  // no file yet, and nothing said about it
    Enter(window.cmdAdd, "SELECT \"A, B\"");
    Enter(window.cmdAdd, "Lists", true);
    Enter(window.cmdAdd, "a\xFD\xFEz");
    user.Click(window.cmdOK);
  });
  EXPECT_EQ(Stored(),
            "a\xFD\xFEz\r\n\xB6  Lists\r\nSELECT \xFE"
            "A\xFD B\xFE\r\n");
  InList([](frmBookMark& window) {
    EXPECT_EQ(window.lstCommands.List.All(),
              (Texts{"a,\"z", kHeader + "Lists", "SELECT \"A, B\""}));
  });
  // Made by hand: other line ends, blanks ahead, none at the end, characters kept as they stand.
  Put("  one, \"two\"\n\n \xB6  Head\rlast");
  InList([this](frmBookMark& window) {
    EXPECT_EQ(window.lstCommands.List.All(), (Texts{"one, \"two\"", "", kHeader + "Head", "last"}));
    user.Click(window.cmdOK);
  });
  EXPECT_EQ(Stored(), "one\xFD \xFEtwo\xFE\r\n\r\n\xB6  Head\r\nlast\r\n");
  InList([this](frmBookMark& window) {
    while (window.lstCommands.List.Count() > 0) {
      window.lstCommands.UserPick(0);
      user.Click(window.cmdDelete);
    }
    user.Click(window.cmdOK);
  });
  EXPECT_EQ(Stored(), "");
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(BookmarksTest, LinesAreAddedAndChangedOnTop) {
  const struct {
    const char* what;
    int change;  // row; -1 adds
    std::string text;
    bool header;
    Texts after;
  } cases[] = {
      {"new", -1, "NEW", false, {"NEW", "AR.MENU", kHeader + "H", "ABC"}},
      {"two letters", -1, "XY", false, {"XY.MENU", "AR.MENU", kHeader + "H", "ABC"}},
      {"there already", -1, "ABC", false, {"ABC", "AR.MENU", kHeader + "H"}},
      {"there by its code", -1, "AR", false, {"AR.MENU", kHeader + "H", "ABC"}},
      {"same header", -1, "H", true, {kHeader + "H", "AR.MENU", kHeader + "H", "ABC"}},
      {"header of two", -1, "XY", true, {kHeader + "XY", "AR.MENU", kHeader + "H", "ABC"}},
      {"empty header", -1, "", true, {kHeader, "AR.MENU", kHeader + "H", "ABC"}},
      {"nothing", -1, "", false, {"AR.MENU", kHeader + "H", "ABC"}},
      {"changed", 2, "ABCD", false, {"ABCD", "AR.MENU", kHeader + "H"}},
      {"to another", 2, "AR", false, {"AR.MENU", kHeader + "H"}},
      {"header changed", 1, "H2", true, {kHeader + "H2", "AR.MENU", "ABC"}},
      {"change cancelled by nothing", 2, "", false, {"AR.MENU", kHeader + "H", "ABC"}},
  };
  LogIn();
  Put("AR.MENU\r\n\xB6  H\r\nABC\r\n");
  for (const auto& c : cases) {
    InList([&](frmBookMark& window) {
      window.lstCommands.ListIndex = c.change;
      Enter(c.change < 0 ? window.cmdAdd : window.cmdChange, c.text, c.header);
      EXPECT_EQ(window.lstCommands.List.All(), c.after) << c.what;
    });
  }
  InList([this](frmBookMark& window) {
    user.Click(window.cmdChange);  // nothing is selected: no window, no change
    user.Click(window.cmdDelete);
    window.lstCommands.UserPick(1);
    InLine(window.cmdChange, [this](frmAddBook& line) {
      EXPECT_EQ(line.Caption(), "Change Bookmark");
      EXPECT_EQ(line.txtCommand.Text(), "H");
      EXPECT_TRUE(line.chkHeader.Value());
      line.txtCommand.UserEdit("lost");
      user.Press(KeyCode::Escape);
    });
    InLine(window.cmdAdd, [this](frmAddBook& line) {
      EXPECT_EQ(line.Caption(), "Add Bookmark");
      line.txtCommand.UserEdit("a\nb");
      user.Click(line.cmdOK);
      EXPECT_TRUE(line.IsVisible());  // a line break can't be kept
      user.Click(line.cmdExit);
    });
    EXPECT_EQ(window.lstCommands.List.Count(), 3);
  });
  EXPECT_EQ(BoxTexts(), Texts{"Command holds a line break; a bookmark is one line."});
  EXPECT_EQ(Stored(), "AR.MENU\r\n\xB6  H\r\nABC\r\n");  // cancelled each time
}

TEST_F(BookmarksTest, LinesAreMovedByMouseAndKeyboard) {
  LogIn();
  Put("a\nb\nc\nd\n");
  const std::string sent = InList([this](frmBookMark& window) {
    const auto lines = [&] {
      std::string all;
      for (const std::string& line : window.lstCommands.List.All()) all += line;
      return all;
    };
    user.Drag(window.lstCommands, 0, 2);
    EXPECT_EQ(lines(), "bcad");
    user.Drag(window.lstCommands, 3, 1);
    EXPECT_EQ(lines(), "bdca");
    user.Drag(window.lstCommands, 1, 1);
    EXPECT_EQ(lines(), "bdca");
    EXPECT_EQ(window.lstCommands.ListIndex(), 1);  // a click
    window.lstCommands.SetFocus();
    user.Press(KeyCode::Down, kAlt);
    user.Press(KeyCode::Down, kAlt);
    EXPECT_EQ(lines(), "bcad");
    user.Press(KeyCode::Down, kAlt);  // it is the last
    user.Press(KeyCode::Up, kAlt);
    EXPECT_EQ(lines(), "bcda");
    EXPECT_EQ(window.lstCommands.ListIndex(), -1);
    user.Click(window.cmdOK);
  });
  EXPECT_EQ(Stored(), "b\r\nc\r\nd\r\na\r\n");
  EXPECT_EQ(sent, "");  // a line that was moved is not run
}

TEST_F(BookmarksTest, ThePickedLineRuns) {
  LogIn();
  Put("LIST X\n\xB6  H\n");
  const std::string sent = InList([this](frmBookMark& window) {
    window.lstCommands.UserPick(1);
    user.Click(window.cmdOK);  // a header can't be run
    user.DoubleClick(window.lstCommands);
    ASSERT_TRUE(window.IsVisible());
    EXPECT_EQ(Stored(), "LIST X\n\xB6  H\n");  // not written again
    window.lstCommands.UserPick(0);
    user.DoubleClick(window.lstCommands);
  });
  EXPECT_EQ(sent, "LIST X\r");
  EXPECT_EQ(Session().PendingOp, "RunOption");
  EXPECT_EQ(Session().OptionId, "LIST X");
  Session().PendingOp.clear();
  EXPECT_EQ(InList([this](frmBookMark& window) { user.Click(window.cmdOK); }), "");
  EXPECT_EQ(InList([](frmBookMark& window) { window.lstCommands.UserPick(0); }), "");
  EXPECT_EQ(Session().PendingOp, "");

  // In the menu it runs as an option, whose record is asked for; no host answers here.
  Deliver(FrameOf({"~STARTMENU~", "M", "Main", "", "who"}));
  const std::string read = InList(
      [this](frmBookMark& window) {
        window.lstCommands.UserPick(0);
        user.Click(window.cmdOK);
      },
      true);
  EXPECT_EQ(Session().BookmarkContext, "MENU");
  EXPECT_EQ(read, RequestOf({"READ", "DICTIONARY", "LIST X"}));
}

TEST_F(BookmarksTest, FailuresAreToldAndLoseNothing) {
  LogIn();
  const std::string large(std::size_t{5} << 20, 'x');
  const std::string many(40'000, '\n');
  for (const std::string& text : {large, many}) {
    Put(text);
    backend.messageBoxes.clear();
    InList([this](frmBookMark& window) {
      EXPECT_EQ(window.lstCommands.List.Count(), 0);
      Enter(window.cmdAdd, "NEW");
      user.Click(window.cmdOK);
      EXPECT_TRUE(window.IsVisible());
    });
    EXPECT_EQ(BoxTexts(), (Texts{"Error: 6 Overflow", "Error: 75 Path/File access error"}));
    EXPECT_EQ(Stored(), text);
  }
  std::filesystem::remove(folder.Path() + "/BOOKMARK.TXT");
  std::filesystem::create_directories(folder.Path() + "/BOOKMARK.TXT/x");
  backend.messageBoxes.clear();
  InList([this](frmBookMark& window) {
    Enter(window.cmdAdd, "NEW");
    user.Click(window.cmdOK);
    EXPECT_TRUE(window.IsVisible());
    EXPECT_EQ(window.lstCommands.List.All(), Texts{"NEW"});
  });
  EXPECT_EQ(BoxTexts().back(), "Error: 75 Path/File access error");
}

}  // namespace
}  // namespace quorvel
