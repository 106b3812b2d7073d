#include "output/frmExpSel.h"

#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// Room for ten entries with their columns, in twips.
constexpr int kListWidth = 8400;
constexpr int kListHeight = 2700;

}  // namespace

frmExpSel::frmExpSel() : Window(Kind::Dialog, "frmExpSel") {
  Caption = "Export Options";
  Resizable = true;
  lstOptions.Font = {"Fixedsys", 9};
  lstOptions.AccessibleText = "Export commands";
  lstOptions.Width = kListWidth;
  lstOptions.Height = kListHeight;
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  SetLayout({Stretch(lstOptions), Buttons({&cmdOK, &cmdCancel})});

  cmdOK.Click = [this] { cmdOK_Click(); };
  lstOptions.DblClick = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] {
    Session().SelectedExport.clear();
    Unload();
  };
}

void frmExpSel::Form_Load() {
  // Whatever way it is closed by, only a choice made now counts.
  Session().SelectedExport.clear();
  CenterOverMain(*this);
  for (const std::string& entry : Session().ExportCommands) lstOptions.List.Add(entry);
  lstOptions.ListIndex = 0;
}

void frmExpSel::cmdOK_Click() {
  if (lstOptions.ListIndex() >= 0) Session().SelectedExport = lstOptions.Text();
  Unload();
}

}  // namespace quorvel
