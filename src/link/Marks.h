#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The characters that are reserved in records and on the link. The frame mark is a setting and
// stands in SessionState.
inline constexpr char AM = '\xFE';   // separates the attributes of a record
inline constexpr char VM = '\xFD';   // separates the values of an attribute
inline constexpr char SVM = '\xFC';  // separates the subvalues of a value
inline constexpr char FS = '\xFA';   // separates the fields of requests and host messages
inline constexpr char CR = '\r';     // ends every line that the client sends
inline constexpr char LF = '\n';
inline constexpr std::string_view CRLF = "\r\n";  // line ends in files and on the clipboard
inline constexpr std::string_view BookmarkMark = "\xB6  ";  // leads a line of the bookmark list

}  // namespace quorvel
