#pragma once

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The dialog for what every fax begins with: server, prefix of numbers, cover page or not. It
// saves to the configuration file at once.
class frmFaxSettings : public Window {
 public:
  frmFaxSettings();

  Label lblFaxServer{*this, "lblFaxServer"};
  TextBox txtFaxServer{*this, "txtFaxServer"};
  Label lblPrefix{*this, "lblPrefix"};
  TextBox txtPrefix{*this, "txtPrefix"};
  OptionButton optSend0{*this, "optSend", 0};
  OptionButton optSend1{*this, "optSend", 1};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
};

}  // namespace quorvel
