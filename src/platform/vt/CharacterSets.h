#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/vt/Cell.h"

namespace quorvel::vt {

// The character sets that can be designated (VT220 programmer reference, chapters 2 and 4).
enum class CharacterSet : std::uint8_t {
  Ascii,
  SpecialGraphics,  // DEC special graphics: line drawing
  Supplemental,     // DEC supplemental graphics
  CodePage,         // the upper half of the hosts' code page, which is that of Latin-1
  British,
  Dutch,
  Finnish,
  French,
  FrenchCanadian,
  German,
  Italian,
  NorwegianDanish,
  Spanish,
  Swedish,
  Swiss,
  Count,
};

using Glyphs96 = std::array<std::uint16_t, 96>;  // for the codes 0x20 to 0x7F, or 0xA0 to 0xFF

// What each byte is shown as.
struct GlyphMap {
  std::array<std::uint16_t, 256> glyphs{};
  bool showsAscii = false;  // whatever is printed below 0x80 is shown as itself

  bool operator==(const GlyphMap&) const = default;
};

// The glyphs of a set. Sets of 94 characters have a blank at 0x20 and nothing at 0x7F.
const Glyphs96& GlyphsOf(CharacterSet set);

// Sets of 94 characters by the final byte of ESC ( and its like, sets of 96 by that of ESC - .
std::optional<CharacterSet> SetOf94(char final);
std::optional<CharacterSet> SetOf96(char final);

// Windows-1252 as Unicode, for all 256 bytes; 0x81, 0x8D, 0x8F, 0x90 and 0x9D, which it leaves
// open, and the controls stand for themselves.
std::uint16_t UnicodeOf(unsigned char byte);

// A glyph as a byte of Windows-1252. Line drawing becomes "+", "-" and "|", the other graphics the
// usual ASCII stand-ins, anything else "?".
char ByteOf(std::uint16_t glyph);

// What the terminal shows for a character that is not there or an error in the stream: the
// reversed question mark.
constexpr std::uint16_t kErrorGlyph = 0x2426;

// The four designated sets and which of them the two halves of the code show. Keeps the map from
// bytes to glyphs up to date.
class CharacterSets {
 public:
  CharacterSets() { Reset(); }

  // G0 and G1 ASCII; G2 and G3, and so the right half, the code page that the hosts write in. (The
  // factory setting of a VT220 has its supplemental set there; a host that wants it designates it.)
  void Reset();
  void Designate(int g, CharacterSet set);
  void LockLeft(int g);
  void LockRight(int g);
  // SS2 and SS3: the next character only.
  void ShiftOnce(int g) { once_ = g; }
  bool HasSingleShift() const { return once_ >= 0; }
  // The glyph of that character; ends the shift.
  std::uint16_t TakeShifted(unsigned char byte);

  const GlyphMap& Map() const { return map_; }
  bool operator==(const CharacterSets&) const = default;

 private:
  std::array<CharacterSet, 4> designated_{};
  int left_ = 0;
  int right_ = 2;
  int once_ = -1;
  GlyphMap map_{};
};

// The maps of the types without designated sets. "No emulation" shows Windows-1252, with the
// pictures of U+2400 for controls.
const GlyphMap& PlainMap();
const GlyphMap& Vt52Map(bool graphics);

}  // namespace quorvel::vt
