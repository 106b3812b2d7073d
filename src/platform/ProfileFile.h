#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvel {

// A profile file: sections in square brackets, and lines of a key, "=" and a value. It behaves as
// the classic profile calls do: sections and keys without regard to the case of their (ASCII)
// letters, blanks around a value and one pair of quotes dropped, the first of equal sections and
// keys counts, ";" begins a comment line, a value has at most 254 characters and ends at a NUL.
// Bytes are taken as they are, in no particular code page.
//
// Writing keeps every other line as it was, line end included, and replaces the file whole (written
// beside, then renamed), so a crash or a full disk leaves the old one. A new file is readable by
// its user only, for it may hold a password; an old one keeps its permissions.
class ProfileFile {
 public:
  // Longest value, in characters.
  static constexpr std::size_t kLongestValue = 254;
  // Largest file that is read, in bytes. A full configuration (some 150 keys) has 40 KB at most; a
  // file of bare line ends takes about sixty times its size in memory.
  static constexpr std::size_t kLargestFile = std::size_t{1024} * 1024;

  // Reads the file. A missing one is empty; so is one that can't be read or is larger than
  // kLargestFile, but that one is never written over.
  explicit ProfileFile(std::string path);

  // The value of a key (empty for a key with nothing behind its "="), or the default if there is no
  // such key.
  std::string Get(std::string_view section, std::string_view key, std::string_view byDefault) const;
  // Sets a key in memory, at the end of its section if it is new. A value that reading would strip
  // is put in quotes. False, with nothing changed, for a value with a line break or a NUL in it.
  bool Set(std::string_view section, std::string_view key, std::string_view value);
  // Writes the file; false when it can't be written. The old one is whole then.
  bool Save() const;

 private:
  struct Place {
    std::size_t section;  // in sections_
    std::size_t line;     // in that section
  };
  // A heading and what stands below it; the first section has no heading. Lines have their ends.
  using Section = std::vector<std::string>;

  void Index(std::string_view text);
  Section& FindOrAddSection(std::string_view name);

  const std::string path_;
  bool replaceable_ = true;  // false for a file that is there and was not read
  std::string lineEnd_ = "\r\n";
  std::vector<Section> sections_;
  // Where the first of equal headings and keys stand, by "section" and "section\nkey" in lower
  // case.
  std::unordered_map<std::string, Place> places_;
};

}  // namespace quorvel
