#pragma once

#include "platform/Fax.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The dialog that faxes the capture file: addressing and cover page, filled with what the host sent
// ahead of the report.
class frmFax : public Window {
 public:
  frmFax();

  Label lblServerName{*this, "lblServerName"};
  TextBox txtServerName{*this, "txtServerName"};
  Label lblFaxDate{*this, "lblFaxDate"};
  TextBox txtFaxDate{*this, "txtFaxDate"};
  Label lblFaxDesc{*this, "lblFaxDesc"};
  TextBox txtFaxDesc{*this, "txtFaxDesc"};
  CheckBox chkSendCover{*this, "chkSendCover"};

  Frame fraTo{*this, "fraTo"};
  Label lblToName{fraTo, "lblToName"};
  TextBox txtToName{fraTo, "txtToName"};
  Label lblToCompany{fraTo, "lblToCompany"};
  TextBox txtToCompany{fraTo, "txtToCompany"};
  Label lblToFax{fraTo, "lblToFax"};
  TextBox txtToFax{fraTo, "txtToFax"};
  Label lblToPhone{fraTo, "lblToPhone"};
  TextBox txtToPhone{fraTo, "txtToPhone"};
  Label lblToEmail{fraTo, "lblToEmail"};
  TextBox txtToEmail{fraTo, "txtToEmail"};

  Frame fraFrom{*this, "fraFrom"};
  Label lblFromName{fraFrom, "lblFromName"};
  TextBox txtFromName{fraFrom, "txtFromName"};
  Label lblFromCompany{fraFrom, "lblFromCompany"};
  TextBox txtFromCompany{fraFrom, "txtFromCompany"};
  Label lblFromFax{fraFrom, "lblFromFax"};
  TextBox txtFromFax{fraFrom, "txtFromFax"};
  Label lblFromPhone{fraFrom, "lblFromPhone"};
  TextBox txtFromPhone{fraFrom, "txtFromPhone"};
  Label lblFromEmail{fraFrom, "lblFromEmail"};
  TextBox txtFromEmail{fraFrom, "txtFromEmail"};

  Label lblCoverPage{*this, "lblCoverPage"};
  TextBox txtCoverPage{*this, "txtCoverPage"};
  Button cmdSend{*this, "cmdSend"};
  Button cmdCancel{*this, "cmdCancel"};
  Button cmdFaxSet{*this, "cmdFaxSet"};

  // Enables or disables the fields that only a fax with a cover page needs, and the recipient's
  // number with them.
  void SetFaxInfo(const bool& enabled);

 protected:
  void Form_Load() override;

 private:
  void NameControls();
  void RefreshFaxOptions();
  void cmdSend_Click();
  void cmdFaxSet_Click();
  void FillJob();

  FaxJob wsnFax;
};

}  // namespace quorvel
