#include "settings/Configuration.h"

#include <limits>

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/ProfileFile.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "settings/ConfigurationKeys.h"

namespace quorvel {
namespace {

constexpr int kButtons = 16;

Application& App() {
  return desktop().backend().application();
}

FileDialog ConfigurationDialog(FileDialog::Purpose purpose) {
  FileDialog dialog;
  dialog.purpose = purpose;
  dialog.defaultExtension = "inf";
  dialog.filter = "Configurations (*.inf) | *.inf";
  dialog.initialFolder = App().Folder();
  return dialog;
}

// The path that the command line names, or that the user picks; empty when cancelled.
std::string SettlePath() {
  const std::string& argument = Session().ConfigArgument;
  if (argument.empty()) {
    FileDialog dialog = ConfigurationDialog(FileDialog::Purpose::Open);
    dialog.flags = FileDialog::kFileMustExist | FileDialog::kHideReadOnly;
    return desktop().ChooseFile(dialog).value_or("");
  }
  if (HoldsSeparator(argument)) return argument;
  return App().PathOf(argument);
}

SessionState WithValuesOf(const std::string& path) {
  SessionState read = Session();
  const ProfileFile file(path);
  for (const ConfigurationKey& key : ConfigurationKeys()) {
    try {
      key.read(read, file.Get(key.section, key.key, key.byDefault));
    } catch (const RuntimeError& failure) {
      throw RuntimeError(failure.failure(), std::string(failure.what()) + "\n\n[" + key.section +
                                                "] " + key.key + " in " + path);
    }
  }
  if (read.Magic < 0 || read.Magic > 255) {
    throw RuntimeError(Failure::InvalidCall, std::string(FailureText(Failure::InvalidCall)) +
                                                 "\n\n[TELNET] Magic in " + path);
  }
  read.MagicChar = std::string(1, static_cast<char>(read.Magic));
  return read;
}

// A second copy with the same configuration gives way to the first.
void GiveWayToOtherCopy() {
  if (Session().SingleSession != "Y" || !App().OtherCopyRuns()) return;
  desktop().MsgBox(App().Title() + " is already running!");
  App().ActivateCopy(App().Title());
  desktop().EndProcess();
}

void PlaceMainWindow(Window& main) {
  const SessionState& s = Session();
  main.Caption = s.Caption;
  if (s.Top != -1) main.Top = s.Top;
  if (s.Left != -1) main.Left = s.Left;
  if (s.Width != -1) main.Width = s.Width;
  if (s.Height != -1) main.Height = s.Height;
}

std::int16_t Capped(int length) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(length, Limits::min(), Limits::max()));
}

}  // namespace

void ReadConfiguration() {
  Session() = WithValuesOf(Session().ConfigPath);
}

void LoadConfiguration() {
  SessionState& s = Session();
  const std::string path = SettlePath();
  if (path.empty()) {
    s.ConfigPath.clear();
    return;
  }
  SessionState read = WithValuesOf(path);
  read.ConfigPath = path;
  s = std::move(read);
  App().SetTitle(s.AppTitleBase + " - " + FileNameOf(path));
  GiveWayToOtherCopy();
  if (Window* main = Ask().MainWindow()) PlaceMainWindow(*main);
  for (int i = 0; i < kButtons; ++i) {
    Ask().SetButtonCaption(i, s.ButtonLabels[static_cast<std::size_t>(i)]);
  }
}

void WriteConfiguration() {
  SessionState& s = Session();
  if (const Window* main = Ask().MainWindow()) {
    // On a very large screen the nearest that 16 bits hold.
    s.Top = Capped(main->Top());
    s.Left = Capped(main->Left());
    s.Width = Capped(main->Width());
    s.Height = Capped(main->Height());
  }
  SessionState written = s;
  for (int i = 0; i < kButtons; ++i) {
    // What the buttons show counts, not the list in memory.
    written.ButtonLabels[static_cast<std::size_t>(i)] = Ask().ButtonCaption(i);
  }
  ProfileFile file(s.ConfigPath);
  for (const ConfigurationKey& key : ConfigurationKeys()) {
    if (key.write) file.Set(key.section, key.key, key.write(written));
  }
  file.Save();
}

void WriteSettings(const std::string& section,
                   const std::vector<std::pair<std::string, std::string>>& values) {
  ProfileFile file(Session().ConfigPath);
  for (const auto& [key, value] : values) file.Set(section, key, value);
  file.Save();
}

void SaveSettingsAs() {
  FileDialog dialog = ConfigurationDialog(FileDialog::Purpose::Save);
  dialog.fileName = Session().ConfigPath;
  dialog.flags =
      FileDialog::kOverwritePrompt | FileDialog::kHideReadOnly | FileDialog::kPathMustExist;
  const std::optional<std::string> chosen = desktop().ChooseFile(dialog);
  if (!chosen) return;
  Session().ConfigPath = *chosen;
  if (chosen->empty()) desktop().MsgBox("No valid session name to save!");
}

void SaveSettingsUnderNewName() {
  SaveSettingsAs();
  if (!Session().ConfigPath.empty()) WriteConfiguration();
}

void SaveSettings() {
  if (Session().ConfigPath.empty()) SaveSettingsAs();
  if (!Session().ConfigPath.empty()) WriteConfiguration();
}

void AskToSaveSettings() {
  const auto answer =
      desktop().MsgBox("Save current settings?",
                       MessageBoxStyle::kYesNo | MessageBoxStyle::kQuestion, "Settings Changed");
  if (answer == MessageBoxAnswer::Yes) SaveSettingsUnderNewName();
}

}  // namespace quorvel
