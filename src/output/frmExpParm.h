#pragma once

#include <cstdint>

#include "platform/controls/ControlArray.h"
#include "platform/controls/Lists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// Title of the export folder, here and where it is browsed for.
inline constexpr char kExportFolderTitle[] = "\"Export To\" Directory";

// The export settings: whether reports go to the viewer or to a command at once, the commands, and
// the folder in which the save dialog opens.
class frmExpParm : public Window {
 public:
  frmExpParm();

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save"};
  MenuItem mnuFileExit{mnuFile, "mnuFileExit", "&Exit"};

  // Frame1, one for each group of options.
  Frame fraAutomatic{*this, "Frame1", 0};
  OptionButton optAutoExport{fraAutomatic, "optAuto", 0};
  OptionButton optAutoViewer{fraAutomatic, "optAuto", 1};
  Frame fraExport{*this, "Frame1", 1};
  OptionButton optExportDefault{fraExport, "optExport", 0};
  OptionButton optExportSelection{fraExport, "optExport", 1};

  Label lblCommands{*this, "lblCommands"};
  ListBox lstCommands{*this, "lstCommands"};
  Button cmdChange{*this, "cmdChange"};
  Button cmdDelete{*this, "cmdDelete"};
  Label lblDesc{*this, "lblDesc"};
  TextBox txtDesc{*this, "txtDesc"};
  Label lblCmd{*this, "lblCmd"};
  TextBox txtCmd{*this, "txtCmd"};
  Button cmdBrowse{*this, "cmdBrowse"};
  Label lblWildcard{*this, "lblWildcard"};
  CheckBox chkDefault{*this, "chkDefault"};
  Button cmdAdd{*this, "cmdAdd"};

  Frame Frame2{*this, "Frame2"};
  Label lblExportDir{Frame2, "lblExportDir"};
  Button cmdBrowseExp{Frame2, "cmdBrowseExp"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdExit{*this, "cmdExit"};

 protected:
  void Form_Load() override;
  void Form_QueryUnload(bool& cancel) override;

 private:
  void LayOutRows();
  void cmdAdd_Click();
  void cmdChange_Click();
  void cmdDelete_Click();
  void cmdBrowse_Click();
  void cmdBrowseExp_Click();
  void mnuFileSave_Click();
  std::int16_t ChosenType() const;
  void CheckExportChanges();
  void SaveExportSettings();

  bool changed_ = false;
  std::int16_t loadedType_ = 0;
};

}  // namespace quorvel
