// Each message of the host and each kind of reply: frames in; hand-overs, boxes, state and sent
// bytes out.

#include "app/FarEndTest.h"
#include "link/Requests.h"
#include "link/frmPassword.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

class DispatcherTest : public FarEndTest {
 protected:
  DispatcherTest() { LogIn(); }

  // From here on windows of other folders are only noted in `calls`.
  void NoteHandOvers() {
    HandOvers& ask = Ask();
    const auto note = [this](const std::string& call) {
      return [this, call] { calls.push_back(call); };
    };
    ask.StartMenu = note("StartMenu");
    ask.HideMenu = note("HideMenu");
    ask.FocusTerminal = note("FocusTerminal");
    ask.FocusTelnetWindow = note("FocusTelnetWindow");
    ask.ShowImage = note("ShowImage");
    ask.ShowHelpText = note("ShowHelpText");
    ask.ShowReport = note("ShowReport");
    ask.ShowList = note("ShowList");
    ask.ApplyScreenMode = [this](const std::string& mode) { calls.push_back("mode " + mode); };
    ask.RunExport = [this](const std::string& command) { calls.push_back("export " + command); };
    ask.EnableSessionWindows = [this](bool enabled) {
      calls.push_back(enabled ? "enable" : "disable");
    };
    ask.FocusField = [this](int n) { calls.push_back("field " + std::to_string(n)); };
    ask.SetFieldText = [this](int n, const std::string& text) {
      calls.push_back("text " + std::to_string(n) + " '" + text + "'");
    };
    ask.SelectComboItem = [this](int n, const std::string& text) {
      calls.push_back("item " + std::to_string(n) + " '" + text + "'");
    };
  }
  // One frame, on a desk without boxes and calls.
  std::string Tell(const Texts& fields) {
    calls.clear();
    backend.messageBoxes.clear();
    return Deliver(FrameOf(fields));
  }

  Texts calls;
};

struct Message {
  Texts fields;
  Texts calls;
  std::string sent;
  Texts boxes;
  std::string pendingOp;
};

TEST_F(DispatcherTest, MessagesOfTheHost) {
  NoteHandOvers();
  const Message messages[] = {
      {{"~STARTMENU~", "ID", "text", "ids", "who"}, {"StartMenu"}, "", {}, "Keep"},
      {{"~STARTMENU~", "ID2", "", "ids2"}, {}, "", {"No Screen record found"}, "Keep"},
      {{"~ENTRYSCREEN~", "x"}, {}, "", {}, "Keep"},
      {{"~CASELOGIC~", "h", "e", "o", "d"}, {}, "", {}, "ReturnCase"},
      {{"~GENOUT~", "3", "x"}, {}, "", {}, "Keep"},  // no screen is open
      {{"~MAINT.MODE~"}, {"mode MAINT"}, "\r", {}, "Keep"},
      {{"~ENTRY.MODE~"}, {"mode ENTRY"}, "\r", {}, "Keep"},
      {{"~SHOWIMAGE~", "a", "b", "c", "d", "e", "f"}, {"ShowImage"}, "", {}, "Keep"},
      {{"~LISTBOX~"}, {"ShowList", "FocusTerminal"}, "", {}, "Keep"},
      {{"~LISTBOXF~"}, {"ShowList", "FocusTerminal"}, "", {}, "Keep"},
      {{"~MSGBOX~", "Title", "Text"}, {}, "\r", {"Text"}, "Keep"},
      {{"~CAPTURE-ON~"}, {"disable"}, "", {}, "Capture"},
      {{"~FIELDHELP~", "x"}, {"ShowHelpText"}, "", {}, ""},
      {{"~STARTPRINT~"}, {}, "", {}, "Keep"},
      {{"~STOPPRINT~"}, {}, "", {}, "Keep"},
      {{"~ERRORMSG~", "Text"}, {}, "", {"Text"}, "Keep"},
      // A token is matched exactly; all else is a reply, here to nobody.
      {{"~msgbox~", "a"},
       {},
       "",
       {"~msgbox~\xFA"
        "a\n10"},
       ""},
      {{" ~ENTRYSCREEN~"}, {}, "", {" ~ENTRYSCREEN~\n14"}, ""},
      {{""}, {}, "", {"\n0"}, ""},
  };
  for (const Message& m : messages) {
    Session().PendingOp = "Keep";
    EXPECT_EQ(Tell(m.fields), m.sent) << m.fields[0];
    EXPECT_EQ(calls, m.calls) << m.fields[0];
    EXPECT_EQ(BoxTexts(), m.boxes) << m.fields[0];
    EXPECT_EQ(Session().PendingOp, m.pendingOp) << m.fields[0];
  }
  const SessionState& s = Session();
  EXPECT_EQ(s.MenuId + s.MenuText + s.MenuCommands, "ID2ids2");  // stored ahead of the test
  EXPECT_EQ(s.CaseHook + s.EntryRecord + s.OriginalRecord + s.CaseData, "heod");
  EXPECT_EQ(s.ImageArgs, (std::array<std::string, 5>{"a", "b", "c", "d", "e"}));

  // Titles and styles of the boxes.
  Tell({"~MSGBOX~", "Title", "Text"});
  EXPECT_EQ(backend.messageBoxes[0], (MessageBoxRequest{"Text", "Title", 0}));
  Tell({"stray"});
  EXPECT_EQ(backend.messageBoxes[0], (MessageBoxRequest{"stray\n5", "REGULAR DATA", 80}));
  Tell({"~STARTMENU~"});
  const std::string title = backend.application().Title();
  EXPECT_EQ(backend.messageBoxes[0], (MessageBoxRequest{"No Screen record found", title, 0}));
}

