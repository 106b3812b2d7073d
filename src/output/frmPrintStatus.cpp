#include "output/frmPrintStatus.h"

#include "settings/WindowPlacing.h"

namespace quorvel {

frmPrintStatus::frmPrintStatus() : Window(Kind::Dialog, "frmPrintStatus") {
  Caption = "Print Status";
  Label1.Caption = "Now printing To:";
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdOK.Cancel = true;
  SetLayout({Wide(Label1), Wide(lblPrinter), Wide(lblProgress), Buttons({&cmdOK})});

  cmdOK.Click = [this] { Unload(); };
}

void frmPrintStatus::Form_Load() {
  CenterOnScreen(*this);
}

}  // namespace quorvel
