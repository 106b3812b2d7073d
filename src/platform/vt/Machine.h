#pragma once

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "platform/vt/CharacterSets.h"
#include "platform/vt/Keys.h"
#include "platform/vt/Parser.h"
#include "platform/vt/PrinterPort.h"
#include "platform/vt/Screen.h"
#include "platform/vt/Scrollback.h"
#include "platform/vt/TerminalType.h"
#include "platform/vt/UserKeys.h"

namespace quorvel::vt {

// The modes of SM, RM, DECSET and DECRST and of the keypad, as after power-up.
struct Modes {
  bool keyboardLocked = false;         // KAM
  bool insert = false;                 // IRM
  bool localEcho = false;              // SRM reset
  bool newLine = false;                // LNM
  bool applicationCursorKeys = false;  // DECCKM
  bool origin = false;                 // DECOM
  bool autoWrap = true;                // DECAWM
  bool autoRepeat = true;              // DECARM
  bool printFormFeed = false;          // DECPFF
  bool printWholeScreen = true;        // DECPEX
  bool applicationKeypad = false;      // DECKPAM
};

// What DECSC saves.
struct SavedCursor {
  int row = 0;
  int column = 0;
  bool lastColumn = false;
  bool origin = false;
  Attributes pen;
  CharacterSets sets;
};

constexpr Cell kNoGlyph{0, {}};

// The whole state of the emulation and what the control functions have in common. It is the sink
// of the parser; the functions themselves are in Functions*.cpp.
class Machine {
 public:
  Machine(int columns, int rows);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  // --- the parser's sink
  void Print(const unsigned char* first, const unsigned char* last) {
    const auto count = last - first;
    const bool usual = !(screen.lastColumn | modes.insert | sets.HasSingleShift());
    if (usual && count <= LastColumn() - screen.cursorColumn) {
      WriteGlyphs(first, static_cast<int>(count));
      screen.cursorColumn += static_cast<int>(count);
    } else {
      PrintSlowly(first, last);
    }
  }
  void Execute(unsigned char control);
  void EscapeDispatch(const Sequence& sequence);
  void CsiDispatch(const Sequence& sequence) {
    if (sequence.prefix == 0) {  // as nearly always
      plainCsi_[sequence.final - kFirstCsiFinal](*this, sequence);
    } else {
      CsiWithPrefix(sequence);
    }
  }
  void Vt52Dispatch(char final, int row, int column);
  void StringStart(const Sequence& sequence);
  void StringPut(char byte);
  void StringEnd();
  void StringAbort();
  bool WantsRawBytes() const { return printer.ControllerOn(); }

  // --- set-up
  void SetType(TerminalType type);
  void Resize(int columns, int rows);  // keeps what is shown
  void EnterLevel(Level level);
  void SoftReset();  // DECSTR
  void HardReset();  // RIS
  void SetDefaultTabs();
  void SetVt52Graphics(bool on);

  // --- the cursor; columns and rows count from 0
  // Right of it a character wraps or overwrites: the last column of the cursor's line.
  int LastColumn() const { return screen.Width(screen.cursorRow) - 1; }
  // Clamped to the screen; ends a pending wrap.
  void MoveTo(int row, int column) {
    screen.cursorRow = std::clamp(row, 0, screen.Rows() - 1);
    screen.cursorColumn = std::clamp(column, 0, LastColumn());
    screen.lastColumn = false;
  }
  void Home();   // of the screen or, in origin mode, of the margins
  void Index();  // one line down, scrolling at the bottom margin
  void ReverseIndex();
  void LineFeed();
  void ScrollRegionUp(int count);
  bool InMargins() const { return screen.cursorRow >= top && screen.cursorRow <= bottom; }
  void PutGlyph(std::uint16_t glyph);

  // --- answers to the host
  // Answers beyond this wait for nobody: a host that asks and never reads gets no more.
  static constexpr std::size_t kMaxAnswers = 65536;
  void Answer(std::string_view bytes);
  void AnswerCsi(std::string_view rest);  // with CSI in 7 or 8 bits in front

