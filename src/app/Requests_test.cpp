// What the client asks of the host: the lines that go out, how they wait, and what they leave.

#include "link/Requests.h"

#include "app/FarEndTest.h"
#include "link/Records.h"

namespace quorvel {
namespace {

class RequestsTest : public FarEndTest {
 protected:
  RequestsTest() { LogIn(); }

  // A dictionary record whose attributes 22 and 23 are these.
  static std::string OptionRecord(const std::string& dataFile, const std::string& program) {
    return ReplaceOf(ReplaceOf("", 22, 0, 0, dataFile), 23, 0, 0, program);
  }
};

TEST_F(RequestsTest, EachRequestIsOneLineAndWaitsForAFrame) {
  SessionState& s = Session();
  s.ScreenId = "AR.CUST";
  s.HelpKey = "AR.X";
  const struct {
    std::string pendingOp;
    std::function<void()> ask;
    std::string line;
  } requests[] = {
      {"ReadRecord", [] { ReadRecord("FILE", "K 1"); }, RequestOf({"READ", "FILE", "K 1"})},
      {"WriteRecord", [] { WriteRecord("FILE", "K", "1\xFE-2\xFD\xFF", "SYCRLOC"); },
       RequestOf({"WRITE", "FILE", "K", "1\xFE-2\xFD\xFF\xFF", "SYCRLOC"})},  // IAC is doubled
      {"DeleteRecord", [] { DeleteRecord("FILE", "", "SYCRLOC"); },
       RequestOf({"DELETE", "FILE", "", "SYCRLOC"})},
      {"LockRecord", [] { LockRecord("FILE", "K", "L"); },
       RequestOf({"LOCK", "AR.CUST", "FILE", "K", "L"})},
      {"WriteHelpText", [] { WriteHelpText("Help\xFCtext", 70, "\xFC"); },
       RequestOf({"WRITEHELP", "AR.X", "Help\xFCtext", "70", "\xFC"})},
  };
  for (const auto& request : requests) {
    Answer({});
    bool returned = false;
    std::string pending;
    backend.onIdle = [&] {
      if (!pending.empty() || returned) return false;
      pending = s.PendingOp;
      Line().Deliver(FrameOf({"OK"}));
      return true;
    };
    Run([&] {
      request.ask();
      returned = true;
    });
    EXPECT_EQ(Line().TakeSent(), request.line) << request.pendingOp;
    EXPECT_EQ(pending, request.pendingOp);
    EXPECT_TRUE(returned) << request.pendingOp;
    EXPECT_EQ(s.PendingOp, "");
  }
  EXPECT_TRUE(backend.messageBoxes.empty());
  EXPECT_EQ(BuildRunRequest("MENUS", "AR.X", "E"), RequestOf({"READ", "MENUS", "AR.X", "E"}));
}

TEST_F(RequestsTest, AReadTellsHowItWent) {
  SessionState& s = Session();
  Answer({FrameOf({"~ERRORMSG~", "No such record"}),
          FrameOf({"a\xFE"
                   "b",
                   "c"}),
          FrameOf({""})});
  Run([] { ReadRecord("F", "1"); });
  EXPECT_EQ(s.ReadFailed, kTrue);
  EXPECT_EQ(s.ReadMessage, "No such record");
  Run([] { ReadRecord("F", "2"); });
  EXPECT_EQ(s.ReadFailed, kFalse);
  EXPECT_EQ(s.ReadMessage, "");
  EXPECT_EQ(s.ReplyRecord,
            "a\xFE"
            "b\xFA"
            "c");
  Run([] { ReadRecord("F", "3"); });
  EXPECT_EQ(s.ReadFailed, kFalse);
  EXPECT_EQ(s.ReplyRecord, "");
  EXPECT_TRUE(AllAnswered());
  EXPECT_TRUE(backend.messageBoxes.empty());
}

TEST_F(RequestsTest, WhatComesAheadOfTheReply) {
  SessionState& s = Session();
  // A box is answered, text goes to the terminal, and the wait goes on; the reply itself comes in
  // three pieces.
  Texts reads = {"some text" + FrameOf({"~MSGBOX~", "T", "Note"}), "more\x7Fthe ", "rec",
                 "ord\x7F"};
  backend.onIdle = [&] {
    if (reads.empty()) return false;
    Line().Deliver(reads.front());
    reads.erase(reads.begin());
    return true;
  };
  Run([] { ReadRecord("F", "K"); });
  EXPECT_EQ(Line().TakeSent(), RequestOf({"READ", "F", "K"}) + "\r");  // the box is answered
  EXPECT_EQ(BoxTexts(), Texts{"Note"});
  EXPECT_TRUE(ScreenShows("some textmore"));
  EXPECT_EQ(s.ReplyRecord, "the record");

  // An error message ends a read, but no other wait.
  backend.messageBoxes.clear();
  int frames = 0;
  backend.onIdle = [&] {
    if (s.PendingOp != "WriteRecord") return false;
    Line().Deliver(frames++ == 0 ? FrameOf({"~ERRORMSG~", "Busy"})
                                 : FrameOf({"~WRITERROR~", "Refused"}));
    return true;
  };
  Run([] { WriteRecord("F", "K", "r", "t"); });
  EXPECT_EQ(frames, 2);
  EXPECT_EQ(BoxTexts(), (Texts{"Busy", "Refused"}));
}

TEST_F(RequestsTest, LongInputIsRefused) {
  const std::string most(4000, 'r');
  Answer({FrameOf({"OK"})});
  Run([&] { WriteRecord("F", "K", most, "t"); });
  EXPECT_EQ(asked, Texts{RequestOf({"WRITE", "F", "K", most, "t"})});
  Session().PendingOp = "Keep";
  Run([&] { WriteRecord("F", "K", most + "r", "t"); });
  EXPECT_EQ(Line().TakeSent(), "");
  EXPECT_EQ(Session().PendingOp, "Keep");
  EXPECT_EQ(BoxTexts(), Texts{"need to handle input > 4096"});

  // A hook call: here the whole frame counts, its CR does not.
  SessionState& s = Session();
  s.PendingOp.clear();
  s.CaseHook = "hook";
  const std::size_t others = FrameOf({"CASELOGIC", "", "arg", "", "hook", "", "", ""}).size();
  s.EntryRecord = std::string(4000 - others, 'e');
  Answer({FrameOf({"~CASELOGIC~", "h", "e", "o", "d"})});
  Run([] { CaseCall("arg"); });
  EXPECT_EQ(asked.at(0).size(), 4001u);  // with CR
  EXPECT_EQ(s.CaseHook + s.EntryRecord + s.OriginalRecord + s.CaseData, "heod");
  EXPECT_EQ(s.PendingOp, "");
  s.CaseHook = "hook";
  s.OriginalRecord.clear();
  s.CaseData.clear();
  s.EntryRecord = std::string(4001 - others, 'e');
  backend.messageBoxes.clear();
  Run([] { CaseCall("arg"); });
  EXPECT_EQ(Line().TakeSent(), "");
  EXPECT_EQ(BoxTexts(), Texts{"need to handle input > 4096"});
  EXPECT_EQ(s.CaseHook, "hook");
}

// The wait of a hook call ends with its own message only.
TEST_F(RequestsTest, AHookCallWaitsForItsMessage) {
  SessionState& s = Session();
  s.ScreenId = "AR.CUST";
  s.CaseProgram = "ARP";
  s.CaseHook = "hook";
  s.EntryRecord = "e\xFE-1";
  s.OriginalRecord = "o";
  s.CaseData = "d";
  const std::string sent =
      RequestOf({"CASELOGIC", "AR.CUST", "arg", "ARP", "hook", "e\xFE-1", "o", "d"});
  // Other requests may run inside it.
  Answer({FrameOf({"~MSGBOX~", "", "Checking"}), FrameOf({"~MAINT.MODE~"}), FrameOf({"record"}),
          FrameOf({"~CASELOGIC~", "next"})});
  Ask().ApplyScreenMode = [](const std::string&) { ReadRecord("F", "K"); };
  Run([] { CaseCall("arg"); });
  EXPECT_EQ(asked, (Texts{sent, "\r", RequestOf({"READ", "F", "K"}), "\r"}));
  EXPECT_EQ(s.CaseHook, "next");
  EXPECT_EQ(s.EntryRecord, "");
  EXPECT_EQ(s.PendingOp, "");
}

TEST_F(RequestsTest, RunOption) {
  SessionState& s = Session();
  s.OptionId = "AR.RUN";
  const Texts lines = {RequestOf({"READ", "DICTIONARY", "AR.RUN"}),
                       RequestOf({"READ", "MENUS", "AR.RUN", "E"}), "AR.RUN\r"};
  // No record, or one without a file: the host runs it, and nothing is said.
  for (const std::string& record :
       {FrameOf({"~ERRORMSG~", "No record"}), FrameOf({"text\xFEmore"}), FrameOf({""})}) {
    Answer({record, FrameOf({"OK"}), "the program runs"});
    Run(RunOption);
    EXPECT_EQ(asked, lines);
    EXPECT_EQ(s.PendingOp, "");
    EXPECT_TRUE(backend.messageBoxes.empty());
  }
  EXPECT_TRUE(ScreenShows("the program runs"));

  // A record with a file is an entry screen.
  int shown = 0;
  Ask().ShowEntryScreen = [&] { ++shown; };
  Answer({FrameOf({OptionRecord("CUSTOMERS", "ARP")}), FrameOf({"prompts"}),
          FrameOf({"files\xFEx"}), FrameOf({"OK"}), FrameOf({"parms"}),
          FrameOf({"resolved", "parms"})});
  s.OptionId = "AR.CUST.NEW";
  Run(RunOption);
  EXPECT_EQ(asked, (Texts{
                       RequestOf({"READ", "DICTIONARY", "AR.CUST.NEW"}),
                       RequestOf({"READ", "SCREEN", "AR.CUST.NEW"}),
                       RequestOf({"READ", "DICT BPAR", "AR!CUST.NEW"}),
                       RequestOf({"OPENALLFILES", "CUSTOMERS", "BPAR", "files"}),
                       RequestOf({"READ", "DICT BPAR", "AR*CUST.NEW"}),
                       RequestOf({"SYBPARM", "parms"}),
                   }));
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(s.ScreenId + "|" + s.DataFile + "|" + s.CaseProgram, "AR.CUST.NEW|CUSTOMERS|ARP");
  EXPECT_EQ(s.ScreenPrompts, "prompts");
  EXPECT_EQ(s.ScreenParms, "resolved\xFAparms");
  EXPECT_EQ(s.ReplyRecord, "");
  EXPECT_EQ(s.PendingOp, "");
}

TEST_F(RequestsTest, OpeningAScreenStopsWhereTheHostRefuses) {
  const std::string ok = FrameOf({"x"});
  const std::string noRecord = FrameOf({"~ERRORMSG~", "No record"});
  const struct {
    const char* what;
    Texts replies;
    Texts boxes;
    bool shown;
  } cases[] = {
      {"no screen", {noRecord}, {"No record"}, false},
      {"no list of files", {ok, noRecord, ok, ok, ok}, {}, true},
      {"no file", {ok, ok, FrameOf({"~OPENERROR~", "No file"})}, {"No file"}, false},
      {"no parameters", {ok, ok, ok, noRecord}, {"No record"}, false},
      {"parameters not resolved", {ok, ok, ok, ok, noRecord}, {}, true},
  };
  Session().ScreenId = "AR";  // too short for a name behind its program
  for (const auto& c : cases) {
    backend.messageBoxes.clear();
    std::string windows;
    Session().ScreenLoaded = kTrue;
    Ask().UnloadEntryScreen = [&] { windows += "unload "; };
    Ask().ShowEntryScreen = [&] { windows += "show"; };
    Answer(c.replies);
    Run(OpenAllFiles);
    EXPECT_TRUE(AllAnswered()) << c.what;
    EXPECT_EQ(asked.size(), c.replies.size()) << c.what;
    EXPECT_EQ(BoxTexts(), c.boxes) << c.what;
    EXPECT_EQ(windows, c.shown ? "unload show" : "") << c.what;
  }
  EXPECT_EQ(asked.at(1), RequestOf({"READ", "DICT BPAR", "AR!"}));
  EXPECT_EQ(asked.at(3), RequestOf({"READ", "DICT BPAR", "AR*"}));
  // A list of files that could not be read is empty.
  Answer({ok, noRecord, FrameOf({"~OPENERROR~"})});
  Run(OpenAllFiles);
  EXPECT_EQ(asked.at(2), RequestOf({"OPENALLFILES", "", "BPAR", ""}));
}

// A request inside the wait of another ends both: nothing names which reply is whose.
TEST_F(RequestsTest, ANestedRequestEndsTheOuterWait) {
  Texts ended;
  Answer({FrameOf({"inner record"})});
  backend.onIdle = [&, answer = backend.onIdle, nested = false]() mutable {
    if (std::exchange(nested, true)) return answer();
    Line().TakeSent();
    desktop().Post(EventKind::User, [&] {
      ReadRecord("F", "inner");
      ended.emplace_back("inner");
    });
    return true;
  };
  Run([&] {
    ReadRecord("F", "outer");
    ended.emplace_back("outer");
  });
  EXPECT_EQ(ended, (Texts{"inner", "outer"}));
  EXPECT_EQ(Session().ReplyRecord, "inner record");
  EXPECT_FALSE(backend.stalled);
}

// Without an answer a request waits as long as the process lives, whatever becomes of the link;
// windows answer meanwhile.
TEST_F(RequestsTest, NoAnswerEndsNoWait) {
  enum { Asked, LinkLost, UserActed } step = Asked;
  backend.onIdle = [&] {
    switch (step) {
      case Asked:
        Line().HangUp();
        break;
      case LinkLost:
        LoadedForm<mdiMain>()->UserResize(9000, 9000);
        break;
      default:
        return false;
    }
    step = step == Asked ? LinkLost : UserActed;
    return true;
  };
  bool returned = false;
  Run([&] {
    ReadRecord("F", "K");
    returned = true;
  });
  EXPECT_EQ(step, UserActed);
  EXPECT_FALSE(returned);
  EXPECT_TRUE(backend.stalled);
  EXPECT_EQ(Session().PendingOp, "ReadRecord");
  EXPECT_EQ(LoadedForm<frmTelnet>(), nullptr);
}

}  // namespace
}  // namespace quorvel
