#include "platform/controls/FolderLists.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// Sorted by name. RuntimeError 76 when `folder` can't be read.
std::vector<fs::path> FoldersIn(const fs::path& folder) {
  std::vector<fs::path> found;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code unknown;
    const bool hidden = entry->path().filename().string().starts_with('.');
    if (!hidden && entry->is_directory(unknown)) found.push_back(entry->path());
    if (found.size() >= DirectoryListBox::kMostFolders) break;
  }
  if (failed) throw RuntimeError(Failure::PathNotFound);
  std::sort(found.begin(), found.end());
  return found;
}

std::string Indented(int level, const std::string& name) {
  return std::string(static_cast<std::size_t>(level) * 3, ' ') + name;
}

}  // namespace

DirectoryListBox::DirectoryListBox(Container& parent, std::string name, int index)
    : ListBox(parent, std::move(name), index) {
  DblClick = [this] { Open(ListIndex()); };
  KeyDown = [this](KeyEvent& key) {
    if (key.code != static_cast<int>(KeyCode::Return) || ListIndex() == present_) return;
    key.code = 0;
    Open(ListIndex());
  };
}

void DirectoryListBox::SetPath(const std::string& path) {
  std::error_code failed;
  const fs::path wanted = fs::absolute(path, failed).lexically_normal();
  if (path.empty() || failed) throw RuntimeError(Failure::PathNotFound);
  const std::vector<fs::path> inside = FoldersIn(wanted);
  const bool changed = wanted != path_;
  path_ = wanted.has_filename() || !wanted.has_relative_path() ? wanted : wanted.parent_path();

  folders_.clear();
  List.Clear();
  int level = 0;
  fs::path outer = path_.root_path();
  folders_.push_back(outer);
  List.Add(outer.string());
  for (const fs::path& part : path_.relative_path()) {
    outer /= part;
    folders_.push_back(outer);
    List.Add(Indented(++level, part.string()));
  }
  present_ = static_cast<int>(folders_.size()) - 1;
  for (const fs::path& folder : inside) {
    folders_.push_back(folder);
    List.Add(Indented(level + 1, folder.filename().string()));
  }
  ListIndex = present_;
  if (changed) Raise(Change);
}

void DirectoryListBox::Open(int row) {
  if (row < 0 || row >= static_cast<int>(folders_.size())) return;
  try {
    SetPath(std::string(folders_[static_cast<std::size_t>(row)].string()));
  } catch (const RuntimeError&) {
    desktop().backend().Beep();
  }
}

DriveListBox::DriveListBox(Container& parent, std::string name, int index)
    : ComboBox(parent, std::move(name), index, Style::DropDownList) {}

void DriveListBox::Refill() {
  List.Clear();
  for (std::string& drive : desktop().backend().application().Drives()) List.Add(std::move(drive));
}

namespace {

// "/home" holds "/home/kit", and not "/home2".
bool LiesOn(const std::string& path, const std::string& drive) {
  if (!path.starts_with(drive)) return false;
  const auto isSeparator = [](char c) { return c == '/' || c == fs::path::preferred_separator; };
  return path.size() == drive.size() || isSeparator(drive.back()) ||
         isSeparator(path[drive.size()]);
}

}  // namespace

void DriveListBox::SelectDriveOf(const std::string& path) {
  int best = -1;
  std::size_t longest = 0;
  for (int i = 0; i < List.Count(); ++i) {
    const std::string& drive = List.At(i);
    if (drive.size() > longest && LiesOn(path, drive)) {
      best = i;
      longest = drive.size();
    }
  }
  ListIndex = best;
}

}  // namespace quorvel
