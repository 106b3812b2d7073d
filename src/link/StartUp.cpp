#include "link/StartUp.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "link/TelnetControl.h"
#include "link/frmConnect.h"
#include "platform/PlainText.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// The word in HostName that stands for the address of the key orlan.
constexpr const char* kAutoHost = "ORLAN";

// False when the user has picked another configuration, with a host and maybe a user of its own.
bool AskForHostAndUser() {
  const auto dialog = Form<frmConnect>();
  Ask().CenterOnScreen(*dialog);
  Session().ConnectRequested = kFalse;
  dialog->ShowModal();
  const bool browsed = dialog->HasBrowsed();
  if (dialog->IsLoaded()) dialog->Unload();  // the next use gets a new one
  return !browsed;
}

// Nothing can be kept without it.
void CheckFolder() {
  try {
    desktop().backend().application().Folder();
  } catch (const RuntimeError& failure) {
    desktop().MsgBox(std::string("The program can't run without its folder.\n\n") + failure.what(),
                     MessageBoxStyle::kCritical);
    desktop().EndProcess(1);
  }
}

}  // namespace

void Main() {
  CheckFolder();
  SessionState& s = Session();
  s.MagicChar = std::string(1, static_cast<char>(s.Magic));
  s.ConfirmExit = kTrue;
  s.ScreenLoaded = kFalse;
  Application& application = desktop().backend().application();
  s.CaptureFile = application.OwnPathOf("TEMPRPT.TXT");
  s.AppTitleBase = application.Title();
  s.PassThroughPrint = kFalse;
  Ask().ShowMainWindow();
  s.ConfigArgument = application.CommandLine();
  if (s.ConfigArgument.empty()) return;
  try {
    Ask().LoadConfiguration();
  } catch (const RuntimeError&) {
    s.ConfigArgument.clear();  // the user picks the next one
    throw;
  }
  if (s.ConfigPath.empty()) return;
  s.ConfigArgument.clear();
  StartSession();
}

void ConnectToHost() {
  SessionState& s = Session();
  const TelnetControl* present = Ask().LoadedTelnet();
  if (present && !present->IsIdle()) {
    s.ConnectRequested = kFalse;  // and nothing is taken over
    return;
  }
  if (!s.UserId.empty()) {
    s.ConnectRequested = kTrue;
    s.LoginUser = s.UserId;
    s.LoginPassword = s.Pwd;
  } else {
    const auto asking = LoadedForm<frmConnect>();
    if (asking) return asking->SetFocus();
    if (!AskForHostAndUser()) return StartSession();
  }
  if (s.ConnectRequested == kFalse) return;
  const bool automatic = UpperCase(s.HostName) == kAutoHost && !s.AutoHostAddress.empty();
  TelnetControl* telnet = Ask().Telnet();
  if (telnet) telnet->Connect(automatic ? s.AutoHostAddress : s.HostName);
}

void StartSession() {
  ConnectToHost();
  if (Session().ConnectRequested == kFalse) return;
  Ask().ShowTelnetWindow();
  desktop().Yield();
  Ask().ApplySettings();
}

void LogOff() {
  TelnetControl* telnet = Ask().LoadedTelnet();
  if (!telnet) return;
  const bool expected = Session().ForceOff == 1 || Session().MenuLoaded == 1;
  if (telnet->State() == TelnetControl::kConnected && expected) {
    SendLogOff();
    desktop().Yield();
  } else {
    telnet->Close();
  }
}

}  // namespace quorvel
