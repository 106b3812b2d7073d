#pragma once

#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// Asks for one line of the bookmarks. It is handed over in BookmarkText: empty for a new one, and
// empty when the user cancels.
class frmAddBook : public Window {
 public:
  frmAddBook();

  Label Label1{*this, "Label1"};
  TextBox txtCommand{*this, "txtCommand"};
  CheckBox chkHeader{*this, "chkHeader"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdExit{*this, "cmdExit"};

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
  void cmdExit_Click();
};

}  // namespace quorvel
