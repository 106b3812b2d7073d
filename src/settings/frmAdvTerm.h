#pragma once

#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// What the automatic login waits for, and how it converts what it sends.
class frmAdvTerm : public Window {
 public:
  frmAdvTerm();

  Frame Frame1{*this, "Frame1"};
  Label lblLoginString{Frame1, "Label1", 0};
  TextBox txtLoginString{Frame1, "txtLoginString"};
  Label lblPwdString{Frame1, "Label1", 1};
  TextBox txtPwdString{Frame1, "txtPwdString"};
  Label lblCVLogin{Frame1, "Label2", 0};
  ComboBox cboCVLogin{Frame1, "cboCVLogin", -1, ComboBox::Style::DropDownList};
  Label lblCVPwd{Frame1, "Label2", 1};
  ComboBox cboCVPwd{Frame1, "cboCVPwd", -1, ComboBox::Style::DropDownList};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
};

}  // namespace quorvel
