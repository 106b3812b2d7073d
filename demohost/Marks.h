// The characters with a meaning on the link and inside a record.
#pragma once

namespace quorvel::demohost {

inline constexpr char kFrameMark = '\x7F';  // opens and closes every frame, in both directions
inline constexpr char kAm = '\xFE';         // attribute mark
inline constexpr char kVm = '\xFD';         // value mark
inline constexpr char kSvm = '\xFC';        // subvalue mark
inline constexpr char kFs = '\xFA';         // separates the fields of a frame
inline constexpr char kCr = '\r';
inline constexpr char kLf = '\n';

}  // namespace quorvel::demohost
