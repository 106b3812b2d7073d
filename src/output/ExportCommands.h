#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace quorvel {

// The ten slots of export commands in the settings.
inline constexpr std::size_t kExportCommands = 10;
using ExportCommandList = std::array<std::string, kExportCommands>;

// One export command as the settings keep it and the lists show it, in fixed columns: "*" for the
// default or a blank, a blank, the description filled up to 30 characters, a blank, the command
// line.
struct ExportCommand {
  static constexpr std::size_t kDescription = 30;    // characters
  static constexpr std::size_t kCommandColumn = 32;  // from 0: the blank ahead of the command line

  bool isDefault = false;
  std::string description;
  std::string commandLine;

  static ExportCommand Parse(const std::string& entry);
  std::string Entry() const;
};

// The entry that runs without the user's choice: the first that is marked, else the first.
const std::string& DefaultExport(const ExportCommandList& commands);

// Puts an entry into a list of them. One that is there already, but for its mark, is replaced. A
// default goes to the top, and takes the mark from all others.
void AddExportEntry(std::vector<std::string>& list, const std::string& entry);

// The command line of an entry with the file name in place of its first "@"; behind it where there
// is none. Leading blanks are dropped.
std::string CommandLineFor(const std::string& entry, const std::string& fileName);

// The file name with its first "Program Files", in whatever case, in the short form that has no
// blank: command lines have no quoting.
std::string WithShortFolder(const std::string& fileName);

// Whether a report must not be saved under this name: it would be in the way of the capture file or
// of the bookmarks.
bool IsReservedName(const std::string& fileName);

}  // namespace quorvel
