#include "output/frmFaxSettings.h"

#include "link/SessionState.h"
#include "settings/Configuration.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"

namespace quorvel {

frmFaxSettings::frmFaxSettings() : Window(Kind::Dialog, "frmFaxSettings") {
  Caption = "Fax Settings";
  Resizable = true;
  lblFaxServer.Caption = "Fax Server";
  lblPrefix.Caption = "Fax Number Prefix";
  optSend0.Caption = "Send Cover Page";
  optSend1.Caption = "No Cover Page";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  SetLayout({Field(lblFaxServer, txtFaxServer), Field(lblPrefix, txtPrefix),
             Bar({&optSend0, &optSend1}), Buttons({&cmdOK, &cmdCancel})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

void frmFaxSettings::Form_Load() {
  const SessionState& s = Session();
  CenterOnScreen(*this);
  txtFaxServer.Text = s.FaxServer;
  txtPrefix.Text = s.FaxPrefix;
  (s.SendCover == 1 ? optSend0 : optSend1).Value = true;
}

void frmFaxSettings::cmdOK_Click() {
  for (TextBox* box : {&txtFaxServer, &txtPrefix}) {
    if (!IsKeepable(*box, SettingFault(box->Text()))) return;
  }
  SessionState& s = Session();
  s.FaxServer = txtFaxServer.Text();
  s.FaxPrefix = txtPrefix.Text();
  s.SendCover = optSend0.Value() ? 1 : 0;
  WriteSettings("FAX", {{"FaxServer", s.FaxServer},
                        {"FaxPrefix", s.FaxPrefix},
                        {"SendCover", std::to_string(s.SendCover)}});
  Unload();
}

}  // namespace quorvel
