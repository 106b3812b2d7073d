#include "link/Dispatcher.h"

#include "link/CaptureMessages.h"
#include "link/HandOvers.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionChange.h"
#include "link/SessionState.h"
#include "link/StartProgram.h"
#include "link/frmPassword.h"
#include "platform/Numbers.h"
#include "platform/PlainText.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

bool IsAwaited(std::string_view pendingOp);

std::string MessageField(std::int16_t n) {
  return FieldOf(Session().HostMessage, FS, n);
}

// Most windows that answer the host give the keyboard back to the terminal, unless an entry screen
// is open.
void FocusTerminalUnlessScreen() {
  if (Session().ScreenLoaded == kFalse) Ask().FocusTerminal();
}

// --- messages of the host

void TakeStartMenu() {
  SessionState& s = Session();
  s.MenuId = MessageField(2);
  s.MenuText = MessageField(3);
  s.MenuCommands = MessageField(4);
  if (s.MenuText.empty()) {
    desktop().MsgBox("No Screen record found");
    return;
  }
  Ask().StartMenu();
}

// Entry screens open from the client's side; the message is known and ignored.
void TakeEntryScreen() {}

void TakeCaseLogic() {
  if (SettleGivenUp(true)) return;
  SessionState& s = Session();
  s.CaseHook = MessageField(2);
  s.EntryRecord = MessageField(3);
  s.OriginalRecord = MessageField(4);
  s.CaseData = MessageField(5);
  // A report that is being captured goes on; so does what another window waits for.
  bool others = s.Run.AwaitsReply();
  if (HostWait* wait = UnansweredWait(kReturnCase)) {
    wait->TakeReply();
    others = others || s.PendingOp == kCapture || IsAwaited(s.PendingOp);
  }
  if (!others) s.PendingOp = kReturnCase;
}

void TakeGenOut() {
  SessionState& s = Session();
  if (s.ScreenLoaded == kFalse) return;
  const std::int16_t number = ToInt16(MessageField(2));
  const std::string value(Trimmed(MessageField(3)));
  const std::int16_t place = LocateIn(std::to_string(number), s.FieldList, VM);
  if (place == -1) return;
  if (FieldOf(s.FieldKinds, VM, place) == "C") {
    Ask().SelectComboItem(number, value);
  } else {
    Ask().SetFieldText(number, value);
  }
}

void TakeMaintMode() {
  Ask().ApplyScreenMode("MAINT");
  SendToHost(std::string(1, CR));
}

void TakeEntryMode() {
  Ask().ApplyScreenMode("ENTRY");
  SendToHost(std::string(1, CR));
}

void TakeDosExe() {
  StartProgram(MessageField(2), WindowStyleOf(MessageField(3)));
}

void TakeShowImage() {
  for (std::size_t i = 0; i < Session().ImageArgs.size(); ++i) {
    Session().ImageArgs[i] = MessageField(static_cast<std::int16_t>(i + 2));
  }
  Ask().ShowImage();
}

// A question that is open as long as this lives; then the next of its kind is asked.
class OpenQuestion {
 public:
  explicit OpenQuestion(Questions& questions) : questions_(questions) { questions_.Open(); }
  ~OpenQuestion() { questions_.Answered(); }
  OpenQuestion(const OpenQuestion&) = delete;
  OpenQuestion& operator=(const OpenQuestion&) = delete;

 private:
  Questions& questions_;
};

// The answer goes to the field that was current when the list came. A screen that waits for the
// host takes it as it takes input: afterwards, if it is at that field still.
void GiveListAnswer(std::int16_t field) {
  Window* screen = Ask().EntryWindow();
  const std::string answer = Session().ListAnswer;
  const auto give = [answer, field] {
    SessionState& s = Session();
    if (s.ScreenLoaded != kTrue || s.CurrentField != field) return;
    s.ListAnswer = answer;
    s.PendingOp = "ReturnAns";
    Ask().FocusField(field);
  };
  if (!screen || !desktop().HoldsInput(*screen)) return give();
  desktop().KeepInput(*screen, [give] { desktop().Handle(EventKind::Program, give); });
}

