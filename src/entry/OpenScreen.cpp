#include "entry/OpenScreen.h"

#include "link/HostWait.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// Tells the host which program asks it to write or delete.
const std::string kRecordTag = "SYCRLOC";

}  // namespace

void OpenScreen::Opened() {
  const SessionState& s = Session();
  session_ = desktop().Generation();
  screenId_ = s.ScreenId;
  dataFile_ = s.DataFile;
  caseProgram_ = s.CaseProgram;
}

bool OpenScreen::IsOfThisSession() const {
  return session_ == desktop().Generation() && IsLinkUp();
}

void OpenScreen::Resume() const {
  SessionState& s = Session();
  s.ScreenId = screenId_;
  s.DataFile = dataFile_;
  s.CaseProgram = caseProgram_;
}

void OpenScreen::Run(const std::function<void()>& body) {
  const auto keep = window_.shared_from_this();
  if (!window_.IsLoaded()) return;
  const SessionState& s = Session();
  if (s.ScreenId != screenId_) {
    // An answer to be taken waits for nobody: it is for this screen.
    if (!s.PendingOp.empty() && s.PendingOp != "ReturnAns") return;
    Resume();
  }
  const PartOf mine(window_);
  body();
}

void OpenScreen::Check() const {
  if (!window_.IsLoaded() || desktop().IsRunningStale()) throw QuietEnd{};
}

void OpenScreen::Read(const std::string& file, const std::string& key) const {
  ReadRecord(file, key);
  Check();
}

void OpenScreen::ReadData(const std::string& key) const {
  Read(dataFile_, key);
}

void OpenScreen::Write(const std::string& key, const std::string& record) const {
  WriteRecord(dataFile_, key, record, kRecordTag);
  Check();
}

void OpenScreen::Delete(const std::string& key) const {
  DeleteRecord(dataFile_, key, kRecordTag);
  Check();
}

void OpenScreen::Lock(const std::string& key) const {
  LockRecord(dataFile_, key, "L");
  Check();
}

void OpenScreen::Unlock(const std::string& key) const {
  LockRecord(dataFile_, key, "U");
  Check();
}

void OpenScreen::CaseCall(const std::string& field) const {
  quorvel::CaseCall(field);
  Check();
}

MessageBoxAnswer OpenScreen::MsgBox(const std::string& text, int style,
                                    const std::string& title) const {
  const MessageBoxAnswer answer = desktop().MsgBox(text, style, title);
  Check();
  return answer;
}

void OpenScreen::Focus(Control* box) const {
  if (box) box->SetFocus();
  Check();
}

}  // namespace quorvel