TEST_F(DispatcherTest, Replies) {
  NoteHandOvers();
  struct Reply {
    std::string pendingOp;
    Texts fields;
    Texts calls;
    std::string sent;
    Texts boxes;
  };
  const Reply replies[] = {
      {"RunOption", {"OK"}, {}, "AR.X\r", {}},
      {"RunOption", {"~ERRORMSG~", "x"}, {"HideMenu", "FocusTelnetWindow"}, "AR.X\r", {}},
      {"ReadHelp", {"x"}, {"ShowHelpText"}, "", {}},
      {"WriteHelpText", {"OK"}, {}, "", {}},
      {"WriteHelpText", {"no room", "x"}, {}, "", {"Error updating Help Text \nno room"}},
      {"WriteRecord", {"x"}, {}, "", {}},
      {"WriteRecord", {"~WRITERROR~", "Text"}, {}, "", {"Text"}},
      {"WriteRecord", {"~DELETERROR~", "Text"}, {}, "", {}},
      {"DeleteRecord", {"x"}, {}, "", {}},
      {"DeleteRecord", {"~DELETERROR~", "Text"}, {}, "", {"Text"}},
      {"LockRecord", {"~LOCKED~", "x"}, {}, "", {}},
      {"Capture", {"x"}, {}, "", {"x\n1"}},  // ends the capture, closes nothing
      {"ReturnCase", {"x"}, {}, "", {"x\n1"}},
      {"", {"x"}, {}, "", {"x\n1"}},
  };
  Session().OptionId = "AR.X";
  for (const Reply& r : replies) {
    Session().PendingOp = r.pendingOp;
    EXPECT_EQ(Tell(r.fields), r.sent) << r.pendingOp;
    EXPECT_EQ(calls, r.calls) << r.pendingOp;
    EXPECT_EQ(BoxTexts(), r.boxes) << r.pendingOp;
    EXPECT_EQ(Session().PendingOp, "") << r.pendingOp;
  }
  EXPECT_EQ(Session().HostMessage, "x");

  // An option of the command level stays where it is.
  for (const char* option : {"SY.DOS", "SY.DOSX"}) {
    Session().OptionId = option;
    Session().PendingOp = "RunOption";
    EXPECT_EQ(Tell({"~ERRORMSG~"}), std::string(option) + "\r");
    EXPECT_EQ(calls, Texts{});
  }
  // Reads and the opening of files tell by flags.
  SessionState& s = Session();
  const auto read = [&](const Texts& fields) {
    s.PendingOp = "ReadRecord";
    Tell(fields);
    EXPECT_EQ(BoxTexts(), Texts{});
    return std::to_string(s.ReadFailed) + "|" + s.ReadMessage + "|" + s.ReplyRecord;
  };
  EXPECT_EQ(read({"~ERRORMSG~", "No record"}), "-1|No record|");
  EXPECT_EQ(read({"a\xFE"
                  "b",
                  "c"}),
            "0||a\xFE"
            "b\xFA"
            "c");  // the whole frame
  EXPECT_EQ(read({""}), "0||");
  const auto open = [&](const Texts& fields) {
    s.PendingOp = "OpenAllFiles";
    Tell(fields);
    EXPECT_EQ(BoxTexts(), Texts{});
    return std::to_string(s.OpenFailed) + "|" + s.OpenMessage;
  };
  EXPECT_EQ(open({"~OPENERROR~", "No file"}), "-1|No file");
  EXPECT_EQ(open({"OK"}), "0|No file");  // keeps its old value
}

