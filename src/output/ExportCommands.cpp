#include "output/ExportCommands.h"

#include <algorithm>

#include "platform/PlainText.h"

namespace quorvel {
namespace {

std::string From(const std::string& text, std::size_t at) {
  return at < text.size() ? text.substr(at) : std::string();
}

bool IsMarked(const std::string& entry) {
  return entry.starts_with('*');
}

}  // namespace

ExportCommand ExportCommand::Parse(const std::string& entry) {
  return {IsMarked(entry), std::string(Trimmed(From(entry, 2).substr(0, kDescription))),
          std::string(Trimmed(From(entry, kCommandColumn + 1)))};
}

std::string ExportCommand::Entry() const {
  std::string entry = (isDefault ? "* " : "  ") + description;
  entry.resize(std::max(entry.size(), kCommandColumn), ' ');
  return entry + " " + commandLine;
}

const std::string& DefaultExport(const ExportCommandList& commands) {
  const auto marked = std::find_if(commands.begin(), commands.end(), IsMarked);
  return marked == commands.end() ? commands.front() : *marked;
}

void AddExportEntry(std::vector<std::string>& list, const std::string& entry) {
  bool found = false;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (From(list[i], 1) == From(entry, 1)) {
      found = true;
      list[i] = entry;
      if (IsMarked(entry)) {
        const auto at = list.begin() + static_cast<std::ptrdiff_t>(i);
        std::rotate(list.begin(), at, at + 1);
      }
    } else if (IsMarked(entry) && IsMarked(list[i])) {
      list[i].front() = ' ';
    }
  }
  if (!found) list.insert(IsMarked(entry) ? list.begin() : list.end(), entry);
}

std::string CommandLineFor(const std::string& entry, const std::string& fileName) {
  std::string command = From(entry, ExportCommand::kCommandColumn);
  const auto at = command.find('@');
  if (at == std::string::npos) {
    command += " " + fileName;
  } else {
    command.replace(at, 1, fileName);
  }
  return std::string(WithoutLeadingBlanks(command));
}

std::string WithShortFolder(const std::string& fileName) {
  constexpr std::string_view kFolder = "PROGRAM FILES";
  const auto at = UpperCase(fileName).find(kFolder);
  if (at == std::string::npos) return fileName;
  std::string shortened = fileName;
  return shortened.replace(at, kFolder.size(), "progra~1");
}

bool IsReservedName(const std::string& fileName) {
  const std::string upper = UpperCase(fileName);
  return upper.find("TEMPRPT") != std::string::npos || upper.find("BOOKMARK") != std::string::npos;
}

}  // namespace quorvel
