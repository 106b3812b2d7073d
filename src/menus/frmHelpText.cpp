#include "menus/frmHelpText.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/Scoped.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"
#include "terminal/frmTelnet.h"

namespace quorvel {
namespace {

constexpr std::int16_t kHeading = 1;  // attributes of a help record
constexpr std::int16_t kText = 11;

// Columns that the host is asked to fill lines up to.
constexpr std::int16_t kLineWidth = 70;

// In twips: the lines as the host fills them, and some twenty of them.
constexpr int kWidth = 10500;
constexpr int kHeight = 7800;

// Whether the host takes a text now: a link that has just been made is still at its login.
bool TakesTexts() {
  return IsLinkUp() && Session().HasSentFrames;
}

}  // namespace

frmHelpText::frmHelpText() : Window(Kind::Dialog, "frmHelpText") {
  Caption = "Help Text";
  Resizable = true;
  lblTitle.Font = {"Fixedsys", 9};
  txtHelp.Font = {"Fixedsys", 9};
  txtHelp.MultiLine = true;
  txtHelp.AccessibleText = "Help text";
  cmdSave.Caption = "&Save";
  cmdExit.Caption = "&Exit";
  cmdExit.Cancel = true;
  txtHelp.TabIndex = 0;
  SetLayout({Wide(lblTitle), Stretch(txtHelp), Buttons({&cmdSave, &cmdExit})});

  txtHelp.Change = [this] { changed_ = true; };
  cmdSave.Click = [this] { cmdSave_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
  mnuFileSave.Click = [this] { cmdSave_Click(); };
  mnuFileExit.Click = [this] { cmdExit_Click(); };
  mnuHelpAbout.Click = [] { Ask().ShowAbout(); };
}

void frmHelpText::Form_Load() {
  Width = kWidth;
  Height = kHeight;
  if (frmTelnet* parent = LoadedForm<frmTelnet>()) CenterOnParent(*parent, *this);
  TakeMessage();
}

void frmHelpText::Form_Activate() {
  txtHelp.SetFocus();
}

void frmHelpText::TakeMessage() {
  SessionState& s = Session();
  s.HelpTexts.Open();
  question_.Ask();
  const std::string message = s.HostMessage;
  const std::string record = FieldOf(message, FS, 4);
  written_ = false;
  helpKey_ = s.HelpKey = FieldOf(message, FS, 2);
  Caption = "Help Key - " + helpKey_ + "  Pgm/Menu - " + FieldOf(message, FS, 3);
  lblTitle.Caption = FieldOf(record, AM, kHeading);
  std::string text = ExtractOf(record, kText, 0, 0);
  txtHelp.Text = SwapAll(std::string_view(&VM, 1), CRLF, text);
  txtHelp.SelStart = 0;
  changed_ = false;
  s.HelpOpen = 1;
}

void frmHelpText::cmdSave_Click() {
  if (IsWaiting() || !Save()) return;
  Unload();
}

void frmHelpText::cmdExit_Click() {
  if (IsWaiting()) return;  // the host's answer closes the window
  written_ = false;
  Unload();
}

// Writes a changed text to the host and waits for its answer. False when the window must stay:
// the link is gone, and the edits are here only.
bool frmHelpText::Save() {
  written_ = false;
  if (!changed_) return true;
  if (!TakesTexts()) {
    desktop().MsgBox("Error updating Help Text " + std::string(1, LF) + "Not connected");
    return false;
  }
  std::string text = txtHelp.Text();
  SwapAll(CRLF, std::string_view(&SVM, 1), text);
  Session().HelpKey = helpKey_;
  // Changed it stays until the host has answered: the link may be lost first.
  const ScopedFlag saving(saving_);
  WriteHelpText(AsField(text), kLineWidth, std::string(1, SVM));
  if (!IsLinkUp()) return false;  // nobody knows whether it has been written
  changed_ = false;
  written_ = true;
  return IsLoaded();
}

void frmHelpText::Form_QueryUnload(bool& cancel) {
  if (!changed_) {
    if (!written_) AnswerHost();
    return;
  }
  const auto answer = [this] {
    const ScopedFlag asking(asking_);
    return desktop().MsgBox("Changes have been made! Do you wish to save the changes?",
                            MessageBoxStyle::kYesNoCancel, "Help Text Changed");
  }();
  if (answer == MessageBoxAnswer::Yes) {
    if (Save()) {
      Unload();
    } else {
      cancel = true;
    }
  } else if (answer == MessageBoxAnswer::No) {
    AnswerHost();
  } else {
    cancel = true;
  }
}

// The host goes on with an empty line.
void frmHelpText::AnswerHost() {
  question_.Answer("");
}

// Without the link no answer comes: the window can be left all the same.
bool frmHelpText::IsWaiting() const {
  return saving_ && IsLinkUp();
}

void frmHelpText::Form_Unload(bool&) {
  Session().HelpOpen = 0;
  Session().HelpTexts.Answered();
}

}  // namespace quorvel
