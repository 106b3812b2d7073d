#pragma once

#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The box that tells name and version of the program.
class frmAbout : public Window {
 public:
  frmAbout();

  PictureBox picApp{*this, "picApp"};
  Label lblName{*this, "lblName"};
  Label lblClient{*this, "lblClient"};
  Label lblVersion{*this, "lblVersion"};
  Button cmdOK{*this, "cmdOK"};

 protected:
  void Form_Load() override;
};

}  // namespace quorvel
