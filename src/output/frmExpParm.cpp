#include "output/frmExpParm.h"

#include "link/SessionState.h"
#include "output/ExportCommands.h"
#include "output/frmBrowseExp.h"
#include "platform/ProfileFile.h"
#include "platform/controls/Desktop.h"
#include "settings/Configuration.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// The list, in twips: its ten entries with their columns.
constexpr int kListWidth = 9000;
constexpr int kListHeight = 2550;

// ExportType of a group of options each: 1 for the viewer, 2 for a choice.
constexpr std::int16_t kViewer = 1;
constexpr std::int16_t kSelection = 2;
constexpr std::int16_t kLastType = kViewer + kSelection;

std::string AppFolder() {
  return desktop().backend().application().Folder();
}

}  // namespace

frmExpParm::frmExpParm() : Window(Kind::Dialog, "frmExpParm") {
  Caption = "Report Export Parameters";
  Resizable = true;
  fraAutomatic.Caption = "Automatic Option";
  optAutoExport.Caption = "A&uto Export";
  optAutoViewer.Caption = "Use Report &Viewer";
  fraExport.Caption = "Export Option";
  optExportDefault.Caption = "Export &To Default only";
  optExportSelection.Caption = "Allow Se&lection";
  lblCommands.Caption = "Export co&mmands:";
  lstCommands.Font = {"Fixedsys", 9};
  lstCommands.Width = kListWidth;
  lstCommands.Height = kListHeight;
  cmdAdd.Caption = "&Add";
  cmdChange.Caption = "&Change";
  cmdDelete.Caption = "&Delete";
  lblDesc.Caption = "Descri&ption";
  txtDesc.MaxLength = static_cast<int>(ExportCommand::kDescription);
  lblCmd.Caption = "Command Li&ne";
  cmdBrowse.Caption = "B&rowse";
  lblWildcard.Caption = "(use @ as a wildcard for report file name)";
  chkDefault.Caption = "Set As Default";
  Frame2.Caption = kExportFolderTitle;
  cmdBrowseExp.Caption = "&Browse";
  cmdOK.Caption = "&Save";
  cmdExit.Caption = "&Exit";
  cmdExit.Cancel = true;
  cmdAdd.Default = true;  // Enter behind what has just been typed
  LayOutRows();

  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdChange.Click = [this] { cmdChange_Click(); };
  lstCommands.DblClick = [this] { cmdChange_Click(); };
  cmdDelete.Click = [this] { cmdDelete_Click(); };
  cmdBrowse.Click = [this] { cmdBrowse_Click(); };
  cmdBrowseExp.Click = [this] { cmdBrowseExp_Click(); };
  lblExportDir.Change = [this] { changed_ = true; };
  cmdOK.Click = mnuFileSave.Click = [this] { mnuFileSave_Click(); };
  cmdExit.Click = mnuFileExit.Click = [this] { Unload(); };
}

void frmExpParm::LayOutRows() {
  lblCommands.StandsFor(lstCommands);
  SetLayout({Beside({Group(fraAutomatic, {Wide(optAutoExport), Wide(optAutoViewer)}),
                     Group(fraExport, {Wide(optExportDefault), Wide(optExportSelection)})}),
             Wide(lblCommands), Stretch(lstCommands), Bar({&cmdChange, &cmdDelete}),
             Field(lblDesc, txtDesc), Field(lblCmd, txtCmd, {&cmdBrowse}),
             Bar({&chkDefault, &lblWildcard, &cmdAdd}),
             Group(Frame2, {Bar({&lblExportDir, &cmdBrowseExp})}), Buttons({&cmdOK, &cmdExit})});
}

void frmExpParm::Form_Load() {
  const SessionState& s = Session();
  CenterOverMain(*this);
  loadedType_ = s.ExportType;
  if (loadedType_ >= 0 && loadedType_ <= kLastType) {
    const bool viewer = (loadedType_ & kViewer) != 0;
    const bool selection = (loadedType_ & kSelection) != 0;
    (viewer ? optAutoViewer : optAutoExport).Value = true;
    (selection ? optExportSelection : optExportDefault).Value = true;
  }
  for (const std::string& entry : s.ExportCommands) {
    if (!entry.empty()) lstCommands.List.Add(entry);
  }
  lblExportDir.Caption = s.ExportPath.empty() ? AppFolder() : s.ExportPath;
  changed_ = false;
}

// --- the commands

