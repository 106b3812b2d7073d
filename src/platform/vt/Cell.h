#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace quorvel::vt {

// A colour of text or background in 16 bits: the terminal's own, one of the 256 numbered ones, or
// a direct one. Direct colours are kept at 40 levels a channel (at most 3/255 off, which the eye
// does not tell apart), so that a whole cell fits one machine word.
class Colour {
 public:
  enum class Kind : std::uint8_t { Default, Palette, Direct };

  constexpr Colour() = default;
  // 0 to 15 are the ANSI colours, 16 to 231 the 6 x 6 x 6 cube, 232 to 255 the grey ramp.
  static constexpr Colour Palette(std::uint8_t index) { return Colour(1 + index); }
  static constexpr Colour Direct(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return Colour(kFirstDirect + (Level(red) * kLevels + Level(green)) * kLevels + Level(blue));
  }

  constexpr Kind kind() const {
    if (bits_ == 0) return Kind::Default;
    return bits_ < kFirstDirect ? Kind::Palette : Kind::Direct;
  }
  constexpr bool IsDefault() const { return bits_ == 0; }
  // Of a palette colour.
  constexpr int index() const { return bits_ - 1; }
  // Of a direct colour, 0 to 255.
  constexpr int red() const { return Value((bits_ - kFirstDirect) / (kLevels * kLevels)); }
  constexpr int green() const { return Value((bits_ - kFirstDirect) / kLevels % kLevels); }
  constexpr int blue() const { return Value((bits_ - kFirstDirect) % kLevels); }

  bool operator==(const Colour&) const = default;

 private:
  static constexpr int kLevels = 40;
  static constexpr int kFirstDirect = 257;
  static_assert(kFirstDirect + kLevels * kLevels * kLevels <= 0x10000);

  constexpr explicit Colour(int bits) : bits_(static_cast<std::uint16_t>(bits)) {}
  static constexpr int Level(int value) { return (value * (kLevels - 1) + 127) / 255; }
  static constexpr int Value(int level) {
    return (level * 255 + (kLevels - 1) / 2) / (kLevels - 1);
  }

  std::uint16_t bits_ = 0;
};

// How a character is shown (ECMA-48 SGR) and whether selective erasing spares it (DECSCA).
struct Attributes {
  enum Flag : std::uint16_t {
    kBold = 1,
    kUnderline = 2,
    kBlink = 4,
    kReverse = 8,
    kInvisible = 16,
    kProtected = 32,
  };

  std::uint16_t flags = 0;
  Colour fore;
  Colour back;

  constexpr bool bold() const { return (flags & kBold) != 0; }
  constexpr bool underline() const { return (flags & kUnderline) != 0; }
  constexpr bool blink() const { return (flags & kBlink) != 0; }
  constexpr bool reverse() const { return (flags & kReverse) != 0; }
  constexpr bool invisible() const { return (flags & kInvisible) != 0; }
  constexpr bool isProtected() const { return (flags & kProtected) != 0; }
  constexpr void Set(Flag flag, bool on) {
    flags = static_cast<std::uint16_t>(on ? flags | flag : flags & ~flag);
  }

  bool operator==(const Attributes&) const = default;
};

// One place of the screen: the Unicode code point (all are in the basic plane) of what is shown,
// and how.
struct alignas(8) Cell {
  std::uint16_t glyph = ' ';
  Attributes attributes;

  bool operator==(const Cell&) const = default;
};
static_assert(sizeof(Cell) == 8);

// A cell as one word, for loops over many cells.
constexpr std::uint64_t Bits(const Cell& cell) {
  return std::bit_cast<std::uint64_t>(cell);
}
// One store; an assignment from bit_cast becomes four (g++ 12).
inline void StoreBits(Cell* cell, std::uint64_t bits) {
  std::memcpy(static_cast<void*>(cell), &bits, sizeof bits);
}
constexpr std::uint64_t kGlyphBits = Bits(Cell{0xFFFF, {}});
constexpr int kGlyphShift = std::endian::native == std::endian::little ? 0 : 48;
constexpr Cell kBlankCell;

// DECSWL, DECDWL and the two halves of DECDHL.
enum class LineAttribute : std::uint8_t {
  SingleWidth,
  DoubleWidth,
  DoubleHeightTop,
  DoubleHeightBottom,
};

}  // namespace quorvel::vt
