#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The states of the published DEC-compatible ANSI parser (vt100.net/emu/dec_ansi_parser) as one
// constexpr table, with the few states that VT52 mode and "no emulation" add. A cell says what to
// do with a byte and where to go; entry and exit actions of the diagram stand in the cells of the
// transitions that cause them.

namespace quorvel::vt {

enum class State : std::uint8_t {
  Ground,
  Escape,
  EscapeIntermediate,
  CsiEntry,
  CsiParameter,
  CsiIntermediate,
  CsiIgnore,
  DcsEntry,
  DcsParameter,
  DcsIntermediate,
  DcsPassthrough,
  DcsIgnore,
  OscString,      // swallowed; BEL ends it as well
  IgnoredString,  // SOS, PM and APC
  Vt52Ground,
  Vt52Escape,
  Vt52Row,     // ESC Y has come
  Vt52Column,  // ... and the row
  PlainGround,
  Count,
};

enum class Action : std::uint8_t {
  Unassigned,  // in no finished table
  Ignore,
  Print,
  Execute,    // a C0 or C1 control
  Clear,      // a new sequence begins
  Collect,    // intermediate or private marker
  Parameter,  // digit or separator
  EscapeDispatch,
  CsiDispatch,
  StringStart,  // a device control string whose function is known by now
  StringPut,
  StringEnd,           // ST
  StringEndClear,      // ESC, of ST in 7 bits
  StringAbortExecute,  // CAN, SUB or a C1 control in the middle
  StringAbortClear,    // another C1 introducer in the middle
  Swallow,             // a byte of a string that nobody reads
  Vt52Dispatch,
  Vt52Coordinate,
};

// Whether 0x80 to 0x9F are C1 controls. The VT220 programmer reference has them recognised
// whenever the terminal is in VT200 mode, 7-bit or 8-bit (the choice of S7C1T and S8C1T is only
// about what the terminal sends); in VT100 and VT52 mode the terminal works with 7 bits, so there
// bytes of the upper half are taken as text.
enum class C1Bytes : std::uint8_t { Text, Controls, Count };

struct Transition {
  Action action = Action::Unassigned;
  State next = State::Ground;
};

constexpr std::size_t kStates = static_cast<std::size_t>(State::Count);
using StateRow = std::array<Transition, 256>;
using ParserTable = std::array<StateRow, kStates>;

namespace table {

constexpr void Fill(ParserTable& table, State state, int first, int last, Action action,
                    State next) {
  for (int byte = first; byte <= last; ++byte) {
    table[static_cast<std::size_t>(state)][static_cast<std::size_t>(byte)] = {action, next};
  }
}

// The same for 0x20-0x7F and its shifted copy 0xA0-0xFF: inside sequences GR counts as GL.
constexpr void FillBoth(ParserTable& table, State state, int first, int last, Action action,
                        State next) {
  Fill(table, state, first, last, action, next);
  Fill(table, state, first + 0x80, last + 0x80, action, next);
}

constexpr void FillC0(ParserTable& table, State state, Action action) {
  Fill(table, state, 0x00, 0x1F, action, state);
  Fill(table, state, 0x18, 0x18, Action::Execute, State::Ground);
  Fill(table, state, 0x1A, 0x1A, Action::Execute, State::Ground);
  Fill(table, state, 0x1B, 0x1B, Action::Clear, State::Escape);
}

// The transitions that the diagram draws from "anywhere".
constexpr void FillC1(ParserTable& table, State state, C1Bytes c1) {
  if (c1 == C1Bytes::Text) {
    const bool ground = state == State::Ground;
    Fill(table, state, 0x80, 0x9F, ground ? Action::Print : Action::Ignore, state);
    return;
  }
  Fill(table, state, 0x80, 0x9F, Action::Execute, State::Ground);
  Fill(table, state, 0x90, 0x90, Action::Clear, State::DcsEntry);
  Fill(table, state, 0x98, 0x98, Action::Clear, State::IgnoredString);
  Fill(table, state, 0x9B, 0x9B, Action::Clear, State::CsiEntry);
  Fill(table, state, 0x9C, 0x9C, Action::Ignore, State::Ground);
  Fill(table, state, 0x9D, 0x9D, Action::Clear, State::OscString);
  Fill(table, state, 0x9E, 0x9F, Action::Clear, State::IgnoredString);
}

constexpr void FillGround(ParserTable& table, C1Bytes c1) {
  constexpr State s = State::Ground;
  FillC0(table, s, Action::Execute);
  Fill(table, s, 0x20, 0x7E, Action::Print, s);
  Fill(table, s, 0x7F, 0x7F, Action::Ignore, s);
  FillC1(table, s, c1);
  Fill(table, s, 0xA0, 0xFF, Action::Print, s);
}

constexpr void FillEscape(ParserTable& table, C1Bytes c1) {
  constexpr State s = State::Escape;
  FillC0(table, s, Action::Execute);
  FillC1(table, s, c1);
  FillBoth(table, s, 0x20, 0x2F, Action::Collect, State::EscapeIntermediate);
  FillBoth(table, s, 0x30, 0x7E, Action::EscapeDispatch, State::Ground);
  FillBoth(table, s, 'P', 'P', Action::Clear, State::DcsEntry);
  FillBoth(table, s, 'X', 'X', Action::Clear, State::IgnoredString);
  FillBoth(table, s, '[', '[', Action::Clear, State::CsiEntry);
  FillBoth(table, s, ']', ']', Action::Clear, State::OscString);
  FillBoth(table, s, '^', '_', Action::Clear, State::IgnoredString);
  FillBoth(table, s, 0x7F, 0x7F, Action::Ignore, s);

  constexpr State i = State::EscapeIntermediate;
  FillC0(table, i, Action::Execute);
  FillC1(table, i, c1);
  FillBoth(table, i, 0x20, 0x2F, Action::Collect, i);
  FillBoth(table, i, 0x30, 0x7E, Action::EscapeDispatch, State::Ground);
  FillBoth(table, i, 0x7F, 0x7F, Action::Ignore, i);
}

// What CSI and DCS have in common: parameters, intermediates, a final byte.
struct Introduced {
  State entry, parameter, intermediate, ignore;
  Action control;  // what C0 controls do meanwhile
  Action dispatch;
  State dispatched;
};

constexpr void FillIntroduced(ParserTable& table, const Introduced& in, C1Bytes c1) {
  for (const State s : {in.entry, in.parameter, in.intermediate, in.ignore}) {
    FillC0(table, s, in.control);
    FillC1(table, s, c1);
    FillBoth(table, s, 0x20, 0x3F, Action::Ignore, in.ignore);
    FillBoth(table, s, 0x40, 0x7E, in.dispatch, in.dispatched);
    FillBoth(table, s, 0x7F, 0x7F, Action::Ignore, s);
  }
  for (const State s : {in.entry, in.parameter}) {
    FillBoth(table, s, 0x20, 0x2F, Action::Collect, in.intermediate);
    FillBoth(table, s, '0', '9', Action::Parameter, in.parameter);
    FillBoth(table, s, ';', ';', Action::Parameter, in.parameter);
  }
  FillBoth(table, in.entry, 0x3C, 0x3F, Action::Collect, in.parameter);
  FillBoth(table, in.intermediate, 0x20, 0x2F, Action::Collect, in.intermediate);
}

constexpr void FillCsi(ParserTable& table, C1Bytes c1) {
  FillIntroduced(table,
                 {State::CsiEntry, State::CsiParameter, State::CsiIntermediate, State::CsiIgnore,
                  Action::Execute, Action::CsiDispatch, State::Ground},
                 c1);
  FillBoth(table, State::CsiIgnore, 0x40, 0x7E, Action::Ignore, State::Ground);
}

// A string state: every byte does `action`, and the string ends as the diagram has it.
constexpr void FillString(ParserTable& table, State s, Action action, C1Bytes c1) {
  Fill(table, s, 0x00, 0xFF, action, s);
  Fill(table, s, 0x18, 0x18, Action::StringAbortExecute, State::Ground);
  Fill(table, s, 0x1A, 0x1A, Action::StringAbortExecute, State::Ground);
  Fill(table, s, 0x1B, 0x1B, Action::StringEndClear, State::Escape);
  if (c1 == C1Bytes::Text) return;
  Fill(table, s, 0x80, 0x9F, Action::StringAbortExecute, State::Ground);
  Fill(table, s, 0x90, 0x90, Action::StringAbortClear, State::DcsEntry);
  Fill(table, s, 0x98, 0x98, Action::StringAbortClear, State::IgnoredString);
  Fill(table, s, 0x9B, 0x9B, Action::StringAbortClear, State::CsiEntry);
  Fill(table, s, 0x9C, 0x9C, Action::StringEnd, State::Ground);
  Fill(table, s, 0x9D, 0x9D, Action::StringAbortClear, State::OscString);
  Fill(table, s, 0x9E, 0x9F, Action::StringAbortClear, State::IgnoredString);
}

constexpr void FillStrings(ParserTable& table, C1Bytes c1) {
  FillIntroduced(table,
                 {State::DcsEntry, State::DcsParameter, State::DcsIntermediate, State::DcsIgnore,
                  Action::Ignore, Action::StringStart, State::DcsPassthrough},
                 c1);
  FillString(table, State::DcsPassthrough, Action::StringPut, c1);
  FillBoth(table, State::DcsPassthrough, 0x7F, 0x7F, Action::Swallow, State::DcsPassthrough);
  FillString(table, State::DcsIgnore, Action::Swallow, c1);
  FillString(table, State::IgnoredString, Action::Swallow, c1);
  FillString(table, State::OscString, Action::Swallow, c1);
  // Not in the diagram, but many hosts end the string that sets a window title this way.
  Fill(table, State::OscString, 0x07, 0x07, Action::StringEnd, State::Ground);
}

constexpr void FillVt52(ParserTable& table) {
  for (const State s : {State::Vt52Ground, State::Vt52Escape, State::Vt52Row, State::Vt52Column}) {
    Fill(table, s, 0x00, 0x1F, Action::Execute, s);
    Fill(table, s, 0x18, 0x18, Action::Execute, State::Vt52Ground);
    Fill(table, s, 0x1A, 0x1A, Action::Execute, State::Vt52Ground);
    Fill(table, s, 0x1B, 0x1B, Action::Clear, State::Vt52Escape);
  }
  constexpr State g = State::Vt52Ground;
  Fill(table, g, 0x20, 0xFF, Action::Print, g);
  Fill(table, g, 0x7F, 0x7F, Action::Ignore, g);
  Fill(table, State::Vt52Escape, 0x20, 0xFF, Action::Vt52Dispatch, g);
  Fill(table, State::Vt52Escape, 'Y', 'Y', Action::Ignore, State::Vt52Row);
  Fill(table, State::Vt52Row, 0x20, 0xFF, Action::Vt52Coordinate, State::Vt52Column);
  Fill(table, State::Vt52Column, 0x20, 0xFF, Action::Vt52Coordinate, g);
}

// Bytes are shown as they are; the six controls of a typewriter are obeyed.
constexpr void FillPlain(ParserTable& table) {
  constexpr State s = State::PlainGround;
  Fill(table, s, 0x00, 0xFF, Action::Print, s);
  Fill(table, s, 0x00, 0x00, Action::Ignore, s);
  for (const int control : {0x07, 0x08, 0x09, 0x0A, 0x0C, 0x0D}) {
    Fill(table, s, control, control, Action::Execute, s);
  }
}

constexpr ParserTable Make(C1Bytes c1) {
  ParserTable table{};
  FillGround(table, c1);
  FillEscape(table, c1);
  FillCsi(table, c1);
  FillStrings(table, c1);
  FillVt52(table);
  FillPlain(table);
  return table;
}

constexpr bool IsComplete(const ParserTable& table) {
  for (const StateRow& row : table) {
    for (const Transition& cell : row) {
      if (cell.action == Action::Unassigned || cell.next >= State::Count) return false;
    }
  }
  return true;
}

}  // namespace table

inline constexpr std::array<ParserTable, static_cast<std::size_t>(C1Bytes::Count)> kParserTables{
    table::Make(C1Bytes::Text), table::Make(C1Bytes::Controls)};
static_assert(table::IsComplete(kParserTables[0]) && table::IsComplete(kParserTables[1]));

}  // namespace quorvel::vt
