#pragma once

#include "platform/controls/ControlArray.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The command strings of the function keys: 16 plain, and 16 with a modifier. Saving them is left
// to the window that opened this one.
class frmFunk : public Window {
 public:
  static constexpr int kKeys = 16;

  frmFunk();

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save"};
  MenuItem mnuSep1{mnuFile, "mnuSep1", ""};
  MenuItem mnuFileExit{mnuFile, "mnuFileExit", "E&xit"};
  MenuItem mnuInsert{*this, "mnuInsert", "&Insert"};
  MenuItem mnuInsertReturn{mnuInsert, "mnuInsertReturn", "&Return ^[13]"};
  MenuItem mnuInsertEscape{mnuInsert, "mnuInsertEscape", "&Escape ^[27]"};
  MenuItem mnuSep2{mnuInsert, "mnuSep2", ""};
  MenuItem mnuInsertDos{mnuInsert, "mnuInsertDos", "&DOS Command ^[DOS]"};

  ControlArray<Label> Label1{*this, "Label1"};
  // 0 to 15 the plain keys, 16 to 31 those with a modifier.
  ControlArray<TextBox> txtFunk{*this, "txtFunk"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void LayOutRows();
  void cmdOK_Click();
};

}  // namespace quorvel
