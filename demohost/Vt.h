// Control sequences that the host's programs print (VT220; ECMA-48).
#pragma once

#include <string>
#include <string_view>

namespace quorvel::demohost::vt {

inline constexpr std::string_view kClear = "\x1B[2J\x1B[H";
inline constexpr std::string_view kClearLine = "\x1B[2K";
inline constexpr std::string_view kNormal = "\x1B[0m";
inline constexpr std::string_view kBold = "\x1B[1m";
inline constexpr std::string_view kUnderline = "\x1B[4m";
inline constexpr std::string_view kBlink = "\x1B[5m";
inline constexpr std::string_view kReverse = "\x1B[7m";
// G0 becomes the DEC special graphics set, and ASCII again.
inline constexpr std::string_view kGraphics = "\x1B(0";
inline constexpr std::string_view kAscii = "\x1B(B";

/// The cursor's place, from row 1, column 1.
std::string At(int row, int column);

std::string In(std::string_view attribute, std::string_view text);

/// A box of lines from the row and column on, with a title in its upper edge.
std::string Box(int row, int column, int height, int width, std::string_view title);

/// A line across a box that is `width` wide, joined to its sides.
std::string Rule(int row, int column, int width);

}  // namespace quorvel::demohost::vt
