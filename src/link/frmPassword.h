#pragma once

#include "link/HostWait.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The dialog in which the host asks for a password in the middle of a session. The check is the
// host's; an empty line tells it that the user gave none.
class frmPassword : public Window {
 public:
  frmPassword();

  Label Label2{*this, "Label2"};
  Label lblPgm{*this, "lblPgm"};
  Label Label1{*this, "Label1"};
  TextBox txtPwd{*this, "txtPwd"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdExit{*this, "cmdExit"};

 protected:
  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 private:
  void cmdOK_Click();
  void cmdExit_Click();

  HostQuestion question_;
};

}  // namespace quorvel
