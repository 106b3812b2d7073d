#pragma once

#include <string>

#include "platform/controls/FolderLists.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The choice of the folder that reports are exported to: from BrowseDirectory and back to it,
// empty when the user cancels.
class frmBrowseExp : public Window {
 public:
  frmBrowseExp();

  Label lblDrive{*this, "lblDrive"};
  DriveListBox Drive1{*this, "Drive1"};
  DirectoryListBox Dir1{*this, "Dir1"};
  Label lblCaption{*this, "lblCaption"};
  Label lblExportDir{*this, "lblExportDir"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
  void Drive1_Change();
  void StartIn(const std::string& folder);

  std::string lastGoodDrive_;
};

}  // namespace quorvel
