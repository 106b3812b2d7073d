#include "link/frmPassword.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

frmPassword::frmPassword() : Window(Kind::Dialog, "frmPassword") {
  Caption = "Password Entry";
  Label2.Caption = "Program:";
  Label1.Caption = "Password:";
  txtPwd.PasswordChar = '*';
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdExit.Caption = "&Exit";
  cmdExit.Cancel = true;
  SetLayout({Field(Label2, lblPgm), Field(Label1, txtPwd), Buttons({&cmdOK, &cmdExit})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
}

void frmPassword::Form_Load() {
  question_.Ask();
  if (Window* main = Ask().MainWindow()) Ask().CenterOnParent(*main, *this);
  lblPgm.Caption = FieldOf(Session().HostMessage, FS, 2);
}

void frmPassword::cmdOK_Click() {
  question_.Answer(txtPwd.Text());
  Unload();
}

void frmPassword::cmdExit_Click() {
  Unload();
}

// Without an answer an empty line: the host waits for one.
void frmPassword::Form_Unload(bool&) {
  question_.Answer("");
}

}  // namespace quorvel
