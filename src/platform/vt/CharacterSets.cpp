#include "platform/vt/CharacterSets.h"

#include <algorithm>

namespace quorvel::vt {
namespace {

using Unicode = std::uint16_t;

// Windows-1252 from 0x80 to 0x9F.
constexpr std::array<Unicode, 32> kUpperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// DEC special graphics from 0x5F to 0x7E.
constexpr std::array<Unicode, 32> kGraphics{
    0x0020, 0x25C6, 0x2592, 0x2409, 0x240C, 0x240D, 0x240A, 0x00B0, 0x00B1, 0x2424, 0x240B,
    0x2518, 0x2510, 0x250C, 0x2514, 0x253C, 0x23BA, 0x23BB, 0x2500, 0x23BC, 0x23BD, 0x251C,
    0x2524, 0x2534, 0x252C, 0x2502, 0x2264, 0x2265, 0x03C0, 0x2260, 0x00A3, 0x00B7};

// Where DEC supplemental differs from Latin-1; 0 marks the places that it leaves free.
struct Replacement {
  unsigned char code;
  Unicode glyph;
};
constexpr Replacement kSupplemental[] = {{0xA0, ' '},    {0xA4, 0},      {0xA6, 0}, {0xA8, 0x00A4},
                                         {0xAC, 0},      {0xAD, 0},      {0xAE, 0}, {0xAF, 0},
                                         {0xB4, 0},      {0xB8, 0},      {0xBE, 0}, {0xD0, 0},
                                         {0xD7, 0x0152}, {0xDD, 0x0178}, {0xDE, 0}, {0xF0, 0},
                                         {0xF7, 0x0153}, {0xFD, 0x00FF}, {0xFE, 0}, {0xFF, ' '}};

// The national sets: what each has in the places of ASCII that may differ.
constexpr char kNationalPlaces[] = "#$@[\\]^_`{|}~";
constexpr std::size_t kPlaces = sizeof kNationalPlaces - 1;
struct National {
  CharacterSet set;
  std::array<Unicode, kPlaces> glyphs;
};
// clang-format off
constexpr National kNational[] = {
  {CharacterSet::British,         {u'£', '$', '@', '[', '\\', ']', '^', '_', '`', '{', '|', '}', '~'}},
  {CharacterSet::Dutch,           {u'£', '$', u'¾', u'ĳ', u'½', '|', '^', '_', '`', u'¨', u'ƒ', u'¼', u'´'}},
  {CharacterSet::Finnish,         {'#', '$', '@', u'Ä', u'Ö', u'Å', u'Ü', '_', u'é', u'ä', u'ö', u'å', u'ü'}},
  {CharacterSet::French,          {u'£', '$', u'à', u'°', u'ç', u'§', '^', '_', '`', u'é', u'ù', u'è', u'¨'}},
  {CharacterSet::FrenchCanadian,  {'#', '$', u'à', u'â', u'ç', u'ê', u'î', '_', u'ô', u'é', u'ù', u'è', u'û'}},
  {CharacterSet::German,          {'#', '$', u'§', u'Ä', u'Ö', u'Ü', '^', '_', '`', u'ä', u'ö', u'ü', u'ß'}},
  {CharacterSet::Italian,         {u'£', '$', u'§', u'°', u'ç', u'é', '^', '_', u'ù', u'à', u'ò', u'è', u'ì'}},
  {CharacterSet::NorwegianDanish, {'#', '$', u'Ä', u'Æ', u'Ø', u'Å', u'Ü', '_', u'ä', u'æ', u'ø', u'å', u'ü'}},
  {CharacterSet::Spanish,         {u'£', '$', u'§', u'¡', u'Ñ', u'¿', '^', '_', '`', u'°', u'ñ', u'ç', '~'}},
  {CharacterSet::Swedish,         {'#', '$', u'É', u'Ä', u'Ö', u'Å', u'Ü', '_', u'é', u'ä', u'ö', u'å', u'ü'}},
  {CharacterSet::Swiss,           {u'ù', '$', u'à', u'é', u'ç', u'ê', u'î', u'è', u'ô', u'ä', u'ö', u'ü', u'û'}},
};

struct Designator {
  char final;
  CharacterSet set;
};
constexpr Designator kSets94[] = {
  {'B', CharacterSet::Ascii},           {'1', CharacterSet::Ascii},  // alternate ROM of a VT100
  {'0', CharacterSet::SpecialGraphics}, {'2', CharacterSet::SpecialGraphics},
  {'<', CharacterSet::Supplemental},    {'A', CharacterSet::British},
  {'4', CharacterSet::Dutch},           {'C', CharacterSet::Finnish},
  {'5', CharacterSet::Finnish},         {'R', CharacterSet::French},
  {'Q', CharacterSet::FrenchCanadian},  {'9', CharacterSet::FrenchCanadian},
  {'K', CharacterSet::German},          {'Y', CharacterSet::Italian},
  {'E', CharacterSet::NorwegianDanish}, {'6', CharacterSet::NorwegianDanish},
  {'`', CharacterSet::NorwegianDanish}, {'Z', CharacterSet::Spanish},
  {'H', CharacterSet::Swedish},         {'7', CharacterSet::Swedish},
  {'=', CharacterSet::Swiss},
};

// What line drawing and the other graphics look like in a text of bytes.
struct StandIn {
  Unicode glyph;
  char byte;
};
constexpr StandIn kStandIns[] = {
  {0x2500, '-'}, {0x2502, '|'}, {0x250C, '+'}, {0x2510, '+'}, {0x2514, '+'}, {0x2518, '+'},
  {0x251C, '+'}, {0x2524, '+'}, {0x252C, '+'}, {0x2534, '+'}, {0x253C, '+'}, {0x23BA, '-'},
  {0x23BB, '-'}, {0x23BC, '-'}, {0x23BD, '_'}, {0x25C6, '+'}, {0x2592, '#'}, {0x2264, '<'},
  {0x2265, '>'}, {0x03C0, '*'}, {0x2260, '!'}, {0x0133, 'y'},
};
// clang-format on

// The sets of 94 by final byte.
constexpr auto kSetByFinal = [] {
  std::array<std::optional<CharacterSet>, 128> sets{};
  for (const Designator& row : kSets94) sets[static_cast<unsigned char>(row.final)] = row.set;
  return sets;
}();

using SetTable = std::array<Glyphs96, static_cast<std::size_t>(CharacterSet::Count)>;

constexpr Glyphs96& At(SetTable& table, CharacterSet set) {
  return table[static_cast<std::size_t>(set)];
}

constexpr SetTable MakeSets() {
  SetTable table{};
  Glyphs96 ascii{};
  Glyphs96 latin{};
  for (unsigned i = 0; i < 96; ++i) {
    ascii[i] = static_cast<Unicode>(0x20 + i);
    latin[i] = static_cast<Unicode>(0xA0 + i);
  }
  ascii[95] = ' ';
  table.fill(ascii);
  At(table, CharacterSet::CodePage) = latin;
  for (std::size_t i = 0; i < kGraphics.size(); ++i) {
    At(table, CharacterSet::SpecialGraphics)[0x5F - 0x20 + i] = kGraphics[i];
  }
  Glyphs96& supplemental = At(table, CharacterSet::Supplemental) = latin;
  for (const Replacement& entry : kSupplemental) {
    supplemental[entry.code - 0xA0U] = entry.glyph == 0 ? kErrorGlyph : entry.glyph;
  }
  for (const National& national : kNational) {
    for (std::size_t i = 0; i < kPlaces; ++i) {
      At(table, national.set)[static_cast<std::size_t>(kNationalPlaces[i]) - 0x20] =
          national.glyphs[i];
    }
  }
  return table;
}
constexpr SetTable kSets = MakeSets();

constexpr GlyphMap MakeMap(const Glyphs96& left, const Glyphs96& right) {
  GlyphMap map{};
  map.glyphs.fill(' ');
  for (std::size_t i = 0; i < 96; ++i) {
    map.glyphs[0x20 + i] = left[i];
    map.glyphs[0xA0 + i] = right[i];
  }
  for (std::size_t i = 0; i < 32; ++i) map.glyphs[0x80 + i] = kUpperControls[i];
  map.showsAscii = left == kSets[static_cast<std::size_t>(CharacterSet::Ascii)];
  return map;
}

constexpr GlyphMap MakePlain() {
  GlyphMap map = MakeMap(kSets[static_cast<std::size_t>(CharacterSet::Ascii)],
                         kSets[static_cast<std::size_t>(CharacterSet::CodePage)]);
  for (std::size_t i = 0; i < 32; ++i) map.glyphs[i] = static_cast<Unicode>(0x2400 + i);
  map.glyphs[0x7F] = 0x2421;
  map.showsAscii = false;  // not its controls
  return map;
}

}  // namespace

const Glyphs96& GlyphsOf(CharacterSet set) {
  return kSets[static_cast<std::size_t>(set)];
}

std::optional<CharacterSet> SetOf94(char final) {
  const auto code = static_cast<unsigned char>(final);
  return code < kSetByFinal.size() ? kSetByFinal[code] : std::nullopt;
}

std::optional<CharacterSet> SetOf96(char final) {
  if (final == 'A') return CharacterSet::CodePage;  // ISO Latin-1 supplemental
  return std::nullopt;
}

std::uint16_t UnicodeOf(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte;
}

char ByteOf(std::uint16_t glyph) {
  if (glyph < 0x80 || (glyph >= 0xA0 && glyph <= 0xFF)) return static_cast<char>(glyph);
  if (const auto* found = std::ranges::find(kStandIns, glyph, &StandIn::glyph);
      found != std::end(kStandIns)) {
    return found->byte;
  }
  const auto found = std::ranges::find(kUpperControls, glyph);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

void CharacterSets::Reset() {
  designated_ = {CharacterSet::Ascii, CharacterSet::Ascii, CharacterSet::CodePage,
                 CharacterSet::CodePage};
  left_ = 0;
  right_ = 2;
  once_ = -1;
  map_ = Vt52Map(false);  // which has just these sets
}

void CharacterSets::Designate(int g, CharacterSet set) {
  designated_[static_cast<std::size_t>(g)] = set;
  if (g == left_) LockLeft(g);
  if (g == right_) LockRight(g);
}

void CharacterSets::LockLeft(int g) {
  left_ = g;
  const CharacterSet set = designated_[static_cast<std::size_t>(g)];
  std::ranges::copy(GlyphsOf(set), map_.glyphs.begin() + 0x20);
  map_.showsAscii = set == CharacterSet::Ascii;
}

void CharacterSets::LockRight(int g) {
  right_ = g;
  std::ranges::copy(GlyphsOf(designated_[static_cast<std::size_t>(g)]), map_.glyphs.begin() + 0xA0);
}

std::uint16_t CharacterSets::TakeShifted(unsigned char byte) {
  const CharacterSet set = designated_[static_cast<std::size_t>(once_)];
  once_ = -1;
  const unsigned code = byte & 0x7FU;
  return code < 0x20 ? UnicodeOf(byte) : GlyphsOf(set)[code - 0x20];
}

const GlyphMap& PlainMap() {
  static constexpr GlyphMap kMap = MakePlain();
  return kMap;
}

const GlyphMap& Vt52Map(bool graphics) {
  static const GlyphMap kText =
      MakeMap(GlyphsOf(CharacterSet::Ascii), GlyphsOf(CharacterSet::CodePage));
  static const GlyphMap kLines =
      MakeMap(GlyphsOf(CharacterSet::SpecialGraphics), GlyphsOf(CharacterSet::CodePage));
  return graphics ? kLines : kText;
}

}  // namespace quorvel::vt
