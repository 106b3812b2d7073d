#include "output/frmBrowseExp.h"

#include "link/SessionState.h"
#include "output/frmExpParm.h"
#include "platform/controls/Desktop.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// In twips: some 18 folders, and paths of usual length.
constexpr int kWidth = 7200;
constexpr int kHeight = 7800;

}  // namespace

frmBrowseExp::frmBrowseExp() : Window(Kind::Dialog, "frmBrowseExp") {
  Caption = std::string("Select ") + kExportFolderTitle;
  Resizable = true;
  lblDrive.Caption = "D&rive:";
  Dir1.AccessibleText = "Folders";
  lblCaption.Caption = kExportFolderTitle;
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  SetLayout({Field(lblDrive, Drive1), Stretch(Dir1), Wide(lblCaption), Wide(lblExportDir),
             Buttons({&cmdOK, &cmdCancel})});

  Dir1.Change = [this] {
    lblExportDir.Caption = Dir1.Path();
    Drive1.SelectDriveOf(Dir1.Path());
    lastGoodDrive_ = Drive1.Text();
  };
  Drive1.Click = [this] { Drive1_Change(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

void frmBrowseExp::Form_Load() {
  Width = kWidth;
  Height = kHeight;
  if (frmExpParm* parent = LoadedForm<frmExpParm>()) CenterOnParent(*parent, *this);
  Drive1.Refill();
  StartIn(std::exchange(Session().BrowseDirectory, {}));
  Drive1.SelectDriveOf(Dir1.Path());
  lastGoodDrive_ = Drive1.Text();
  lblExportDir.Caption = Dir1.Path();
}

void frmBrowseExp::StartIn(const std::string& folder) {
  const std::string home = desktop().backend().application().Folder();
  if (folder.empty()) return Dir1.SetPath(home);
  try {
    Dir1.SetPath(folder);
  } catch (const RuntimeError&) {
    desktop().MsgBox("Directory " + folder + " is invalid!");
    Dir1.SetPath(home);
  }
}

void frmBrowseExp::cmdOK_Click() {
  const std::string folder = lblExportDir.Caption();
  if (const std::string fault = SettingFault(folder); !fault.empty()) {
    desktop().MsgBox("The path of this folder " + fault, MessageBoxStyle::kExclamation);
    return;
  }
  Session().BrowseDirectory = folder;
  Unload();
}

void frmBrowseExp::Drive1_Change() {
  const std::string drive = Drive1.Text();
  if (drive == lastGoodDrive_) return;
  try {
    Dir1.SetPath(drive);
    lastGoodDrive_ = drive;
  } catch (const RuntimeError&) {
    desktop().MsgBox("Drive " + drive + " is not accessible");
    Drive1.Text = lastGoodDrive_;
  }
}

}  // namespace quorvel
