#include "settings/frmAdvTerm.h"

#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"
#include "settings/frmTerm.h"

namespace quorvel {
namespace {

// The case conversions of the login, in the order of the lists; the last is none.
struct Conversion {
  const char* caption;
  const char* setting;
};
constexpr Conversion kConversions[] = {{"lower-case", "L"}, {"UPPER-CASE", "U"}, {"NONE", ""}};

void Choose(ComboBox& combo, const std::string& setting) {
  for (const Conversion& conversion : kConversions) combo.List.Add(conversion.caption);
  combo.ListIndex = setting == "L" ? 0 : setting == "U" ? 1 : 2;
}

std::string Chosen(const ComboBox& combo) {
  const int index = combo.ListIndex();
  return index < 0 ? "" : kConversions[index].setting;
}

}  // namespace

frmAdvTerm::frmAdvTerm() : Window(Kind::Dialog, "frmAdvTerm") {
  Caption = "Advanced Settings";
  Frame1.Caption = "Login Settings";
  lblLoginString.Caption = "Login String";
  lblPwdString.Caption = "Password String";
  lblCVLogin.Caption = "Convert Login";
  lblCVPwd.Caption = "Convert Password";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  SetLayout(
      {Group(Frame1, {Field(lblLoginString, txtLoginString), Field(lblPwdString, txtPwdString),
                      Field(lblCVLogin, cboCVLogin), Field(lblCVPwd, cboCVPwd)}),
       Buttons({&cmdOK, &cmdCancel})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

void frmAdvTerm::Form_Load() {
  if (frmTerm* parent = LoadedForm<frmTerm>()) CenterOnParent(*parent, *this);
  const SessionState& s = Session();
  Choose(cboCVLogin, s.ConvUser);
  Choose(cboCVPwd, s.ConvPwd);
  txtLoginString.Text = s.LoginString;
  txtPwdString.Text = s.PwdString;
}

void frmAdvTerm::cmdOK_Click() {
  if (!IsKeepable(txtLoginString, SettingFault(txtLoginString.Text()))) return;
  if (!IsKeepable(txtPwdString, SettingFault(txtPwdString.Text()))) return;
  SessionState& s = Session();
  s.LoginString = txtLoginString.Text();
  s.PwdString = txtPwdString.Text();
  s.ConvUser = Chosen(cboCVLogin);
  s.ConvPwd = Chosen(cboCVPwd);
  Unload();
}

}  // namespace quorvel
