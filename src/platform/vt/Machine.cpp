#include "platform/vt/Machine.h"

#include <algorithm>

namespace quorvel::vt {
namespace {

Level LevelOf(TerminalType type) {
  switch (type) {
    case TerminalType::None:
      return Level::Plain;
    case TerminalType::VT52:
      return Level::Vt52;
    case TerminalType::VT100:
      return Level::Vt100;
    default:
      return Level::Vt220;
  }
}

}  // namespace

Machine::Machine(int columns, int rows) : setUp{columns}, screen(columns, rows) {
  setUp.columns = screen.Columns();
  ChooseFunctions();
  ChooseMap();
  bottom = screen.Rows() - 1;
  SetDefaultTabs();
}

// ---------------------------------------------------------------- set-up

void Machine::SetType(TerminalType newType) {
  if (newType == type || newType < TerminalType::None || newType > TerminalType::VT220_8) {
    return;
  }
  type = newType;
  eightBitControls = type == TerminalType::VT220_8;
  vt52Graphics_ = false;
  StringAbort();
  const bool autoWrap = modes.autoWrap;
  SoftReset();
  modes.autoWrap = autoWrap;
  modes.applicationKeypad = setUp.applicationKeypad;
  modes.applicationCursorKeys = setUp.applicationCursorKeys;
  EnterLevel(LevelOf(type));
}

void Machine::EnterLevel(Level newLevel) {
  level = newLevel;
  ChooseFunctions();
  ChooseMap();
  const C1Bytes c1 = level == Level::Vt220 ? C1Bytes::Controls : C1Bytes::Text;
  switch (level) {
    case Level::Plain:
      return parser.SetGround(State::PlainGround, c1);
    case Level::Vt52:
      return parser.SetGround(State::Vt52Ground, c1);
    default:
      return parser.SetGround(State::Ground, c1);
  }
}

void Machine::Resize(int columns, int rows) {
  columns = std::clamp(columns, kMinColumns, kMaxColumns);
  rows = std::clamp(rows, kMinRows, kMaxRows);
  if (columns == screen.Columns() && rows == screen.Rows()) return;
  // Rows go first where nothing is: below the cursor. The others leave at the top, so that they
  // can still be read in the scroll-back.
  int excess = screen.Rows() - rows;
  for (int row = screen.Rows() - 1; excess > 0 && row > screen.cursorRow && screen.IsBlank(row);
       --row) {
    --excess;
  }
  const int dropTop = std::clamp(excess, 0, screen.Rows() - 1);
  SaveTopRows(dropTop);
  for (int column = screen.Columns(); column < columns; ++column) {
    tabs[static_cast<std::size_t>(column)] = column % 8 == 0;
  }
  screen.Resize(columns, rows, dropTop);
  top = 0;
  bottom = screen.Rows() - 1;
  resized = true;
}

void Machine::SetDefaultTabs() {
  for (std::size_t column = 0; column < tabs.size(); ++column) tabs[column] = column % 8 == 0;
}

// VT220 programmer reference, table 4-10. The cursor stays where it is.
void Machine::SoftReset() {
  screen.cursorVisible = true;
  const bool repeat = modes.autoRepeat;
  const bool newLine = modes.newLine;
  const bool echo = modes.localEcho;
  modes = Modes{};
  modes.autoRepeat = repeat;
  modes.newLine = newLine;
  modes.localEcho = echo;
  modes.autoWrap = false;
  top = 0;
  bottom = screen.Rows() - 1;
  sets.Reset();
  ink = kNoGlyph;
  saved = {};
}

void Machine::HardReset() {
  StringAbort();
  printer.Reset();
  userKeys.Reset();
  if (screen.Columns() != setUp.columns) Resize(setUp.columns, screen.Rows());
  SoftReset();
  modes = Modes{};
  modes.applicationKeypad = setUp.applicationKeypad;
  modes.applicationCursorKeys = setUp.applicationCursorKeys;
  for (int row = 0; row < screen.Rows(); ++row) screen.ClearRow(row);
  screen.SetReverseScreen(false);
  SetDefaultTabs();
  vt52Graphics_ = false;
  eightBitControls = type == TerminalType::VT220_8;
  EnterLevel(LevelOf(type));
  MoveTo(0, 0);
}

// ---------------------------------------------------------------- the cursor

void Machine::Home() {
  MoveTo(modes.origin ? top : 0, 0);
}

void Machine::Index() {
  if (screen.cursorRow == bottom) {
    ScrollRegionUp(1);
    MoveTo(bottom, screen.cursorColumn);
  } else {
    MoveTo(screen.cursorRow + 1, screen.cursorColumn);
  }
}

void Machine::ReverseIndex() {
  if (screen.cursorRow == top) {
    screen.ScrollDown(top, bottom, 1);
    MoveTo(top, screen.cursorColumn);
  } else {
    MoveTo(screen.cursorRow - 1, screen.cursorColumn);
  }
}

void Machine::LineFeed() {
  if (printer.autoPrint) PrintLine(screen.cursorRow);
  if (modes.newLine) screen.cursorColumn = 0;
  Index();
}

// The first rows are about to leave the screen.
void Machine::SaveTopRows(int count) {
  if (scrollback.Limit() == 0) return;
  for (int row = 0; row < count; ++row) {
    const auto used = screen.Row(row).first(static_cast<std::size_t>(screen.UsedColumns(row)));
    if (scrollback.Push(used, screen.LineAttributeAt(row), screen.Wrapped(row))) ++dropped;
  }
  scrolledOff += count;
}

void Machine::ScrollRegionUp(int count) {
  count = std::min(count, bottom - top + 1);
  if (top == 0) SaveTopRows(count);
  screen.ScrollUp(top, bottom, count);
}

// ---------------------------------------------------------------- text

void Machine::ChooseMap() {
  if (level == Level::Plain) {
    map_ = &PlainMap();
  } else {
    map_ = level == Level::Vt52 ? &Vt52Map(vt52Graphics_) : &sets.Map();
  }
}

void Machine::SetVt52Graphics(bool on) {
  vt52Graphics_ = on;
  ChooseMap();
}

void Machine::Wrap() {
  if (printer.autoPrint) PrintLine(screen.cursorRow);
  screen.SetWrapped(screen.cursorRow, true);
  screen.cursorColumn = 0;
  Index();
}

void Machine::WriteRun(const unsigned char* first, int count) {
  if (modes.insert) screen.InsertCells(screen.cursorRow, screen.cursorColumn, count);
  WriteGlyphs(first, count);
}

void Machine::PrintSlowly(const unsigned char* first, const unsigned char* last) {
  while (first != last && sets.HasSingleShift() && level >= Level::Vt100) {
    PutGlyph(sets.TakeShifted(*first++));
  }
  while (first != last) first = PrintPart(first, last);
}

// Prints what fits in the cursor's line; returns where to go on.
const unsigned char* Machine::PrintPart(const unsigned char* first, const unsigned char* last) {
  if (screen.lastColumn) Wrap();
  const int lastColumn = LastColumn();
  const int room = lastColumn + 1 - screen.cursorColumn;
  if (last - first < room) {
    const int count = static_cast<int>(last - first);
    WriteRun(first, count);
    screen.cursorColumn += count;
    return last;
  }
  WriteRun(first, room);
  screen.cursorColumn = lastColumn;
  first += room;
  screen.lastColumn = modes.autoWrap;
  if (modes.autoWrap || first == last) return first;
  // Without autowrap each further character takes the place of the one before.
  WriteRun(last - 1, 1);
  return last;
}

void Machine::PutGlyph(std::uint16_t glyph) {
  if (screen.lastColumn) Wrap();
  if (modes.insert) screen.InsertCells(screen.cursorRow, screen.cursorColumn, 1);
  *screen.Overwrite(screen.cursorRow, screen.cursorColumn, 1) = Cell{glyph, ink.attributes};
  if (screen.cursorColumn < LastColumn()) {
    ++screen.cursorColumn;
  } else {
    screen.lastColumn = modes.autoWrap;
  }
}

// ---------------------------------------------------------------- device control strings

void Machine::StringStart(const Sequence& sequence) {
  // Of all device control strings only DECUDK means something here; soft fonts (DECDLD) and
  // unknown ones are received and dropped.
  definesKeys_ = sequence.final == '|' && sequence.prefix == 0 && level == Level::Vt220;
  stringHead_ = sequence;
  string_.clear();
}

void Machine::StringPut(char byte) {
  if (!definesKeys_ || byte < ' ' || string_.size() >= UserKeys::kMaxDefinition) return;
  string_ += byte;
}

void Machine::StringEnd() {
  if (definesKeys_) userKeys.Load(stringHead_, string_);
  StringAbort();
}

void Machine::StringAbort() {
  definesKeys_ = false;
  string_.clear();
}

// ---------------------------------------------------------------- answers, keys, printer

void Machine::Answer(std::string_view bytes) {
  if (answers.size() + bytes.size() <= kMaxAnswers) answers += bytes;
}

void Machine::AnswerCsi(std::string_view rest) {
  Answer((eightBitControls && level == Level::Vt220 ? "\x9B" : "\x1B[") + std::string(rest));
}

KeyModes Machine::KeyModesNow() const {
  return {level, modes.applicationKeypad, modes.applicationCursorKeys, modes.newLine,
          eightBitControls && level == Level::Vt220};
}

std::string Machine::TextOf(std::span<const Cell> cells) {
  std::string text(cells.size(), ' ');
  std::ranges::transform(cells, text.begin(), [](const Cell& cell) { return ByteOf(cell.glyph); });
  return text;
}

std::string Machine::PaperLine(int row) const {
  std::string text = TextOf(screen.Row(row).first(static_cast<std::size_t>(screen.Width(row))));
  text.erase(text.find_last_not_of(' ') + 1);
  return text + "\r\n";
}

void Machine::PrintLine(int row) {
  printer.Print(PaperLine(row));
}

// Collected first: the owner may resize the terminal while it is given the text.
void Machine::PrintScreen() {
  const int first = modes.printWholeScreen ? 0 : top;
  const int last = modes.printWholeScreen ? screen.Rows() - 1 : bottom;
  std::string text;
  for (int row = first; row <= last; ++row) text += PaperLine(row);
  if (modes.printFormFeed) text += '\f';
  printer.Print(text);
  printer.End();
}

}  // namespace quorvel::vt