void AskByList() {
  SessionState& s = Session();
  const OpenQuestion open(s.Lists);
  s.ListFirstWord = MessageField(1) == "~LISTBOXF~" ? kFalse : kTrue;
  s.ListAnswer.clear();
  Ask().ShowList();
  if (desktop().IsRunningStale()) return;
  FocusTerminalUnlessScreen();
  if (!s.ListAnswer.empty() && s.ScreenLoaded == kTrue) GiveListAnswer(s.CurrentField);
}

void TakeListBox() {
  Session().Lists.Put(AskByList);
}

void TakeMsgBox() {
  DropHourglass();
  const std::string title = MessageField(2);
  desktop().MsgBox(MessageField(3), MessageBoxStyle::kOkOnly, title);
  SendToHost(std::string(1, CR));
}

void AskPassword() {
  const OpenQuestion open(Session().Passwords);
  Form<frmPassword>()->ShowModal();
  if (!desktop().IsRunningStale()) FocusTerminalUnlessScreen();
}

void TakeGetPassword() {
  Session().Passwords.Put(AskPassword);
}

void TakeStartPrint() {
  SessionState& s = Session();
  if (s.PassThroughPrint == kFalse) s.PrintFailureTold = false;
  s.PassThroughPrint = kTrue;
}

void TakeStopPrint() {
  Session().PassThroughPrint = kFalse;
  desktop().backend().printer().EndDocument();
}

void Reply(const std::string& token);
std::string AwaitedOp();

// PendingOp is as it was when this ends: what waits for a reply goes on waiting for it.
void AskByHelpText() {
  SessionState& s = Session();
  const std::string pending = std::exchange(s.PendingOp, "ReadHelp");
  Reply(MessageField(1));
  if (IsAwaited(pending)) s.PendingOp = pending;
}

void TakeFieldHelp() {
  Session().HelpTexts.Put(AskByHelpText);
}

void TakeErrorMsg() {
  const std::string pending = AwaitedOp();
  const auto& givenUp = Session().GivenUp;
  if (!givenUp.empty() && givenUp.front() == "ReadRecord" && SettleGivenUp(false)) return;
  if (pending == "RunOption" || pending == "ReadRecord") return Reply(MessageField(1));
  DropHourglass();
  desktop().MsgBox(MessageField(2));
}

struct MessageRow {
  std::string_view token;
  void (*action)();
};

// The messages of the host, by field 1 of their frame. Any other frame is a reply.
constexpr MessageRow kMessages[] = {
    {"~STARTMENU~", TakeStartMenu},    {"~ENTRYSCREEN~", TakeEntryScreen},
    {"~CASELOGIC~", TakeCaseLogic},    {"~GENOUT~", TakeGenOut},
    {"~MAINT.MODE~", TakeMaintMode},   {"~ENTRY.MODE~", TakeEntryMode},
    {"~DOSEXE~", TakeDosExe},          {"~SHOWIMAGE~", TakeShowImage},
    {"~LISTBOX~", TakeListBox},        {"~LISTBOXF~", TakeListBox},
    {"~MSGBOX~", TakeMsgBox},          {"~CAPTURE-ON~", TakeCaptureOn},
    {"~CAPTURE-OFF~", TakeCaptureOff}, {"~GETPASSWORD~", TakeGetPassword},
    {"~FIELDHELP~", TakeFieldHelp},    {"~STARTPRINT~", TakeStartPrint},
    {"~STOPPRINT~", TakeStopPrint},    {"~ERRORMSG~", TakeErrorMsg},
};

// --- replies

void ReplyToRunOption(const std::string&) {
  SessionState& s = Session();
  if (s.PendingOp == "RunOption") s.PendingOp.clear();
  const std::string answer = MessageField(1);
  s.Run.SendOption();
  SendToHost(s.OptionId + CR);
  desktop().Yield();
  if (answer == "~ERRORMSG~" && s.OptionId.substr(0, 6) != "SY.DOS") {
    s.Run.End();  // what it opens is the terminal
    Ask().HideMenu();
    Ask().FocusTelnetWindow();
  }
}

void ReplyToReadHelp(const std::string&) {
  Ask().ShowHelpText();
}

