#include "terminal/frmButtons.h"

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "settings/Configuration.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"
#include "terminal/CommandStrings.h"

namespace quorvel {
namespace {

// Narrowest the boxes get, in twips.
constexpr int kCommandWidth = 3000;
constexpr int kLabelWidth = 1650;

}  // namespace

frmButtons::frmButtons() : Window(Kind::Dialog, "frmButtons") {
  Caption = "Define Command Buttons";
  Resizable = true;
  BuildRows();
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  cmdOK.TabIndex = 2 * kButtons + 21;  // behind the boxes, which were created last
  cmdCancel.TabIndex = 2 * kButtons + 21;
  LayOutRows();

  cmdOK.Click = mnuFileSave.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = mnuFileExit.Click = [this] { Unload(); };
  BindInsertMenu(*this, mnuInsertReturn, mnuInsertEscape, mnuInsertDos);
}

void frmButtons::BuildRows() {
  for (int i = 0; i < 4; ++i) Label2.Load(i).Caption = i % 2 == 0 ? "Command String" : "Label";
  for (int i = 0; i < kButtons; ++i) {
    const std::string name = "Button " + std::to_string(i + 1);
    Label1.Load(i).Caption = name;
    TextBox& command = txtButton.Load(i);
    command.Width = kCommandWidth;
    command.AccessibleText = name;
    Label1(i).StandsFor(command);
    TextBox& label = txtBtnLabel.Load(i);
    label.Width = kLabelWidth;
    label.AccessibleText = "Label of button " + std::to_string(i + 1);
  }
}

void frmButtons::LayOutRows() {
  constexpr int kHalf = kButtons / 2;
  constexpr int kColumns = 7;
  std::vector<Control*> cells{nullptr, &Label2(0), &Label2(1), nullptr,
                              nullptr, &Label2(2), &Label2(3)};
  for (int i = 0; i < kHalf; ++i) {
    const int j = i + kHalf;
    cells.insert(cells.end(), {&Label1(i), &txtButton(i), &txtBtnLabel(i), nullptr, &Label1(j),
                               &txtButton(j), &txtBtnLabel(j)});
  }
  SetLayout({Grid(kColumns, std::move(cells)), Buttons({&cmdOK, &cmdCancel})});
}

void frmButtons::Form_Load() {
  CenterOverMain(*this);
  for (int i = 0; i < kButtons; ++i) {
    txtButton(i).Text = Session().ButtonCommands[static_cast<std::size_t>(i)];
    txtBtnLabel(i).Text = Ask().ButtonCaption(i);
  }
}

bool frmButtons::AllKeepable() {
  for (int i = 0; i < kButtons; ++i) {
    if (!IsKeepable(txtButton(i), CommandStringFault(txtButton(i).Text()))) return false;
    if (!IsKeepable(txtBtnLabel(i), SettingFault(txtBtnLabel(i).Text()))) return false;
  }
  return true;
}

void frmButtons::cmdOK_Click() {
  if (!AllKeepable()) return;
  for (int i = 0; i < kButtons; ++i) {
    Session().ButtonCommands[static_cast<std::size_t>(i)] = txtButton(i).Text();
    Ask().SetButtonCaption(i, txtBtnLabel(i).Text());
  }
  AskToSaveSettings();
  Unload();
}

}  // namespace quorvel
