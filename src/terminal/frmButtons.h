#pragma once

#include "platform/controls/ControlArray.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The command strings and labels of the 16 buttons of the main window.
class frmButtons : public Window {
 public:
  static constexpr int kButtons = 16;

  frmButtons();

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save"};
  MenuItem mnuFileExit{mnuFile, "mnuFileExit", "&Exit"};
  MenuItem mnuInsert{*this, "mnuInsert", "&Insert"};
  MenuItem mnuInsertReturn{mnuInsert, "mnuInsertReturn", "&Return  ^[13]"};
  MenuItem mnuInsertEscape{mnuInsert, "mnuInsertEscape", "&Escape ^[27]"};
  MenuItem mnuSep1{mnuInsert, "mnuSep1", ""};
  MenuItem mnuInsertDos{mnuInsert, "mnuInsertDos", "&Dos Command ^[DOS]"};

  ControlArray<Label> Label1{*this, "Label1"};
  ControlArray<Label> Label2{*this, "Label2"};
  ControlArray<TextBox> txtButton{*this, "txtButton"};
  ControlArray<TextBox> txtBtnLabel{*this, "txtBtnLabel"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void BuildRows();
  void LayOutRows();
  bool AllKeepable();
  void cmdOK_Click();
};

}  // namespace quorvel
