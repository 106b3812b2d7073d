#include "menus/BookmarkFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "link/Marks.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

std::string PathOfFile() {
  // A forward slash on every platform; all of them take it.
  return desktop().backend().application().Folder() + "/BOOKMARK.TXT";
}

std::string ReadAll(std::ifstream& file) {
  std::string text(kLargestBookmarkFile + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (file.bad()) throw RuntimeError(Failure::PathFileAccess);
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (text.size() > kLargestBookmarkFile) throw RuntimeError(Failure::Overflow);
  return text;
}

std::string ListLine(std::string_view line) {
  std::string text(WithoutLeadingBlanks(line));
  std::replace(text.begin(), text.end(), VM, ',');
  std::replace(text.begin(), text.end(), AM, '"');
  return text;
}

std::string FileLine(std::string text) {
  std::replace(text.begin(), text.end(), ',', VM);
  std::replace(text.begin(), text.end(), '"', AM);
  return text;
}

}  // namespace

std::vector<std::string> ReadBookmarks() {
  std::ifstream file(PathOfFile(), std::ios::binary);
  if (!file) return {};
  const std::string text = ReadAll(file);
  std::vector<std::string> lines;
  std::string_view rest = text;
  while (!rest.empty()) {
    if (lines.size() == kMostBookmarks) throw RuntimeError(Failure::Overflow);
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    lines.push_back(ListLine(rest.substr(0, end)));
    rest.remove_prefix(end);
    if (rest.starts_with(CRLF)) rest.remove_prefix(1);
    if (!rest.empty()) rest.remove_prefix(1);
  }
  return lines;
}

void WriteBookmarks(const std::vector<std::string>& lines) {
  const std::string path = PathOfFile();
  // Renaming asks for no leave of the file that is there. One that may not even be read was shown
  // as an empty list: it is not to be lost by saving that.
  std::error_code unknown;
  if (fs::exists(path, unknown) && !std::ifstream(path)) {
    throw RuntimeError(Failure::PathFileAccess);
  }
  const std::string beside = path + ".new";
  std::error_code failed;
  {
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines) file << FileLine(line) << CRLF;
    file.close();
    if (!file) {
      fs::remove(beside, failed);
      throw RuntimeError(Failure::PathFileAccess);
    }
  }
  fs::rename(beside, path, failed);
  if (!failed) return;
  fs::remove(beside, failed);
  throw RuntimeError(Failure::PathFileAccess);
}

}  // namespace quorvel
