#pragma once

#include <string>

#include "output/ReportSearch.h"
#include "platform/controls/ReportView.h"
#include "platform/controls/SimpleControls.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

namespace quorvel {

// The report viewer: shows the capture file, line by line, and is the place from which a report is
// printed, exported or faxed. The terminal stays disabled until it is closed.
class frmReport : public Window {
 public:
  frmReport();

  ReportView txtReport{*this, "txtReport"};
  Label lblFind{*this, "lblFind"};
  TextBox txtFind{*this, "txtFind"};
  Button cmdPrevious{*this, "cmdPrevious"};
  Button cmdNext{*this, "cmdNext"};
  Label lblMatches{*this, "lblMatches"};
  CheckBox chkHeading{*this, "chkHeading"};

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "&Print"};
  MenuItem mnuFileExport{mnuFile, "mnuFileExport", "&Export"};
  MenuItem mnuSep1{mnuFile, "mnuSep1", "-"};
  MenuItem mnuFileExit{mnuFile, "mnuFileExit", "E&xit"};
  MenuItem mnuSendFax{*this, "mnuSendFax", "&Send Fax"};
  MenuItem mnuOpt{*this, "mnuOpt", "&Options"};
  MenuItem mnuOptExp{mnuOpt, "mnuOptExp", "&Export Parameters"};
  MenuItem mnuOptFax{mnuOpt, "mnuOptFax", "&Fax Settings"};

  // Puts the lines of a file, which end at CR or CR LF, in place of those shown. What does not fit
  // into memory is told in a box; what fitted stays.
  void Fill(std::istream& file, std::size_t expectedBytes);

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload(bool& cancel) override;
  void Form_KeyDown(KeyEvent& key) override;

 private:
  bool FindKey(const KeyEvent& key);
  void CopySelected();
  void ShowMatches();

  ReportSearch search_{txtReport};
};

// Shows the viewer with what the capture file holds. RuntimeError when the file is there and can't
// be read.
void ShowReport();

}  // namespace quorvel
