#pragma once

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The dialog that asks for host, user and password of a session.
class frmConnect : public Window {
 public:
  frmConnect();

  // The user has picked another configuration: it is to be connected to instead.
  bool HasBrowsed() const { return browsed_; }

  Label Label1{*this, "Label1"};
  TextBox HostName{*this, "HostName"};
  Label Label2{*this, "Label2"};
  TextBox txtUserId{*this, "txtUserId"};
  Label Label3{*this, "Label3"};
  TextBox txtPassword{*this, "txtPassword"};
  Button cmdConnect{*this, "cmdConnect"};
  Button cmdCancel{*this, "cmdCancel"};
  Button cmdBrowse{*this, "cmdBrowse"};

 protected:
  void Form_Load() override;
  void Form_Activate() override;

 private:
  void HostName_GotFocus();
  void HostName_KeyPress(int& code);
  void txtUserId_KeyPress(int& code);
  void txtPassword_KeyPress(int& code);
  void cmdConnect_Click();
  void cmdCancel_Click();
  void cmdBrowse_Click();
  void CenterOverMain();

  bool browsed_ = false;
};

}  // namespace quorvel
