#include "output/RunExport.h"

#include <filesystem>
#include <optional>

#include "link/SessionState.h"
#include "output/ExportCommands.h"
#include "output/frmExpSel.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

void TellNoCommands() {
  desktop().MsgBox(
      "No export commands have been defined!\nUse Options - Export Parameters to define.");
}

// Asks until the name is one that may be used; nothing when the user cancels.
std::optional<std::string> AskForFile() {
  FileDialog dialog;
  dialog.purpose = FileDialog::Purpose::Save;
  dialog.title = "Save Report As...";
  dialog.flags =
      FileDialog::kOverwritePrompt | FileDialog::kHideReadOnly | FileDialog::kPathMustExist;
  dialog.defaultExtension = "txt";
  dialog.filter = "Text File (*.txt) | *.txt";
  dialog.initialFolder = Session().ExportPath.empty() ? desktop().backend().application().Folder()
                                                      : Session().ExportPath;
  for (;;) {
    std::optional<std::string> name = desktop().ChooseFile(dialog);
    if (!name || !IsReservedName(*name)) return name;
    desktop().MsgBox("Illegal file name: " + *name);
  }
}

// A report that can't be copied stops nothing: the command is started all the same.
void CopyReport(const std::string& fileName) {
  std::error_code ignored;
  std::filesystem::copy_file(Session().CaptureFile, fileName,
                             std::filesystem::copy_options::overwrite_existing, ignored);
}

bool UserChooses() {
  return Session().ExportType != 0 && Session().ExportType != 1;
}

// The entry to run, by what the host or the settings say, or the user chooses.
std::string SettleEntry(const std::string& command) {
  const SessionState& s = Session();
  if (!command.empty()) return std::string(ExportCommand::kCommandColumn, ' ') + command;
  if (!UserChooses()) return DefaultExport(s.ExportCommands);
  Form<frmExpSel>()->ShowModal();
  return s.SelectedExport;
}

void StartCommand(const std::string& command) {
  try {
    desktop().backend().programs().Start(command, ProgramWindow::NormalFocus);
  } catch (const RuntimeError& failure) {
    desktop().MsgBox("Error " + std::to_string(failure.number()) + " " + failure.what() +
                     "\nError running export command: \n" + command);
  }
}

}  // namespace

void RunExport(std::string& command) {
  if (Session().ExportCommands[0].empty() && command.empty()) return TellNoCommands();
  const std::optional<std::string> fileName = AskForFile();
  if (!fileName) return;
  CopyReport(*fileName);
  const bool choice = command.empty() && UserChooses();
  command = SettleEntry(command);
  if (command.empty()) {
    if (!choice) TellNoCommands();
    return;
  }
  command = CommandLineFor(command, WithShortFolder(*fileName));
  Session().ActiveContext.clear();
  StartCommand(command);
}

}  // namespace quorvel
