#include "platform/vt/Functions.h"

#include <array>
#include <string_view>

// Which function belongs to which control or sequence: a row each (VT220 programmer reference,
// chapter 4; ECMA-48). Unknown sequences are ignored.
namespace quorvel::vt {
namespace {

using namespace functions;
using ControlHandler = void (*)(Machine&);
using Handler = void (*)(Machine&, const Sequence&);

struct ControlRow {
  unsigned char code;
  std::string_view mnemonic;
  ControlHandler handler;
};
constexpr ControlRow kControls[] = {
    {0x07, "BEL", Bell},          {0x08, "BS", Backspace},    {0x09, "HT", Tab},
    {0x0A, "LF", LineFeed},       {0x0B, "VT", LineFeed},     {0x0C, "FF", FormFeed},
    {0x0D, "CR", CarriageReturn}, {0x0E, "SO/LS1", ShiftOut}, {0x0F, "SI/LS0", ShiftIn},
    {0x1A, "SUB", Substitute},    {0x84, "IND", Index},       {0x85, "NEL", NextLine},
    {0x88, "HTS", SetTab},        {0x8D, "RI", ReverseIndex}, {0x8E, "SS2", SingleShift2},
    {0x8F, "SS3", SingleShift3},  {0x9A, "DECID", Identify},
};

// A final of 0 stands for any final character. `level` is the lowest one that has the function.
struct EscapeRow {
  char prefix;
  char final;
  Level level;
  std::string_view mnemonic;
  Handler handler;
};
constexpr EscapeRow kEscapes[] = {
    {0, '7', Level::Vt100, "DECSC", SaveCursor},
    {0, '8', Level::Vt100, "DECRC", RestoreCursor},
    {0, '=', Level::Vt100, "DECKPAM", ApplicationKeypad},
    {0, '>', Level::Vt100, "DECKPNM", NumericKeypad},
    {0, 'c', Level::Vt100, "RIS", HardReset},
    {0, 'n', Level::Vt220, "LS2", LockingShift},
    {0, 'o', Level::Vt220, "LS3", LockingShift},
    {0, '~', Level::Vt220, "LS1R", LockingShift},
    {0, '}', Level::Vt220, "LS2R", LockingShift},
    {0, '|', Level::Vt220, "LS3R", LockingShift},
    {' ', 'F', Level::Vt220, "S7C1T", SevenBitControls},
    {' ', 'G', Level::Vt220, "S8C1T", EightBitControls},
    {'#', '3', Level::Vt100, "DECDHL top", DoubleHeightTop},
    {'#', '4', Level::Vt100, "DECDHL bottom", DoubleHeightBottom},
    {'#', '5', Level::Vt100, "DECSWL", SingleWidth},
    {'#', '6', Level::Vt100, "DECDWL", DoubleWidth},
    {'#', '8', Level::Vt100, "DECALN", AlignmentPattern},
    {'(', 0, Level::Vt100, "SCS G0", Designate},
    {')', 0, Level::Vt100, "SCS G1", Designate},
    {'*', 0, Level::Vt220, "SCS G2", Designate},
    {'+', 0, Level::Vt220, "SCS G3", Designate},
    {'-', 0, Level::Vt220, "SCS G1, 96", Designate},
    {'.', 0, Level::Vt220, "SCS G2, 96", Designate},
    {'/', 0, Level::Vt220, "SCS G3, 96", Designate},
};

// `prefix` is the private marker or the intermediate character; no function has both. IL, DL and
// DCH are of the VT102, whose functions the VT100 type has; CNL to VPR and SU, SD are of ECMA-48.
struct CsiRow {
  char prefix;
  char final;
  Level level;
  std::string_view mnemonic;
  Handler handler;
};
constexpr CsiRow kCsi[] = {
    {0, '@', Level::Vt220, "ICH", InsertCharacters},
    {0, 'A', Level::Vt100, "CUU", CursorUp},
    {0, 'B', Level::Vt100, "CUD", CursorDown},
    {0, 'C', Level::Vt100, "CUF", CursorForward},
    {0, 'D', Level::Vt100, "CUB", CursorBackward},
    {0, 'E', Level::Vt220, "CNL", CursorNextLine},
    {0, 'F', Level::Vt220, "CPL", CursorPreviousLine},
    {0, 'G', Level::Vt220, "CHA", CursorColumn},
    {0, 'H', Level::Vt100, "CUP", CursorPosition},
    {0, 'I', Level::Vt220, "CHT", TabForward},
    {0, 'J', Level::Vt100, "ED", EraseInDisplay},
    {0, 'K', Level::Vt100, "EL", EraseInLine},
    {0, 'L', Level::Vt100, "IL", InsertLines},
    {0, 'M', Level::Vt100, "DL", DeleteLines},
    {0, 'P', Level::Vt100, "DCH", DeleteCharacters},
    {0, 'S', Level::Vt220, "SU", ScrollUp},
    {0, 'T', Level::Vt220, "SD", ScrollDown},
    {0, 'X', Level::Vt220, "ECH", EraseCharacters},
    {0, 'Z', Level::Vt220, "CBT", TabBackward},
    {0, '`', Level::Vt220, "HPA", CursorColumn},
    {0, 'a', Level::Vt220, "HPR", CursorForward},
    {0, 'c', Level::Vt100, "DA", DeviceAttributes},
    {0, 'd', Level::Vt220, "VPA", CursorRow},
    {0, 'e', Level::Vt220, "VPR", CursorDown},
    {0, 'f', Level::Vt100, "HVP", CursorPosition},
    {0, 'g', Level::Vt100, "TBC", ClearTabs},
    {0, 'h', Level::Vt100, "SM", SetMode},
    {0, 'i', Level::Vt100, "MC", MediaCopy},
    {0, 'l', Level::Vt100, "RM", ResetMode},
    {0, 'm', Level::Vt100, "SGR", GraphicRendition},
    {0, 'n', Level::Vt100, "DSR", StatusReport},
    {0, 'r', Level::Vt100, "DECSTBM", SetMargins},
    {0, 'x', Level::Vt100, "DECREQTPARM", TerminalParameters},
    {'?', 'J', Level::Vt220, "DECSED", SelectiveEraseInDisplay},
    {'?', 'K', Level::Vt220, "DECSEL", SelectiveEraseInLine},
    {'?', 'h', Level::Vt100, "DECSET", SetPrivateMode},
    {'?', 'i', Level::Vt100, "MC private", PrivateMediaCopy},
    {'?', 'l', Level::Vt100, "DECRST", ResetPrivateMode},
    {'?', 'n', Level::Vt100, "DSR private", PrivateStatusReport},
    {'>', 'c', Level::Vt220, "DA secondary", SecondaryAttributes},
    {'!', 'p', Level::Vt220, "DECSTR", SoftReset},
    {'"', 'p', Level::Vt100, "DECSCL", ConformanceLevel},
    {'"', 'q', Level::Vt220, "DECSCA", CharacterProtection},
};

// The tables by code, worked out when compiling.
constexpr auto kControlByCode = [] {
  std::array<ControlHandler, 256> handlers{};
  for (const ControlRow& row : kControls) handlers[row.code] = row.handler;
  return handlers;
}();

// The places of characters in `prefixes`, by code; -1 for all others.
constexpr std::array<int, 128> PlacesOf(std::string_view prefixes) {
  std::array<int, 128> places{};
  places.fill(-1);
  for (std::size_t i = 0; i < prefixes.size(); ++i) {
    places[static_cast<unsigned char>(prefixes[i])] = static_cast<int>(i);
  }
  return places;
}

constexpr std::string_view kEscapePrefixes("\0 #()*+-./", 10);
constexpr auto kEscapePrefixPlaces = PlacesOf(kEscapePrefixes);
constexpr std::size_t kEscapeFinals = 80;  // 0x30 to 0x7F
constexpr auto kEscapeByCode = [] {
  std::array<const EscapeRow*, kEscapePrefixes.size() * kEscapeFinals> rows{};
  for (const EscapeRow& row : kEscapes) {
    const std::size_t first = kEscapePrefixes.find(row.prefix) * kEscapeFinals;
    for (std::size_t i = 0; i < kEscapeFinals; ++i) {
      if (row.final == 0 || row.final == static_cast<char>(0x30 + i)) rows[first + i] = &row;
    }
  }
  return rows;
}();

constexpr std::string_view kCsiPrefixes("\0?>!\"", 5);
constexpr auto kCsiPrefixPlaces = PlacesOf(kCsiPrefixes);
constexpr std::size_t kFinals = 64;  // 0x40 to 0x7F
constexpr std::size_t kLevels = static_cast<std::size_t>(Level::Vt220) + 1;
void Unknown(Machine&, const Sequence&) {}
// One handler for every sequence at every level, so that calling it asks nothing more.
constexpr auto kCsiByCode = [] {
  std::array<Handler, kLevels * kCsiPrefixes.size() * kFinals> handlers{};
  for (Handler& handler : handlers) handler = Unknown;
  for (const CsiRow& row : kCsi) {
    for (auto level = static_cast<std::size_t>(row.level); level < kLevels; ++level) {
      const std::size_t prefix = level * kCsiPrefixes.size() + kCsiPrefixes.find(row.prefix);
      handlers[prefix * kFinals + static_cast<std::size_t>(row.final - 0x40)] = row.handler;
    }
  }
  return handlers;
}();

}  // namespace

void Machine::Execute(unsigned char control) {
  if (kControlByCode[control] != nullptr) kControlByCode[control](*this);
}

void Machine::EscapeDispatch(const Sequence& sequence) {
  // ESC and a character of 4/0 to 5/15 is the C1 control in 7 bits.
  if (sequence.prefix == 0 && sequence.final >= 0x40 && sequence.final <= 0x5F) {
    Execute(static_cast<unsigned char>(sequence.final + 0x40));
    return;
  }
  if (sequence.prefix > 0x7F) return;
  const int prefix = kEscapePrefixPlaces[sequence.prefix];
  if (prefix < 0) return;
  const EscapeRow* const row = kEscapeByCode[static_cast<std::size_t>(prefix) * kEscapeFinals +
                                             static_cast<std::size_t>(sequence.final - 0x30)];
  if (row != nullptr && level >= row->level) row->handler(*this, sequence);
}

void Machine::ChooseFunctions() {
  plainCsi_ = &kCsiByCode[static_cast<std::size_t>(level) * kCsiPrefixes.size() * kFinals];
}

void Machine::CsiWithPrefix(const Sequence& sequence) {
  if (sequence.prefix > 0x7F) return;
  const int prefix = kCsiPrefixPlaces[sequence.prefix];
  if (prefix < 0) return;
  plainCsi_[prefix * static_cast<int>(kFinals) + sequence.final - kFirstCsiFinal](*this, sequence);
}

void Machine::Vt52Dispatch(char final, int row, int column) {
  Vt52(*this, final, row, column);
}

}  // namespace quorvel::vt