TEST_F(DispatcherTest, ValuesForFields) {
  NoteHandOvers();
  SessionState& s = Session();
  s.ScreenLoaded = kTrue;
  s.FieldList =
      "3\xFD"
      "12\xFD"
      "7";
  s.FieldKinds =
      "T\xFD"
      "C\xFD"
      "X";
  const struct {
    Texts fields;
    Texts calls;
    Texts boxes;
  } cases[] = {
      {{"~GENOUT~", "3", "  a b "}, {"text 3 'a b'"}, {}},
      {{"~GENOUT~", " 12 ", "x"}, {"item 12 'x'"}, {}},
      {{"~GENOUT~", "7", "   "}, {"text 7 ''"}, {}},
      {{"~GENOUT~", "1", "x"}, {}, {}},
      {{"~GENOUT~", "x", "x"}, {}, {"Run-time error '13':\n\nType mismatch"}},
      {{"~GENOUT~"}, {}, {"Run-time error '13':\n\nType mismatch"}},
      {{"~GENOUT~", "40000", "x"}, {}, {"Run-time error '6':\n\nOverflow"}},
  };
  for (const auto& c : cases) {
    Tell(c.fields);
    EXPECT_EQ(calls, c.calls);
    EXPECT_EQ(BoxTexts(), c.boxes);
  }
}

TEST_F(DispatcherTest, ListsAnswerTheFieldOfAScreen) {
  NoteHandOvers();
  SessionState& s = Session();
  s.CurrentField = 4;
  const auto list = [&](const std::string& token, Flag screen, const std::string& answer) {
    s.ScreenLoaded = screen;
    s.PendingOp = "Keep";
    s.ListAnswer = "old";
    Ask().ShowList = [&s, answer] {
      EXPECT_EQ(s.ListAnswer, "");
      s.ListAnswer = answer;
    };
    Tell({token, "x"});
    return calls;
  };
  EXPECT_EQ(list("~LISTBOX~", kTrue, "taken"), Texts{"field 4"});
  EXPECT_EQ(s.PendingOp, "ReturnAns");
  EXPECT_EQ(s.ListFirstWord, kTrue);
  EXPECT_EQ(list("~LISTBOXF~", kTrue, ""), Texts{});
  EXPECT_EQ(s.PendingOp, "Keep");
  EXPECT_EQ(s.ListFirstWord, kFalse);
  EXPECT_EQ(list("~LISTBOXF~", kFalse, "taken"), Texts{"FocusTerminal"});
  EXPECT_EQ(s.PendingOp, "Keep");
}

TEST_F(DispatcherTest, StartsPrograms) {
  const std::pair<const char*, int> styles[] = {{"0", 0}, {"1", 1},  {"2", 2},  {"3", 3},
                                                {"4", 4}, {"6", 6},  {"5", 1},  {"", 1},
                                                {"7", 1}, {"00", 1}, {" 2", 1}, {"x", 1}};
  for (const auto& [text, style] : styles) {
    Tell({"~DOSEXE~", "calc", text});
    ASSERT_EQ(backend.started.size(), 1u);
    EXPECT_EQ(backend.started[0].first, "calc");
    EXPECT_EQ(static_cast<int>(backend.started[0].second), style) << text;
    backend.started.clear();
  }
  backend.onStart = [](const std::string&, ProgramWindow) {
    throw RuntimeError(Failure::FileNotFound);
  };
  EXPECT_EQ(Tell({"~DOSEXE~", "  no such ", "1"}), "");
  EXPECT_EQ(BoxTexts(), Texts{"Command string no such  not found!"});
  backend.onStart = [](const std::string&, ProgramWindow) {
    throw RuntimeError(Failure::PermissionDenied);
  };
  Tell({"~DOSEXE~", "locked", "1"});
  EXPECT_EQ(BoxTexts(), Texts{});
}

