#include "terminal/InstallTerminal.h"

#include "link/HandOvers.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/SimpleControls.h"
#include "terminal/CommandStrings.h"
#include "terminal/frmButtons.h"
#include "terminal/frmFunk.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

void EnableSession(bool enabled) {
  if (frmTelnet* window = LoadedForm<frmTelnet>()) {
    window->Enabled = enabled;
    window->mnuBookMarks.Enabled = enabled;
  }
  if (Panel* panel = Ask().ButtonPanel()) panel->Enabled = enabled;
}

}  // namespace

void InstallTerminal() {
  HandOvers& ask = Ask();
  ask.Telnet = [] { return &Form<frmTelnet>()->TELNET1; };
  ask.LoadedTelnet = []() -> TelnetControl* {
    frmTelnet* window = LoadedForm<frmTelnet>();
    return window ? &window->TELNET1 : nullptr;
  };
  ask.TerminalControl = []() -> Terminal* {
    frmTelnet* window = LoadedForm<frmTelnet>();
    return window ? &window->VT2201 : nullptr;
  };
  ask.ShowTelnetWindow = [] { Form<frmTelnet>()->Show(); };
  ask.FitTelnetWindow = [] {
    if (frmTelnet* window = LoadedForm<frmTelnet>()) window->FitToMain();
  };
  ask.FocusTelnetWindow = [] {
    if (frmTelnet* window = LoadedForm<frmTelnet>()) window->SetFocus();
  };
  ask.FocusTerminal = [] {
    if (frmTelnet* window = LoadedForm<frmTelnet>()) window->VT2201.SetFocus();
  };
  ask.WriteTerminal = [](std::string_view text) {
    if (frmTelnet* window = LoadedForm<frmTelnet>()) window->VT2201.Write(text);
  };
  ask.EnableSessionWindows = EnableSession;
  ask.SendCommandString = [](const std::string& text) {
    std::string copy = text;
    SendCommandString(copy);
  };
  ask.ShowCommandButtons = [] { Form<frmButtons>()->ShowModal(); };
  ask.ShowFunctionKeys = [] { Form<frmFunk>()->ShowModal(); };
}

}  // namespace quorvel
