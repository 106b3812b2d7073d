#include "link/Requests.h"

#include "link/HandOvers.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Receiver.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "link/TelnetControl.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Longest record of a write and longest frame of a hook call, in characters. The host's input
// line holds 4,096, and the text of the message keeps that number.
constexpr std::size_t kLongestInput = 4000;

// Positions in an option's dictionary record.
constexpr std::int16_t kOptionDataFile = 22;
constexpr std::int16_t kOptionCaseProgram = 23;

bool RefuseLongInput(const std::string& input) {
  if (input.size() <= kLongestInput) return false;
  desktop().MsgBox("need to handle input > 4096");
  return true;
}

// PendingOp is set before the send, so that no reply can find it unset.
void SendAndWait(const std::string& pendingOp, const std::string& request) {
  WaitForTurn();
  SessionState& s = Session();
  HostWait wait(pendingOp);
  // A report that the host is sending goes on being captured.
  if (s.PendingOp != kCapture) s.PendingOp = pendingOp;
  SendToHost(request);
  wait.Run([&] { return s.PendingOp == pendingOp || s.PendingOp == kCapture; });
}

void ForgetHookReply() {
  if (Session().PendingOp == kReturnCase) ClearPendingOp();
}

}  // namespace

void SendToHost(const std::string& text) {
  if (desktop().IsRunningStale()) return;
  if (TelnetControl* telnet = Ask().LoadedTelnet()) telnet->Send(text);
}

void SendLogOff() {
  desktop().EndRunningBelow();
  desktop().DropKeptInput();
  SendToHost(std::string("OFF") + CR);
}

std::string BuildRequest(std::string_view verb, const std::vector<std::string_view>& fields) {
  std::string frame(1, FrameMark());
  frame += verb;
  for (const std::string_view field : fields) {
    frame += FS;
    frame += field;
  }
  frame += FrameMark();
  frame += CR;
  return frame;
}

std::string AsField(std::string text) {
  const std::string ends{FrameMark(), FS, CR, LF};
  for (char& c : text) {
    if (ends.find(c) != std::string::npos) c = '?';
  }
  return text;
}

void ReadRecord(const std::string& file, const std::string& key) {
  SendAndWait("ReadRecord", BuildRequest("READ", {file, key}));
}

std::string BuildRunRequest(const std::string& file, const std::string& key,
                            const std::string& mode) {
  return BuildRequest("READ", {file, key, mode});
}

void WriteRecord(const std::string& file, const std::string& key, const std::string& record,
                 const std::string& tag) {
  if (RefuseLongInput(record)) return;
  SendAndWait("WriteRecord", BuildRequest("WRITE", {file, key, record, tag}));
}

void DeleteRecord(const std::string& file, const std::string& key, const std::string& tag) {
  SendAndWait("DeleteRecord", BuildRequest("DELETE", {file, key, tag}));
}

void LockRecord(const std::string& file, const std::string& key, const std::string& action) {
  SendAndWait("LockRecord", BuildRequest("LOCK", {Session().ScreenId, file, key, action}));
}

void WriteHelpText(const std::string& text, std::int16_t width, const std::string& separator) {
  const std::string columns = std::to_string(width);
  SendAndWait("WriteHelpText",
              BuildRequest("WRITEHELP", {Session().HelpKey, text, columns, separator}));
}

void CaseCall(const std::string& argument) {
  SessionState& s = Session();
  const std::string request =
      BuildRequest("CASELOGIC", {s.ScreenId, argument, s.CaseProgram, s.CaseHook, s.EntryRecord,
                                 s.OriginalRecord, s.CaseData});
  // The limit is on the frame alone, its CR not counted.
  if (RefuseLongInput(request.substr(0, request.size() - 1))) return;
  ForgetHookReply();  // that nobody waited for: it is none to this call
  // A log-off ends the wait even when the reply has come.
  const struct Ending {
    ~Ending() { ForgetHookReply(); }
  } ending;
  HostWait wait(kReturnCase);
  SendToHost(request);
  wait.Run([&s] { return s.PendingOp != kReturnCase; });
}

void RunOption() {
  SessionState& s = Session();
  struct Running {
    Running() { Session().Run.Begin(); }
    // The next session has a run of its own.
    ~Running() {
      if (!requested && session == desktop().Generation()) Session().Run.End();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    const unsigned session = desktop().Generation();
    bool requested = false;
  } running;
  s.OptionId = AsField(s.OptionId);
  ReadRecord("DICTIONARY", s.OptionId);
  if (s.ReadFailed == kFalse) {
    const std::string dataFile = ExtractOf(s.ReplyRecord, kOptionDataFile, 0, 0);
    if (!dataFile.empty()) {
      if (Ask().KeepsOpenRecord()) return;
      s.DataFile = dataFile;
      s.CaseProgram = ExtractOf(s.ReplyRecord, kOptionCaseProgram, 0, 0);
      s.ScreenId = s.OptionId;
      OpenAllFiles();
      return;
    }
  }
  // The dispatcher sends the option's id when the host has answered.
  if (s.PendingOp != kCapture) s.PendingOp = "RunOption";
  SendToHost(BuildRunRequest("MENUS", s.OptionId, "E"));
  running.requested = true;
  s.Run.Request();
}

void OpenAllFiles() {
  SessionState& s = Session();
  // "AR.CUST" is the screen CUST of the program file BPAR.
  const std::string program = s.ScreenId.substr(0, 2);
  const std::string screen = s.ScreenId.size() > 3 ? s.ScreenId.substr(3) : std::string();
  const std::string programFile = "BP" + program;
  const std::string dictionary = "DICT " + programFile;

  ReadRecord("SCREEN", s.ScreenId);
  if (s.ReadFailed == kTrue) {
    desktop().MsgBox(s.ReadMessage);
    return;
  }
  s.ScreenPrompts = s.ReplyRecord;

  ReadRecord(dictionary, program + "!" + screen);
  const std::string fileList =
      s.ReadFailed == kFalse ? ExtractOf(s.ReplyRecord, 1, 0, 0) : std::string();

  SendAndWait("OpenAllFiles", BuildRequest("OPENALLFILES", {s.DataFile, programFile, fileList}));
  if (s.OpenFailed == kTrue) {
    desktop().MsgBox(s.OpenMessage);
    return;
  }

  ReadRecord(dictionary, program + "*" + screen);
  if (s.ReadFailed == kTrue) {
    desktop().MsgBox(s.ReadMessage);
    return;
  }
  s.ScreenParms = s.ReplyRecord;
  SendAndWait("ReadRecord", BuildRequest("SYBPARM", {s.ScreenParms}));
  s.ScreenParms = std::exchange(s.ReplyRecord, {});

  if (s.ScreenLoaded != kFalse) {
    Ask().UnloadEntryScreen();
    desktop().Yield();
  }
  Ask().ShowEntryScreen();
}

}  // namespace quorvel