void ReplyToWriteHelp(const std::string& token) {
  if (token != "OK") desktop().MsgBox("Error updating Help Text " + std::string(1, LF) + token);
}

void ReplyToRead(const std::string& token) {
  SessionState& s = Session();
  const bool failed = token == "~ERRORMSG~";
  s.ReadFailed = failed ? kTrue : kFalse;
  s.ReadMessage = failed ? MessageField(2) : std::string();
  s.ReplyRecord = failed ? std::string() : s.HostMessage;
}

void ReplyToOpenFiles(const std::string& token) {
  SessionState& s = Session();
  s.OpenFailed = token == "~OPENERROR~" ? kTrue : kFalse;
  if (s.OpenFailed == kTrue) s.OpenMessage = MessageField(2);
}

void ReplyToWrite(const std::string& token) {
  if (token == "~WRITERROR~") desktop().MsgBox(MessageField(2));
}

void ReplyToDelete(const std::string& token) {
  if (token == "~DELETERROR~") desktop().MsgBox(MessageField(2));
}

void ReplyToLock(const std::string&) {}  // the caller reads HostMessage

struct ReplyRow {
  std::string_view pendingOp;
  void (*action)(const std::string& token);
  bool waits = true;  // somebody waits until PendingOp changes
};

// Who awaits a reply, by PendingOp.
constexpr ReplyRow kReplies[] = {
    {"RunOption", ReplyToRunOption, false}, {"ReadHelp", ReplyToReadHelp, false},
    {"WriteHelpText", ReplyToWriteHelp},    {"ReadRecord", ReplyToRead},
    {"OpenAllFiles", ReplyToOpenFiles},     {"WriteRecord", ReplyToWrite},
    {"DeleteRecord", ReplyToDelete},        {"LockRecord", ReplyToLock},
};

// A frame that nobody asked for: the host programmer's trace of a slip.
void ShowStrayFrame() {
  constexpr int kCriticalAndInformation = 80;
  desktop().MsgBox(Session().HostMessage + LF + std::to_string(Session().FrameBuffer.size()),
                   kCriticalAndInformation, "REGULAR DATA");
}

const ReplyRow* FindReply(std::string_view pendingOp) {
  const auto* row = std::find_if(std::begin(kReplies), std::end(kReplies),
                                 [&](const ReplyRow& r) { return r.pendingOp == pendingOp; });
  return row == std::end(kReplies) ? nullptr : row;
}

// Whether a window waits for its reply.
bool IsAwaited(std::string_view pendingOp) {
  const ReplyRow* row = FindReply(pendingOp);
  return row && row->waits;
}

// What a reply is a reply to. A report is captured all the same while something is waited for.
std::string AwaitedOp() {
  const SessionState& s = Session();
  if (s.PendingOp != kCapture) return s.PendingOp;
  const std::string beside = AwaitedBeside();
  return beside.empty() ? s.PendingOp : beside;
}

// The last step, in all cases and however the reply is taken, clears PendingOp: that ends the wait
// of a request. What has been set meanwhile, in a box, is another's.
void Reply(const std::string& token) {
  const struct Ending {
    std::string pending = Session().PendingOp;
    std::string awaited = AwaitedOp();
    ~Ending() {
      if (awaited == pending && Session().PendingOp == pending) ClearPendingOp();
    }
  } ending;
  const ReplyRow* row = FindReply(ending.awaited);
  if (!row) return ShowStrayFrame();
  HostWait* wait = row->waits ? UnansweredWait(ending.awaited) : nullptr;
  if (!wait) return row->action(token);
  const struct Answered {
    HostWait& answered;
    ~Answered() { answered.TakeReply(); }
  } answered{*wait};
  row->action(token);
}

}  // namespace

void DispatchHostMessage() {
  SessionState& s = Session();
  s.HasSentFrames = true;
  const std::string message = s.HostMessage;
  desktop().Yield();
  s.HostMessage = message;  // another frame may have come in a box that opened there
  const std::string token = MessageField(1);
  for (const MessageRow& row : kMessages) {
    if (row.token == token) return row.action();
  }
  if (!SettleGivenUp(false)) Reply(token);
}

}  // namespace quorvel
