#include "platform/ProfileFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace quorvel {
namespace {

namespace fs = std::filesystem;

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string NameOf(std::string_view section, std::string_view key) {
  return Lower(section) + '\n' + Lower(key);
}

// The section that a line begins.
std::optional<std::string_view> HeadingOf(std::string_view line) {
  line = Trimmed(line);
  if (!line.starts_with('[')) return std::nullopt;
  line.remove_prefix(1);
  return Trimmed(line.substr(0, line.find(']')));
}

std::optional<std::string_view> KeyOf(std::string_view line) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos || Trimmed(line).starts_with(';')) return std::nullopt;
  return Trimmed(line.substr(0, equals));
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
         value.front() == value.back();
}

std::string_view ValueOf(std::string_view line) {
  std::string_view value = Trimmed(line.substr(line.find('=') + 1));
  if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
  return value.substr(0, std::min(value.find('\0'), ProfileFile::kLongestValue));
}

// The value as it must stand in a line to be read back equal.
std::string Written(std::string_view value) {
  const bool bare = Trimmed(value).size() == value.size() && !IsQuoted(value);
  return bare ? std::string(value) : '"' + std::string(value) + '"';
}

std::string_view LineEndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return "\r\n";
  return line.ends_with('\n') ? "\n" : "";
}

// The file that `path` leads to: a link stays one, and what it points to is replaced.
fs::path TargetOf(const fs::path& path) {
  std::error_code failed;
  fs::path target = fs::canonical(path, failed);
  return failed ? path : target;
}

// A name beside `path` that nothing has yet; the empty path when there is none. What an earlier
// attempt may have left, or a file of the user's own, is not touched.
fs::path FreeNameBeside(const fs::path& path) {
  for (int i = 0; i < 100; ++i) {
    fs::path name = path;
    name += ".new" + std::to_string(i);
    std::error_code failed;
    if (fs::symlink_status(name, failed).type() == fs::file_type::not_found) return name;
  }
  return {};
}

// Whether `text` now stands in the new file `path`, whole.
bool WriteNew(const fs::path& path, const std::string& text, fs::perms permissions) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  // Ahead of the content: nobody else may read it, not even for a moment.
  std::error_code ignored;  // some file systems have no permissions
  fs::permissions(path, permissions, ignored);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return file.good();
}

}  // namespace

ProfileFile::ProfileFile(std::string path) : path_(std::move(path)), sections_(1) {
  std::error_code failed;
  const fs::file_status status = fs::status(path_, failed);
  if (status.type() == fs::file_type::not_found) return;
  replaceable_ = false;
  if (!fs::is_regular_file(status)) return;
  const auto size = fs::file_size(path_, failed);
  if (failed || size > kLargestFile) return;
  std::ifstream file(path_, std::ios::binary);
  std::string text(static_cast<std::size_t>(size), '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!file) return;
  replaceable_ = true;
  Index(text);
}

void ProfileFile::Index(std::string_view text) {
  const auto firstEnd = text.find('\n');
  if (firstEnd != std::string_view::npos) lineEnd_ = LineEndOf(text.substr(0, firstEnd + 1));
  std::string name;
  // Keys ahead of the first heading belong to no section, and those of a second section of the
  // same name are never seen.
  bool counts = false;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    if (const auto heading = HeadingOf(line)) {
      name = Lower(*heading);
      counts = places_.try_emplace(name, Place{sections_.size(), 0}).second;
      sections_.emplace_back();
    } else if (const auto key = KeyOf(line); key && counts) {
      places_.try_emplace(NameOf(name, *key), Place{sections_.size() - 1, sections_.back().size()});
    }
    sections_.back().emplace_back(line);
  }
}

std::string ProfileFile::Get(std::string_view section, std::string_view key,
                             std::string_view byDefault) const {
  const auto found = places_.find(NameOf(section, key));
  if (found == places_.end()) return std::string(byDefault.substr(0, kLongestValue));
  return std::string(ValueOf(sections_[found->second.section][found->second.line]));
}

ProfileFile::Section& ProfileFile::FindOrAddSection(std::string_view name) {
  const auto [place, added] = places_.try_emplace(Lower(name), Place{sections_.size(), 0});
  if (!added) return sections_[place->second.section];
  Section& last = sections_.back();
  if (!last.empty()) {
    if (LineEndOf(last.back()).empty()) last.back() += lineEnd_;
    if (!Trimmed(last.back()).empty()) last.push_back(lineEnd_);
  }
  return sections_.emplace_back(1, "[" + std::string(name) + "]" + lineEnd_);
}

bool ProfileFile::Set(std::string_view section, std::string_view key, std::string_view value) {
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return false;
  Section& lines = FindOrAddSection(section);
  const auto found = places_.find(NameOf(section, key));
  if (found != places_.end()) {
    std::string& line = lines[found->second.line];
    // A value that has not changed leaves its line as somebody wrote it.
    if (ValueOf(line) == value) return true;
    const std::string end(LineEndOf(line));
    line = line.substr(0, line.find('=') + 1) + Written(value) + end;
    return true;
  }
  std::size_t at = lines.size();
  while (at > 1 && Trimmed(lines[at - 1]).empty()) --at;
  if (LineEndOf(lines[at - 1]).empty()) lines[at - 1] += lineEnd_;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at),
               std::string(key) + '=' + Written(value) + lineEnd_);
  places_[NameOf(section, key)] = {places_.at(Lower(section)).section, at};
  return true;
}

bool ProfileFile::Save() const {
  if (path_.empty() || !replaceable_) return false;
  std::string text;
  for (const Section& section : sections_) {
    for (const std::string& line : section) text += line;
  }
  const fs::path target = TargetOf(path_);
  std::error_code failed;
  const fs::file_status status = fs::status(target, failed);
  if (fs::exists(status) && !fs::is_regular_file(status)) return false;
  const fs::perms permissions =
      fs::exists(status) ? status.permissions() : fs::perms::owner_read | fs::perms::owner_write;
  const fs::path beside = FreeNameBeside(target);
  if (beside.empty()) return false;
  if (WriteNew(beside, text, permissions)) {
    fs::rename(beside, target, failed);
    if (!failed) return true;
  }
  fs::remove(beside, failed);
  return false;
}

}  // namespace quorvel
