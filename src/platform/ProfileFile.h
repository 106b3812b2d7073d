#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// A profile file: sections in square brackets, and lines of a key, "=" and a value. It behaves as
// the classic profile calls do: sections and keys without regard to case, blanks around a value
// and one pair of quotes dropped, the first of equal keys counts, ";" begins a comment line, a
// value has at most 254 characters.
//
// Writing keeps every other line as it was and replaces the file whole (written beside, then
// renamed), so a crash or a full disk leaves the old one. A new file is readable by its user only,
// for it may hold a password; an old one keeps its permissions.
class ProfileFile {
 public:
  // Longest value, in characters.
  static constexpr std::size_t kLongestValue = 254;
  // Largest file that is read, in bytes; a larger one is none of ours and counts as missing.
  static constexpr std::size_t kLargestFile = 4 * 1024 * 1024;

  // Reads the file; a missing one is empty.
  explicit ProfileFile(std::string path);

  std::string Get(std::string_view section, std::string_view key, const std::string& byDefault) const;
  // Sets a key in memory, at the end of its section if it is new. False, with nothing changed, for
  // a value with a line break in it.
  bool Set(std::string_view section, std::string_view key, std::string_view value);
  // Writes the file; false when it can't be written. The old one is whole then.
  bool Save() const;

 private:
  struct Section {
    bool found = false;
    std::size_t first = 0;  // line behind its heading
    std::size_t end = 0;    // line of the next heading, or the number of lines
  };
  Section FindSection(std::string_view name) const;
  std::size_t FindKey(const Section& section, std::string_view key) const;

  const std::string path_;
  bool readable_ = true;            // false for a file that is there and can't be taken
  std::string lineEnd_;
  std::vector<std::string> lines_;  // without line ends
};

}  // namespace quorvel
