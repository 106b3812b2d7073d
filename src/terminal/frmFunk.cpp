#include "terminal/frmFunk.h"

#include "link/SessionState.h"
#include "settings/SettingFaults.h"
#include "settings/WindowPlacing.h"
#include "terminal/CommandStrings.h"

namespace quorvel {
namespace {

constexpr int kCommandWidth = 4200;            // narrowest the boxes get, in twips
constexpr int kHeadings = 2 * frmFunk::kKeys;  // where the headings stand in Label1

// The string behind box `i`.
std::string& CommandOf(int i) {
  SessionState& s = Session();
  auto& keys = i < frmFunk::kKeys ? s.FunctionKeys : s.ShiftFunctionKeys;
  return keys.at(static_cast<std::size_t>(i % frmFunk::kKeys + 1));
}

}  // namespace

frmFunk::frmFunk() : Window(Kind::Dialog, "frmFunk") {
  Caption = "Function Key Mapping";
  Resizable = true;
  for (int i = 0; i < 2 * kKeys; ++i) {
    Label& label = Label1.Load(i);
    label.Caption = (i < kKeys ? "F" : "sF") + std::to_string(i % kKeys + 1);
    TextBox& box = txtFunk.Load(i);
    box.Width = kCommandWidth;
    label.StandsFor(box);
  }
  for (int i = 0; i < 4; ++i) {
    Label1.Load(kHeadings + i).Caption = i % 2 == 0 ? "Key" : "Command String";
  }
  cmdOK.Caption = "&OK";
  cmdOK.Default = true;
  cmdCancel.Caption = "&Cancel";
  cmdCancel.Cancel = true;
  cmdOK.TabIndex = 4 * kKeys + 5;  // behind the boxes, which were created last
  cmdCancel.TabIndex = 4 * kKeys + 5;
  LayOutRows();

  cmdOK.Click = mnuFileSave.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = mnuFileExit.Click = [this] { Unload(); };
  BindInsertMenu(*this, mnuInsertReturn, mnuInsertEscape, mnuInsertDos);
}

void frmFunk::LayOutRows() {
  constexpr int kColumns = 5;
  std::vector<Control*> cells{&Label1(kHeadings), &Label1(kHeadings + 1), nullptr,
                              &Label1(kHeadings + 2), &Label1(kHeadings + 3)};
  for (int i = 0; i < kKeys; ++i) {
    const int j = i + kKeys;
    cells.insert(cells.end(), {&Label1(i), &txtFunk(i), nullptr, &Label1(j), &txtFunk(j)});
  }
  SetLayout({Grid(kColumns, std::move(cells)), Buttons({&cmdOK, &cmdCancel})});
}

void frmFunk::Form_Load() {
  CenterOverMain(*this);
  for (int i = 0; i < 2 * kKeys; ++i) txtFunk(i).Text = CommandOf(i);
}

void frmFunk::cmdOK_Click() {
  for (int i = 0; i < 2 * kKeys; ++i) {
    if (!IsKeepable(txtFunk(i), CommandStringFault(txtFunk(i).Text()))) return;
  }
  for (int i = 0; i < 2 * kKeys; ++i) CommandOf(i) = txtFunk(i).Text();
  Unload();
}

}  // namespace quorvel