void frmExpParm::cmdAdd_Click() {
  if (txtDesc.Text().empty() || txtCmd.Text().empty()) {
    desktop().MsgBox("A description and command line must be entered");
    return;
  }
  const bool marked = chkDefault.Value() || lstCommands.List.Count() == 0;
  const std::string entry = ExportCommand{marked, txtDesc.Text(), txtCmd.Text()}.Entry();
  if (entry.size() > ProfileFile::kLongestValue) {
    const auto room = ProfileFile::kLongestValue - ExportCommand::kCommandColumn - 1;
    desktop().MsgBox("The command line is too long to be kept: it has " +
                     std::to_string(txtCmd.Text().size()) + " characters, and there is room for " +
                     std::to_string(room) + ".");
    return;
  }
  changed_ = true;
  const std::string selected = lstCommands.Text();
  std::vector<std::string> list = lstCommands.List.All();
  AddExportEntry(list, entry);
  lstCommands.List.Clear();
  for (std::string& line : list) lstCommands.List.Add(std::move(line));
  // A line that has been changed is still there, to be deleted.
  if (!selected.empty()) lstCommands.ListIndex = lstCommands.List.Find(selected);
  txtDesc.Text = std::string();
  txtCmd.Text = std::string();
  chkDefault.Value = false;
  txtDesc.SetFocus();
  if (lstCommands.List.Count() != static_cast<int>(kExportCommands)) return;
  cmdAdd.Enabled = false;
  desktop().MsgBox(
      "Maximum export commands (10) has been reached!\n"
      "A command must be deleted in order to add another");
}

void frmExpParm::cmdChange_Click() {
  if (lstCommands.ListIndex() < 0) return;
  changed_ = true;
  const ExportCommand command = ExportCommand::Parse(lstCommands.Text());
  txtDesc.Text = command.description;
  txtCmd.Text = command.commandLine;
  chkDefault.Value = command.isDefault;
  txtDesc.SetFocus();
}

void frmExpParm::cmdDelete_Click() {
  if (lstCommands.ListIndex() < 0) return;
  changed_ = true;
  lstCommands.List.Remove(lstCommands.ListIndex());
  if (lstCommands.List.Count() < static_cast<int>(kExportCommands)) cmdAdd.Enabled = true;
}

void frmExpParm::cmdBrowse_Click() {
  FileDialog dialog;
  dialog.purpose = FileDialog::Purpose::Open;
  dialog.title = "Export Command";
  dialog.filter = "Applications (*.exe)|*.exe|All Files (*.*)|*.*";
  dialog.flags = FileDialog::kHideReadOnly | FileDialog::kFileMustExist;
  if (const auto chosen = desktop().ChooseFile(dialog)) txtCmd.Text = *chosen;
}

void frmExpParm::cmdBrowseExp_Click() {
  Session().BrowseDirectory = lblExportDir.Caption();
  Form<frmBrowseExp>()->ShowModal();
  if (!Session().BrowseDirectory.empty()) lblExportDir.Caption = Session().BrowseDirectory;
}

// --- saving

std::int16_t frmExpParm::ChosenType() const {
  const bool none = !optAutoExport.Value() && !optAutoViewer.Value();
  if (none || (!optExportDefault.Value() && !optExportSelection.Value())) return loadedType_;
  return static_cast<std::int16_t>((optAutoViewer.Value() ? kViewer : 0) +
                                   (optExportSelection.Value() ? kSelection : 0));
}

void frmExpParm::CheckExportChanges() {
  if (ChosenType() != loadedType_) changed_ = true;
}

void frmExpParm::SaveExportSettings() {
  SessionState& s = Session();
  s.ExportType = loadedType_ = ChosenType();
  std::vector<std::pair<std::string, std::string>> values{{"Type", std::to_string(s.ExportType)}};
  for (std::size_t i = 0; i < kExportCommands; ++i) {
    // A further line of the list is lost.
    const bool there = i < lstCommands.List.All().size();
    s.ExportCommands[i] = there ? lstCommands.List.All()[i] : std::string();
    values.emplace_back("ExpList" + std::to_string(i), s.ExportCommands[i]);
  }
  const bool elsewhere = lblExportDir.Caption() != AppFolder();
  s.ExportPath = elsewhere ? lblExportDir.Caption() : std::string();
  values.emplace_back("ExportPath", s.ExportPath);
  WriteSettings("EXPORT", values);
  changed_ = false;
}

void frmExpParm::mnuFileSave_Click() {
  SaveExportSettings();
  Unload();
}

void frmExpParm::Form_QueryUnload(bool& cancel) {
  if (!changed_) CheckExportChanges();
  if (!changed_) return;
  switch (desktop().MsgBox("Changes have been made!\nSave Changes?", MessageBoxStyle::kYesNoCancel,
                           "Save Changes")) {
    case MessageBoxAnswer::Yes:
      SaveExportSettings();
      break;
    case MessageBoxAnswer::No:
      break;
    default:
      cancel = true;
  }
}

}  // namespace quorvel
