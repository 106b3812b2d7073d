#include <algorithm>
#include <string_view>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {
namespace {

using ModeHandler = void (*)(Machine&, bool on);

void AnsiMode(Machine& m, bool on) {
  if (on) return;  // already so, or this sequence would not have been understood
  m.EnterLevel(Level::Vt52);
  m.SetVt52Graphics(false);
}

// Clears the screen, sets the margins to the extremes and homes the cursor (VT220 manual).
void ColumnMode(Machine& m, bool on) {
  for (int row = 0; row < m.screen.Rows(); ++row) m.screen.ClearRow(row);
  m.MoveTo(0, 0);
  m.Resize(on ? 132 : 80, m.screen.Rows());
  m.top = 0;
  m.bottom = m.screen.Rows() - 1;
}

void OriginMode(Machine& m, bool on) {
  m.modes.origin = on;
  m.Home();
}

template <bool Modes::*Member, bool kInverse = false>
void Flag(Machine& m, bool on) {
  m.modes.*Member = on != kInverse;
}

// Modes that mean nothing to a screen without a beam, or that only the owner's machinery could
// show (smooth scrolling, interlace), are known by being absent here.
struct ModeRow {
  int number;
  std::string_view mnemonic;
  ModeHandler handler;
};
constexpr ModeRow kAnsiModes[] = {
    {2, "KAM", Flag<&Modes::keyboardLocked>},
    {4, "IRM", Flag<&Modes::insert>},
    {12, "SRM", Flag<&Modes::localEcho, true>},
    {20, "LNM", Flag<&Modes::newLine>},
};
constexpr ModeRow kPrivateModes[] = {
    {1, "DECCKM", Flag<&Modes::applicationCursorKeys>},
    {2, "DECANM", AnsiMode},
    {3, "DECCOLM", ColumnMode},
    {5, "DECSCNM", [](Machine& m, bool on) { m.screen.SetReverseScreen(on); }},
    {6, "DECOM", OriginMode},
    {7, "DECAWM", Flag<&Modes::autoWrap>},
    {8, "DECARM", Flag<&Modes::autoRepeat>},
    {18, "DECPFF", Flag<&Modes::printFormFeed>},
    {19, "DECPEX", Flag<&Modes::printWholeScreen>},
    {25, "DECTCEM", [](Machine& m, bool on) { m.screen.cursorVisible = on; }},
};

// A mode that is named twice is changed once: DECCOLM clears the screen, and one sequence may not
// cost more than that.
template <std::size_t kRows>
void Change(Machine& m, Arguments a, const ModeRow (&rows)[kRows], bool on) {
  const auto first = a.parameters.begin();
  for (auto at = first; at != first + static_cast<std::ptrdiff_t>(a.count); ++at) {
    if (std::find(first, at, *at) != at) continue;
    const auto* const row = std::ranges::find(rows, *at, &ModeRow::number);
    if (row != std::end(rows)) row->handler(m, on);
  }
}

}  // namespace

void SetMode(Machine& m, Arguments a) {
  Change(m, a, kAnsiModes, true);
}
void ResetMode(Machine& m, Arguments a) {
  Change(m, a, kAnsiModes, false);
}
void SetPrivateMode(Machine& m, Arguments a) {
  Change(m, a, kPrivateModes, true);
}
void ResetPrivateMode(Machine& m, Arguments a) {
  Change(m, a, kPrivateModes, false);
}

void ApplicationKeypad(Machine& m, Arguments) {
  m.modes.applicationKeypad = true;
}
void NumericKeypad(Machine& m, Arguments) {
  m.modes.applicationKeypad = false;
}

void SevenBitControls(Machine& m, Arguments) {
  m.eightBitControls = false;
}
void EightBitControls(Machine& m, Arguments) {
  m.eightBitControls = true;
}

// DECSCL: 61 is VT100 mode, 62 VT200 mode with 8-bit controls unless the second parameter is 1.
// A VT100 does not know it.
void ConformanceLevel(Machine& m, Arguments a) {
  const int level = a.ValueAt(0);
  if (m.type < TerminalType::VT220_7 || (level != 61 && level != 62)) return;
  m.SoftReset();
  m.eightBitControls = level == 62 && a.ValueAt(1) != 1;
  m.EnterLevel(level == 62 ? Level::Vt220 : Level::Vt100);
}

void SoftReset(Machine& m, Arguments) {
  m.SoftReset();
}
void HardReset(Machine& m, Arguments) {
  m.HardReset();
}

}  // namespace quorvel::vt::functions
