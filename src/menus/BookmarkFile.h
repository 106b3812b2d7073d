#pragma once

#include <string>
#include <vector>

namespace quorvel {

// The file of the bookmarks, BOOKMARK.TXT in the application folder: a line of text each, ended by
// CR LF. A comma stands in it as VM and a double quote as AM.

// Most lines of the list: they are counted with 16 bits.
inline constexpr std::size_t kMostBookmarks = 32767;
// Largest file that is read, in bytes: room for that many lines of usual length.
inline constexpr std::size_t kLargestBookmarkFile = std::size_t{4} * 1024 * 1024;

// The lines of the file; none when it is missing or can't be opened. Blanks at the start of a line
// are skipped; LF and CR alone end a line too. RuntimeError 75 when reading fails, 6 when the file
// is larger than the limits above.
std::vector<std::string> ReadBookmarks();

// Writes the file whole, beside the old one, which is then replaced: a failure leaves that as it
// was. RuntimeError 75 when it can't be written.
void WriteBookmarks(const std::vector<std::string>& lines);

}  // namespace quorvel
