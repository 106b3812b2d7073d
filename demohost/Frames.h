// Frames: control messages printed into the telnet stream.
// Host to client: mark, field { FS field }, mark. Client to host: the same, then CR.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::demohost {

/// A frame of these fields. A frame has no escape, so the frame mark and FS inside a field are
/// replaced by "?"; the other marks stay.
std::string Frame(std::initializer_list<std::string_view> fields);
std::string Frame(const std::vector<std::string>& fields);

/// "~ERRORMSG~" with its text.
std::string ErrorFrame(std::string_view text);

}  // namespace quorvel::demohost
