#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/controls/Lists.h"

namespace quorvel {

// A list of folders: those from the topmost one down to the present one, then the folders in the
// present one, each level further in. A double click or Enter on a row goes there.
class DirectoryListBox : public ListBox {
 public:
  // Folders of one folder that are shown; more would only be in the way of finding one.
  static constexpr std::size_t kMostFolders = 10'000;

  DirectoryListBox(Container& parent, std::string name, int index = -1);

  std::string Path() const { return path_.string(); }
  // RuntimeError 76 (path not found) when it is no folder or can't be read; nothing changes then.
  void SetPath(const std::string& path);
  // Goes to the folder of a row; nothing where it can't be read.
  void Open(int row);

  Event Change;

 private:
  std::filesystem::path path_;
  std::vector<std::filesystem::path> folders_;  // of each row
  int present_ = -1;                            // the row of path_
};

// The drives and mounted volumes, to choose one from.
class DriveListBox : public ComboBox {
 public:
  DriveListBox(Container& parent, std::string name, int index = -1);

  // Reads anew what there is.
  void Refill();
  // Selects the one that a path lies on; none if there is none.
  void SelectDriveOf(const std::string& path);
};

}  // namespace quorvel
