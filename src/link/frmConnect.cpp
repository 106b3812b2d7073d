#include "link/frmConnect.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "link/TelnetControl.h"
#include "platform/NumberText.h"
#include "platform/PlainText.h"
#include "platform/ProfileFile.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

// `text` in the case that a setting asks for: "L" lower, "U" upper, anything else as it is.
std::string InCase(std::string text, const std::string& setting) {
  if (setting == "L") return LowerCase(std::move(text));
  if (setting == "U") return UpperCase(std::move(text));
  return text;
}

}  // namespace

frmConnect::frmConnect() : Window(Kind::Dialog, "frmConnect") {
  Caption = "Connect";
  Label1.Caption = "Host Name";
  Label2.Caption = "User Id";
  Label3.Caption = "Password";
  txtPassword.PasswordChar = '*';
  cmdConnect.Caption = "&Connect";
  cmdCancel.Caption = "Cancel";
  cmdCancel.Cancel = true;
  cmdBrowse.Caption = "&Browse";
  SetLayout({Field(Label1, HostName), Field(Label2, txtUserId), Field(Label3, txtPassword),
             Buttons({&cmdConnect, &cmdCancel, &cmdBrowse})});

  HostName.MaxLength = static_cast<int>(ProfileFile::kLongestValue);
  HostName.GotFocus = [this] { HostName_GotFocus(); };
  HostName.KeyPress = [this](int& code) { HostName_KeyPress(code); };
  txtUserId.KeyPress = [this](int& code) { txtUserId_KeyPress(code); };
  txtPassword.KeyPress = [this](int& code) { txtPassword_KeyPress(code); };
  cmdConnect.Click = [this] { cmdConnect_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdBrowse.Click = [this] { cmdBrowse_Click(); };
}

void frmConnect::CenterOverMain() {
  if (Window* main = Ask().MainWindow()) Ask().CenterOnParent(*main, *this);
}

void frmConnect::Form_Load() {
  desktop().Yield();
  CenterOverMain();
  HostName.Text = Session().HostName;
}

void frmConnect::Form_Activate() {
  CenterOverMain();
  Session().LoginUser.clear();
  Session().LoginPassword.clear();
  HostName.Text = Session().HostName;
  txtUserId.SetFocus();
}

void frmConnect::HostName_GotFocus() {
  HostName.SelectAll();
}

void frmConnect::HostName_KeyPress(int& code) {
  if (code != CR) return;
  code = 0;
  txtUserId.SetFocus();
}

void frmConnect::txtUserId_KeyPress(int& code) {
  if (code != CR) return;
  code = 0;
  txtPassword.SetFocus();
}

void frmConnect::txtPassword_KeyPress(int& code) {
  if (code != CR) return;
  code = 0;
  cmdConnect_Click();
}

void frmConnect::cmdConnect_Click() {
  SessionState& s = Session();
  if (!IsNumeric(s.Port)) s.Port = "23";
  // As the network wants it: "1,023" is a number, too.
  if (TelnetControl* telnet = Ask().Telnet()) telnet->SetRemotePort(PlainNumber(NumberOf(s.Port)));
  txtUserId.Text = InCase(txtUserId.Text(), s.ConvUser);
  txtPassword.Text = InCase(txtPassword.Text(), s.ConvPwd);
  s.HostName = HostName.Text();
  s.ConnectRequested = kTrue;
  s.LoginUser = txtUserId.Text();
  s.LoginPassword = txtPassword.Text();
  Unload();
}

void frmConnect::cmdCancel_Click() {
  Hide();
}

void frmConnect::cmdBrowse_Click() {
  Ask().LoadConfiguration();
  if (Session().ConfigPath.empty()) return;
  browsed_ = true;
  Hide();
}

}  // namespace quorvel