TEST_F(DispatcherTest, CaptureOn) {
  SessionState& s = Session();
  std::ofstream(s.CaptureFile) << "of the last report";
  s.FaxValues[10] = s.FaxValues[11] = "old";
  std::string fax;
  for (int i = 0; i < 14; ++i) fax += (i ? "\xFE" : "") + std::string("f") + std::to_string(i);
  Tell({"~CAPTURE-ON~", "  Excel ", "   ", fax});
  EXPECT_EQ(s.CaptureCommand, "  Excel ");  // blanks are kept
  EXPECT_EQ(s.FaxValues[0], "f0");
  EXPECT_EQ(s.FaxValues[10], "f10");
  EXPECT_EQ(s.FaxValues[11], "old");
  EXPECT_FALSE(std::filesystem::exists(s.CaptureFile));
  EXPECT_FALSE(LoadedForm<frmTelnet>()->Enabled());
  EXPECT_FALSE(LoadedForm<frmTelnet>()->mnuBookMarks.Enabled());
  EXPECT_FALSE(LoadedForm<mdiMain>()->pnlButtons.Enabled());
  Tell({"~CAPTURE-ON~", "   ", "  ", ""});  // the file is not there: no failure
  EXPECT_EQ(s.CaptureCommand + s.CaptureStrip + s.FaxValues[0], "");
  EXPECT_EQ(BoxTexts(), Texts{});
  Deliver("half of it");
  EXPECT_TRUE(std::filesystem::exists(s.CaptureFile));
  Tell({"~CAPTURE-ON~"});  // starts over
  EXPECT_FALSE(std::filesystem::exists(s.CaptureFile));
  EXPECT_EQ(s.PendingOp, "Capture");
}

TEST_F(DispatcherTest, CaptureOff) {
  NoteHandOvers();
  SessionState& s = Session();
  const auto off = [&](const std::string& command, std::int16_t type) {
    s.PendingOp = "Capture";
    s.CaptureCommand = command;
    s.ExportType = type;
    Tell({"~CAPTURE-OFF~"});
    EXPECT_EQ(s.PendingOp, "");
    return calls;
  };
  EXPECT_EQ(off("Excel", 3), (Texts{"export Excel", "enable"}));
  EXPECT_EQ(off("", 0), (Texts{"export ", "enable"}));
  EXPECT_EQ(off("", 2), (Texts{"export ", "enable"}));
  EXPECT_EQ(off("", 1), Texts{"ShowReport"});
  EXPECT_EQ(off("", 3), Texts{"ShowReport"});
}

// A stray reply ends the state but leaves the windows; the end message still does its work.
TEST_F(DispatcherTest, AReplyDuringCapture) {
  Tell({"~CAPTURE-ON~", "Excel", "", ""});
  Tell({"stray"});
  EXPECT_EQ(Session().PendingOp, "");
  EXPECT_FALSE(LoadedForm<frmTelnet>()->Enabled());
  Tell({"~CAPTURE-OFF~"});
  EXPECT_TRUE(LoadedForm<frmTelnet>()->Enabled());
  EXPECT_TRUE(LoadedForm<frmTelnet>()->mnuBookMarks.Enabled());
  EXPECT_TRUE(LoadedForm<mdiMain>()->pnlButtons.Enabled());
}

