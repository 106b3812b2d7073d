#include "menus/frmAbout.h"

#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {

frmAbout::frmAbout() : Window(Kind::Dialog, "frmAbout") {
  Caption = "About Quorvel GUI";
  picApp.Picture = "app";
  picApp.AccessibleText = "Picture of the program";
  lblName.Caption = "Quorvel GUI";
  lblName.Font = {"MS Sans Serif", 14, true};
  lblClient.Caption = "GUI Client";
  lblVersion.Caption = "Version 5.1.0";
  cmdOK.Caption = "OK";
  cmdOK.Default = true;
  cmdOK.Cancel = true;
  SetLayout({Wide(picApp), Wide(lblName), Wide(lblClient), Wide(lblVersion), Buttons({&cmdOK})});
  cmdOK.Click = [this] { Unload(); };
}

void frmAbout::Form_Load() {
  CenterOverMain(*this);
}

}  // namespace quorvel
