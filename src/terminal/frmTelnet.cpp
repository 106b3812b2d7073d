#include "terminal/frmTelnet.h"

#include "link/CaptureMessages.h"
#include "link/HandOvers.h"
#include "link/HostWait.h"
#include "link/Marks.h"
#include "link/Negotiation.h"
#include "link/Receiver.h"
#include "link/Requests.h"
#include "link/SessionChange.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "settings/ApplySettings.h"
#include "settings/Configuration.h"
#include "settings/WindowPlacing.h"
#include "terminal/CopySelection.h"
#include "terminal/TerminalKeys.h"

namespace quorvel {
namespace {

constexpr char kControlC = 3;
constexpr char kControlV = 22;

}  // namespace

frmTelnet::frmTelnet() : Window(Kind::Child, "frmTelnet") {
  Caption = "Terminal";
  BindMenu();
  TELNET1.ConnectEvent = [this] { TELNET1_Connect(); };
  TELNET1.FailEvent = [this](const std::string& where, const std::string& reason) {
    TELNET1_Fail(where, reason);
  };
  TELNET1.ReceiveEvent = [this](std::string& data) { TELNET1_Receive(data); };
  TELNET1.OptionEvent = [this](int command, int option) { TELNET1_Option(command, option); };
  VT2201.KeyboardData = [this](const std::string& text) { VT2201_KeyboardData(text); };
  VT2201.KeyDown = [this](KeyEvent& key) { TakeTerminalKey(VT2201, key); };
  VT2201.Answer = [this](const std::string& text) { VT2201_Answer(text); };
  VT2201.Paste = [](const std::string& text) { SendToHost(text); };
  VT2201.SelectionChange = [this] { VT2201_SelectionChange(); };
  VT2201.Click = [this] { VT2201.SetFocus(); };
}

void frmTelnet::BindMenu() {
  mnuCRemoteSystem.Click = [] { ConnectToHost(); };
  mnuSOpen.Click = [this] { mnuSOpen_Click(); };
  mnuSSaveSettings.Click = [] { SaveSettings(); };
  mnuSSaveAs.Click = [] { SaveSettingsUnderNewName(); };
  mnuCExit.Click = [this] { mnuCExit_Click(); };
  mnuECopy.Click = [this] { mnuECopy_Click(); };
  mnuEPaste.Click = [this] { mnuEPaste_Click(); };
  mnuOTerminal.Click = [] { Ask().ShowTerminalSettings(); };
  mnuPrintScreen.Click = [this] { mnuPrintScreen_Click(); };
  mnuOptPrinter.Click = [] { Ask().ChoosePrinter(); };
  mnuOptFax.Click = [] { Ask().ShowFaxSettings(); };
  mnuOButtons.Click = [] { Ask().ShowCommandButtons(); };
  mnuOptExport.Click = [] { Ask().ShowExportParameters(); };
  mnuOptCapOff.Click = [this] { mnuOptCapOff_Click(); };
  mnuBookMarks.Click = [this] { mnuBookMarks_Click(); };
  for (MenuItem* wayOut : {&mnuCExit, &mnuECopy, &mnuOptCapOff}) wayOut->IsWayOut = true;
  mnuHAbout.Click = [] { Ask().ShowAbout(); };
}

void frmTelnet::FitToMain() {
  const Window* main = Ask().MainWindow();
  if (!main) return;
  Height = main->ClientHeight() + OnePixel();
  Width = main->ClientWidth() + OnePixel();
  VT2201.Height = ClientHeight() + OnePixel();
  VT2201.Width = ClientWidth() + OnePixel();
}

// --- the window

void frmTelnet::Form_Load() {
  Left = 0;
  Top = 0;
  const Window* main = Ask().MainWindow();
  const Panel* panel = Ask().ButtonPanel();
  if (main) {
    Width = main->ClientWidth();
    Height = main->ClientHeight() - (panel ? panel->Height() : 0);
  }
  VT2201.Move(0, 0, ClientWidth(), ClientHeight());
  Session().ExitRequested = kTrue;
  Session().Connected = 1;
}

void frmTelnet::Form_Activate() {
  Session().ActiveContext = "TELNET";
  VT2201.SetFocus();
}

void frmTelnet::Form_GotFocus() {
  Session().ActiveContext = "TELNET";
}

void frmTelnet::Form_QueryUnload(bool&) {
  if (Session().ExitRequested == kTrue) LogOff();
}

void frmTelnet::Form_Unload(bool& cancel) {
  if (TELNET1.State() == TelnetControl::kConnected) {
    cancel = true;  // the session's end unloads the window again
    return;
  }
  Session().Connected = 0;
  if (Session().MenuLoaded == 1) Ask().UnloadMenu();
  if (Session().HelpOpen == 1) Ask().UnloadHelpText();
  if (Panel* panel = Ask().ButtonPanel()) {
    panel->Visible = false;
    panel->Enabled = false;
  }
}

// --- the link

void frmTelnet::TELNET1_Connect() {
  BeginSession();
  VT2201.Enabled = true;
  mnuCRemoteSystem.Enabled = false;
  mnuSOpen.Enabled = false;
  VT2201.SessionUp = true;
  Ask().ShowButtonPanel();
  if (Window* main = Ask().MainWindow()) {
    main->Caption = Session().AppTitleBase + " - " + Session().HostName;
    // The height comes from the main window at this point, unlike the width.
    VT2201.Height = main->ClientHeight() + OnePixel();
    VT2201.Width = ClientWidth() + OnePixel();
  }
  VT2201.SetFocus();
  if (!Session().LoginUser.empty()) Session().PendingOp = "Login";
}

void frmTelnet::TELNET1_Fail(const std::string& where, const std::string& reason) {
  ShowNotConnected();
  desktop().MsgBox("Could not connect to " + where + LF + reason);
}

void frmTelnet::ShowNotConnected() {
  mnuCRemoteSystem.Enabled = true;
  mnuSOpen.Enabled = true;
  if (Window* main = Ask().MainWindow()) {
    main->Caption = Session().AppTitleBase + " - Not Connected";
  }
}

void frmTelnet::TELNET1_Receive(std::string& data) {
  if (data.empty()) {
    CloseSession();
  } else {
    ReceiveHostData(data);
  }
}

void frmTelnet::TELNET1_Option(int command, int option) {
  if (const auto answer = NegotiationAnswer(command, option)) {
    TELNET1.OptionReply(answer->command, answer->option, answer->text);
  }
}

// The link has ended. This window may be unloaded already, when it was closed from this side; what
// belongs to a session that has begun since is left alone.
void frmTelnet::CloseSession() {
  const frmTelnet* present = LoadedForm<frmTelnet>();
  if (present && present != this) return;
  VT2201.Enabled = true;
  ShowNotConnected();
  if (Panel* panel = Ask().ButtonPanel()) panel->Enabled = false;
  VT2201.SessionUp = false;
  EndOfLink();
  TELNET1.Close();
  Session().ExitRequested = kFalse;
  Unload();
  if (Session().QuickExit != 1 || userStays_) return;
  Session().ConfirmExit = kFalse;
  if (Window* main = Ask().MainWindow()) main->Unload();
}

// --- the terminal

void frmTelnet::VT2201_KeyboardData(const std::string& text) {
  if (TELNET1.State() != TelnetControl::kConnected || text.empty()) return;
  if (text[0] == kControlV) return mnuEPaste_Click();
  if (text[0] == kControlC) {
    if (Session().SelectionLength > 0) CopySelection();
    return;
  }
  TELNET1.Send(text);
  if (Session().LocalEcho == 1) VT2201.Write(text);
}

void frmTelnet::VT2201_Answer(const std::string& text) {
  if (TELNET1.State() == TelnetControl::kConnected) TELNET1.Send(text);
}

void frmTelnet::VT2201_SelectionChange() {
  const Terminal::Selection& selection = VT2201.selection();
  Session().SelectionStart = selection.start;
  Session().SelectionLength = selection.length;
  Session().SelectionScreen = selection.text;
}

// --- the menu

void frmTelnet::mnuCExit_Click() {
  Session().ExitRequested = kTrue;
  Unload();
}

void frmTelnet::mnuSOpen_Click() {
  if (!TELNET1.IsIdle()) return;  // nothing of another session is taken over by this one
  LoadConfiguration();
  if (Session().ConfigPath.empty()) return;
  ApplySettings();
  ConnectToHost();
}

void frmTelnet::mnuECopy_Click() {
  VT2201_SelectionChange();
  CopySelection();
}

void frmTelnet::mnuEPaste_Click() {
  SendToHost(desktop().backend().clipboard().Text());
}

void frmTelnet::mnuPrintScreen_Click() {
  std::string file;
  Try([&] { file = VT2201.PrintScreen(); });  // a failed print screen is ignored
  if (file.empty()) return;
  desktop().MsgBox("The screen has been printed to the file\n\n" + file,
                   MessageBoxStyle::kInformation);
}

void frmTelnet::mnuOptCapOff_Click() {
  if (Session().PendingOp != kCapture) return;
  EndCapture();
  Ask().EnableSessionWindows(true);
}

void frmTelnet::mnuBookMarks_Click() {
  Session().BookmarkContext = "TELNET";
  Ask().ShowBookmarks();
}

}  // namespace quorvel