TEST_F(DispatcherTest, GetPassword) {
  const struct {
    const char* what;
    std::function<void(frmPassword&)> act;
    std::string sent;
  } cases[] = {
      {"OK", [this](frmPassword& d) { user.Type("Pass word"), user.Click(d.cmdOK); },
       "Pass word\r"},
      {"Enter", [this](frmPassword&) { user.Type("x\r"); }, "x\r"},
      {"an empty one", [this](frmPassword& d) { user.Click(d.cmdOK); }, "\r"},
      {"Exit", [this](frmPassword& d) { user.Type("x"), user.Click(d.cmdExit); }, "\r"},
      {"the close box", [](frmPassword& d) { d.UserClose(); }, "\r"},
  };
  for (const auto& c : cases) {
    Deliver(FrameOf({"~STARTMENU~", "M", "Title\xFE\xFEOne", "", ""}));
    bool answered = false;
    backend.onIdle = [&] {
      frmPassword* dialog = LoadedForm<frmPassword>();
      if (!dialog || answered) return false;
      answered = true;
      EXPECT_EQ(dialog->Caption(), "Password Entry");
      EXPECT_EQ(dialog->lblPgm.Caption(), "Payroll");
      EXPECT_EQ(dialog->txtPwd.PasswordChar(), '*');
      c.act(*dialog);
      return true;
    };
    EXPECT_EQ(Tell({"~GETPASSWORD~", "Payroll"}), c.sent) << c.what;
    EXPECT_TRUE(answered);
    EXPECT_EQ(LoadedForm<frmPassword>(), nullptr);
    EXPECT_TRUE(InFront(LoadedForm<frmTelnet>())) << c.what;  // the terminal has the keyboard
  }
}

// --- order

// What the network brings while a frame is being handled waits: it can't come in under the
// dispatcher's first yield and take the frame's text away.
TEST_F(DispatcherTest, AYieldBringsInNeitherFrameNorUser) {
  NoteHandOvers();
  Ask().ApplyScreenMode = [this](const std::string& mode) {
    calls.push_back("mode " + mode);
    desktop().Yield();
    calls.push_back("end of " + mode);
  };
  desktop().Post(EventKind::Receive, [this] {
    // All of these are there when the first frame is dispatched.
    Line().Deliver(FrameOf({"~MAINT.MODE~"}) + FrameOf({"~SHOWIMAGE~"}));
    Line().Deliver(FrameOf({"~ENTRY.MODE~"}));
    desktop().Post(EventKind::User, [this] { calls.push_back("user"); });
  });
  backend.RunUntilIdle();
  const auto at = [this](const std::string& call) {
    return std::find(calls.begin(), calls.end(), call) - calls.begin();
  };
  EXPECT_EQ(calls.size(), 6u);
  EXPECT_EQ(at("end of MAINT"), at("mode MAINT") + 1);
  EXPECT_EQ(at("end of ENTRY"), at("mode ENTRY") + 1);
  EXPECT_LT(at("mode MAINT"), at("ShowImage"));
  EXPECT_LT(at("ShowImage"), at("mode ENTRY"));
  EXPECT_LT(at("user"), 6);
  EXPECT_EQ(Line().TakeSent(), "\r\r");
}

// A wait inside a receive event gets its reply; a box lets further frames in.
TEST_F(DispatcherTest, AWaitAndABoxDoBringThemIn) {
  NoteHandOvers();
  Ask().ApplyScreenMode = [](const std::string&) { ReadRecord("FILE", "KEY"); };
  Answer({FrameOf({"the record"})});
  Deliver(FrameOf({"~MAINT.MODE~"}));
  EXPECT_EQ(asked, Texts{RequestOf({"READ", "FILE", "KEY"})});
  EXPECT_EQ(Session().ReplyRecord, "the record");
  EXPECT_FALSE(backend.stalled);

  backend.onIdle = nullptr;
  backend.onMessageBox = [this](const MessageBoxRequest& box) {
    calls.push_back("box " + box.text);
    if (box.text == "first") {
      Line().Deliver(FrameOf({"~SHOWIMAGE~"}) + FrameOf({"~MSGBOX~", "", "second"}));
      backend.RunUntilIdle();
    }
    calls.push_back("end " + box.text);
    return MessageBoxAnswer::Ok;
  };
  Line().TakeSent();
  EXPECT_EQ(Tell({"~MSGBOX~", "", "first"}), "\r\r");
  EXPECT_EQ(calls, (Texts{"box first", "ShowImage", "box second", "end second", "end first"}));
}

}  // namespace
}  // namespace quorvel
