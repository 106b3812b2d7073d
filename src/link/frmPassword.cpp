#include "link/frmPassword.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
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
  result_.clear();
  if (Window* main = Ask().MainWindow()) Ask().CenterOnParent(*main, *this);
  lblPgm.Caption = FieldOf(Session().HostMessage, FS, 2);
}

void frmPassword::cmdOK_Click() {
  result_ = "OK";
  SendToHost(txtPwd.Text() + CR);
  Unload();
}

void frmPassword::cmdExit_Click() {
  result_.clear();
  Unload();
}

void frmPassword::Form_Unload(bool&) {
  if (result_ != "OK") SendToHost(std::string(1, CR));
}

}  // namespace quorvel
