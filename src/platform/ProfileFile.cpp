#include "platform/ProfileFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

bool IsHeading(std::string_view line) { return Trimmed(line).substr(0, 1) == "["; }

bool IsHeadingOf(std::string_view line, std::string_view name) {
  line = Trimmed(line);
  if (line.substr(0, 1) != "[") return false;
  line.remove_prefix(1);
  return SameName(Trimmed(line.substr(0, line.find(']'))), name);
}

bool IsKeyLine(std::string_view line, std::string_view key) {
  line = Trimmed(line);
  if (line.substr(0, 1) == ";") return false;
  const auto equals = line.find('=');
  return equals != std::string_view::npos && SameName(Trimmed(line.substr(0, equals)), key);
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
         value.front() == value.back();
}

std::string_view ValueOf(std::string_view line) {
  std::string_view value = Trimmed(line.substr(line.find('=') + 1));
  if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
  return value.substr(0, ProfileFile::kLongestValue);
}

// The value as it must stand in a line to be read back equal.
std::string Written(std::string_view value) {
  const bool bare = Trimmed(value).size() == value.size() && !IsQuoted(value);
  return bare ? std::string(value) : "\"" + std::string(value) + "\"";
}

// Writes beside `path` under a name of its own; the empty path when that can't be done.
fs::path WriteBeside(const fs::path& path, const std::string& text, fs::perms permissions) {
  fs::path beside = path;
  beside += ".new";
  std::error_code failed;
  fs::remove(beside, failed);
  std::ofstream file(beside, std::ios::binary | std::ios::trunc);
  // Ahead of the content: nobody else may read it, not even for a moment.
  fs::permissions(beside, permissions, failed);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (file) return beside;
  fs::remove(beside, failed);
  return {};
}

}  // namespace

ProfileFile::ProfileFile(std::string path) : path_(std::move(path)), lineEnd_("\r\n") {
  std::error_code failed;
  const auto size = fs::file_size(path_, failed);
  if (failed) return;
  std::ifstream file(path_, std::ios::binary);
  if (!file || size > kLargestFile) {
    readable_ = false;
    return;
  }
  std::ostringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  if (text.find('\n') != std::string::npos && text.find("\r\n") == std::string::npos) {
    lineEnd_ = "\n";
  }
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines_.push_back(line);
  }
}

ProfileFile::Section ProfileFile::FindSection(std::string_view name) const {
  Section section;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (!IsHeadingOf(lines_[i], name)) continue;
    section.found = true;
    section.first = i + 1;
    section.end = section.first;
    while (section.end < lines_.size() && !IsHeading(lines_[section.end])) ++section.end;
    return section;
  }
  return section;
}

std::size_t ProfileFile::FindKey(const Section& section, std::string_view key) const {
  for (std::size_t i = section.first; i < section.end; ++i) {
    if (IsKeyLine(lines_[i], key)) return i;
  }
  return kNone;
}

std::string ProfileFile::Get(std::string_view section, std::string_view key,
                             const std::string& byDefault) const {
  const std::size_t line = FindKey(FindSection(section), key);
  return line == kNone ? byDefault.substr(0, kLongestValue) : std::string(ValueOf(lines_[line]));
}

bool ProfileFile::Set(std::string_view section, std::string_view key, std::string_view value) {
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return false;
  const std::string text = std::string(key) + "=" + Written(value);
  Section place = FindSection(section);
  if (!place.found) {
    if (!lines_.empty() && !Trimmed(lines_.back()).empty()) lines_.emplace_back();
    lines_.push_back("[" + std::string(section) + "]");
    lines_.push_back(text);
    return true;
  }
  const std::size_t line = FindKey(place, key);
  if (line != kNone) {
    // A value that has not changed leaves its line as somebody wrote it.
    if (ValueOf(lines_[line]) != value) {
      lines_[line] = lines_[line].substr(0, lines_[line].find('=') + 1) + Written(value);
    }
    return true;
  }
  while (place.end > place.first && Trimmed(lines_[place.end - 1]).empty()) --place.end;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.end), text);
  return true;
}

bool ProfileFile::Save() const {
  if (path_.empty() || !readable_) return false;
  std::string text;
  for (const std::string& line : lines_) text += line + lineEnd_;
  std::error_code failed;
  // A link stays one: what it points to is replaced.
  fs::path path = fs::is_symlink(path_, failed) ? fs::canonical(path_, failed) : fs::path(path_);
  if (failed) path = path_;
  fs::perms permissions = fs::perms::owner_read | fs::perms::owner_write;
  const fs::file_status status = fs::status(path, failed);
  if (fs::exists(status)) permissions = status.permissions();
  const fs::path beside = WriteBeside(path, text, permissions);
  if (beside.empty()) return false;
  fs::rename(beside, path, failed);
  if (!failed) return true;
  fs::remove(beside, failed);
  return false;
}

}  // namespace quorvel
