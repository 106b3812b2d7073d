#pragma once

#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// Tells where a report is being printed.
class frmPrintStatus : public Window {
 public:
  frmPrintStatus();

  Label Label1{*this, "Label1"};
  Label lblPrinter{*this, "lblPrinter"};
  Label lblProgress{*this, "lblProgress"};
  Button cmdOK{*this, "cmdOK"};

 protected:
  void Form_Load() override;
};

}  // namespace quorvel
