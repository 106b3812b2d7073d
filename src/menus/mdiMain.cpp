#include "menus/mdiMain.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "menus/frmSubMenu.h"
#include "platform/controls/Desktop.h"
#include "settings/Configuration.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

// The two rows of buttons, in twips.
struct ButtonColumn {
  int left;
  int width;
};
constexpr ButtonColumn kColumns[] = {{60, 1470},   {1605, 1455}, {3165, 1470}, {4725, 1470},
                                     {6315, 1455}, {7875, 1470}, {9435, 1470}, {10995, 1470}};
constexpr int kFirstRow = 75;
constexpr int kSecondRow = 420;
constexpr int kButtonHeight = 330;
constexpr int kPanelWidth = 12525;
constexpr int kPanelHeight = 825;

// What stands above the inside of the main window: title bar, menu bar and border.
constexpr int kAboveInside = 690;

}  // namespace

mdiMain::mdiMain() : Window(Kind::Main, "mdiMain") {
  Caption = "Quorvel GUI";
  Width.Adopt(13200);
  Height.Adopt(9600);
  Left.Adopt(600);
  Top.Adopt(600);
  BuildButtons();
  pnlButtons.Click = [this] { KeepTerminalFocus(); };
  cmdStartTelnet.Click = [this] { cmdStartTelnet_Click(); };
  mnuExit.Click = [this] { mnuExit_Click(); };
  mnuExit.IsWayOut = true;
}

void mdiMain::BuildButtons() {
  pnlButtons.AlignBottom = true;
  pnlButtons.AccessibleText = "Command buttons";
  pnlButtons.Visible = false;
  pnlButtons.Move(0, 0, kPanelWidth, kPanelHeight);
  VideoSoftElastic1.Mode = Elastic::kScaleAll;
  VideoSoftElastic1.Move(0, 0, kPanelWidth, kPanelHeight);
  for (int i = 0; i < kButtons; ++i) {
    Button& button = cmdButton.Load(i);
    const ButtonColumn& column = kColumns[i % 8];
    const int top = i == 0 ? kFirstRow - 5 : i < 8 ? kFirstRow : kSecondRow;
    button.Move(column.left, top, column.width, kButtonHeight);
    button.AccessibleText = "Command button " + std::to_string(i + 1);
    // Like a tool bar's: the keyboard stays where the user works.
    button.FocusOnClick = false;
    button.TabStop = false;
    button.Click = [this, i] { cmdButton_Click(i); };
  }
}

void mdiMain::Form_Load() {
  pnlButtons.Visible = false;
}

void mdiMain::PlacePanel() {
  pnlButtons.Top = Top() + Height() - pnlButtons.Height() - kAboveInside;
  pnlButtons.Width = ClientWidth();
}

void mdiMain::ShowButtonPanel() {
  PlacePanel();
  pnlButtons.Visible = true;
  pnlButtons.Enabled = true;
  PlacePanel();
  VideoSoftElastic1.Width = pnlButtons.Width();
  VideoSoftElastic1.Height = pnlButtons.Height();
}

void mdiMain::Form_Resize() {
  PlacePanel();
  VideoSoftElastic1.Width = pnlButtons.Width();
  if (Session().Connected == 1) Ask().FitTelnetWindow();
  if (Session().MenuLoaded == 1) {
    if (frmSubMenu* menu = LoadedForm<frmSubMenu>()) menu->FitMenuWindow();
    desktop().Yield();
  }
}

void mdiMain::Form_Activate() {
  KeepTerminalFocus();
}

// With the terminal in front, a click on the frame or the panel leaves the keyboard there.
void mdiMain::KeepTerminalFocus() {
  const SessionState& s = Session();
  if (s.ActiveContext == "TELNET" && s.Connected == 1 && s.ScreenLoaded == kFalse) {
    Ask().FocusTerminal();
  }
}

void mdiMain::cmdButton_Click(int index) {
  const std::string command = Session().ButtonCommands[static_cast<std::size_t>(index)];
  if (!command.empty()) Ask().SendCommandString(command);
}

void mdiMain::cmdStartTelnet_Click() {
  const TelnetControl* telnet = Ask().LoadedTelnet();
  if (telnet && !telnet->IsIdle()) return;  // nothing of another session is taken over by this one
  LoadConfiguration();
  if (Session().ConfigPath.empty()) return;
  StartSession();
}

void mdiMain::mnuExit_Click() {
  if (Session().Connected == 1) {
    if (Session().MenuLoaded == 1) Session().ExitRequested = kTrue;
    if (frmTelnet* terminal = LoadedForm<frmTelnet>()) {
      terminal->SetUserStays(true);
      terminal->Unload();
    }
  }
  Unload();
}

void mdiMain::Form_QueryUnload(bool& cancel) {
  SessionState& s = Session();
  if (s.ConfirmExit == kTrue) {
    const auto answer = desktop().MsgBox(
        "Exit the system?", MessageBoxStyle::kYesNo | MessageBoxStyle::kQuestion, "Confirm Exit");
    if (answer == MessageBoxAnswer::No) {
      cancel = true;
      return;
    }
  }
  frmTelnet* terminal = LoadedForm<frmTelnet>();
  if (s.Connected != 1 || !terminal) return;
  terminal->SetUserStays(false);
  const bool logOff = s.ForceOff == 1 || s.MenuLoaded == 1;
  if (terminal->TELNET1.State() == TelnetControl::kConnected && logOff) {
    SendLogOff();
    s.ExitRequested = kFalse;
    desktop().Yield();
  } else {
    terminal->TELNET1.Close();
    s.ExitRequested = kFalse;
    terminal->Unload();
  }
}

void mdiMain::Form_Unload(bool& cancel) {
  if (Session().Connected == 1) {
    cancel = true;  // it stays until the link is gone
    return;
  }
  desktop().EndProcess();
}

}  // namespace quorvel
