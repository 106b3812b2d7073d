#pragma once

#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The choice of an export command; leaves it in SelectedExport, empty when the user cancels.
class frmExpSel : public Window {
 public:
  frmExpSel();

  ListBox lstOptions{*this, "lstOptions"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
};

}  // namespace quorvel