  // --- the printer
  void PrintLine(int row);
  void PrintScreen();
  // Text of cells as bytes of Windows-1252, as many as there are cells.
  static std::string TextOf(std::span<const Cell> cells);

  KeyModes KeyModesNow() const;

  TerminalType type = TerminalType::VT220_7;
  Level level = Level::Vt220;
  bool eightBitControls = false;
  // What the user has chosen, to which a hard reset goes back.
  struct SetUp {
    int columns;
    bool applicationKeypad = false;
    bool applicationCursorKeys = false;
  } setUp;

  Screen screen;
  Scrollback scrollback;
  Modes modes;
  Cell ink = kNoGlyph;  // the attributes of what is printed next
  CharacterSets sets;
  SavedCursor saved;
  int top = 0;  // margins, both inside
  int bottom = 0;
  std::bitset<kMaxColumns> tabs;
  UserKeys userKeys;
  PrinterPort printer;
  Parser parser;
  std::string answers;
  int bells = 0;
  std::int64_t scrolledOff = 0;  // since the owner asked last
  std::int64_t dropped = 0;
  bool resized = false;

 private:
  std::string PaperLine(int row) const;  // without trailing blanks, with CR LF
  void SaveTopRows(int count);
  void Wrap();
  // Text that meets the end of its line, a single shift or insert mode.
  void PrintSlowly(const unsigned char* first, const unsigned char* last);
  // Writes one glyph a byte, at least one, at the cursor, within the line; moves the cursor by hand
  // of the caller.
  void WriteGlyphs(const unsigned char* first, int count) {
    const GlyphMap& map = *map_;
    const std::uint64_t attributes = Bits(ink);
    Cell* const out = screen.Overwrite(screen.cursorRow, screen.cursorColumn, count);
    StoreBits(out, attributes | std::uint64_t{map.glyphs[first[0]]} << kGlyphShift);
    if (count == 1) return;  // asked once, ahead of what prepares for many
    for (int i = 1 + (map.showsAscii ? WriteAscii(first + 1, count - 1, out + 1) : 0); i < count;
         ++i) {
      const std::uint64_t glyph = map.glyphs[first[i]];
      StoreBits(out + i, attributes | glyph << kGlyphShift);
    }
  }
  // Writes what leads of ASCII text, eight characters at a time and without the map. (Measured: a
  // third of the time of plain text.) Returns how many.
  int WriteAscii(const unsigned char* first, int count, Cell* out) const {
    constexpr int kStep = 8;
    constexpr std::uint64_t kTops = 0x8080808080808080U;
    const std::uint64_t attributes = Bits(ink);
    int done = 0;
    for (; count - done >= kStep; done += kStep) {
      std::uint64_t word;
      std::memcpy(&word, first + done, sizeof word);
      if ((word & kTops) != 0) break;
      for (int i = done; i < done + kStep; ++i) {
        StoreBits(out + i, attributes | std::uint64_t{first[i]} << kGlyphShift);
      }
    }
    return done;
  }
  void WriteRun(const unsigned char* first, int count);  // the same, making room in insert mode
  const unsigned char* PrintPart(const unsigned char* first, const unsigned char* last);

  void ChooseMap();
  void ChooseFunctions();  // those of the level
  void CsiWithPrefix(const Sequence& sequence);

  static constexpr int kFirstCsiFinal = 0x40;
  using CsiHandler = void (*)(Machine&, const Sequence&);

  const CsiHandler* plainCsi_ = nullptr;  // by final character, for sequences without a prefix
  const GlyphMap* map_ = nullptr;         // from bytes to glyphs, as level and sets have it
  bool vt52Graphics_ = false;

  bool definesKeys_ = false;  // a DECUDK string is being received
  Sequence stringHead_;
  std::string string_;
};

}  // namespace quorvel::vt
