#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/vt/Emulator.h"

// What the tests of the emulation have in common: screens as text.
namespace quorvel::vt {

inline std::string Trimmed(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

// The rows of the screen joined by "/", trailing blanks of rows and trailing empty rows left out.
inline std::string Dump(const Emulator& terminal) {
  std::string dump;
  std::string gap;
  for (int row = 0; row < terminal.screen().Rows(); ++row) {
    const std::string text = Trimmed(terminal.LineText(terminal.ScrollbackCount() + row));
    if (!text.empty()) {
      dump += gap + text;
      gap.clear();
    }
    gap += '/';
  }
  return dump;
}

// "row;column" as the host counts them.
inline std::string CursorOf(const Emulator& terminal) {
  return std::to_string(terminal.screen().CursorRow() + 1) + ";" +
         std::to_string(terminal.screen().CursorColumn() + 1);
}

// Attributes of a cell in letters, "-" for none; colours by kind and value.
inline std::string AttributesOf(const Emulator& terminal, int row, int column) {
  const Attributes a = terminal.screen().CellAt(row, column).attributes;
  std::string text;
  const auto add = [&](bool on, char letter) {
    if (on) text += letter;
  };
  add(a.bold(), 'b');
  add(a.underline(), 'u');
  add(a.blink(), 'k');
  add(a.reverse(), 'r');
  add(a.invisible(), 'i');
  add(a.isProtected(), 'p');
  const auto colour = [&](char name, Colour c) {
    if (c.kind() == Colour::Kind::Palette) text += name + std::to_string(c.index());
    if (c.kind() == Colour::Kind::Direct) {
      text += name + std::string("#") + std::to_string(c.red()) + "," + std::to_string(c.green()) +
              "," + std::to_string(c.blue());
    }
  };
  colour('f', a.fore);
  colour('g', a.back);
  return text.empty() ? "-" : text;
}

// A row of a table of cases: what is sent to a terminal of 10 columns and 5 rows (VT220, 7 bits,
// unless the test says otherwise), and what it shows then.
struct ScreenCase {
  const char* name;
  std::string_view input;
  std::string_view dump;
  std::string_view cursor;
};

inline void Check(const std::vector<ScreenCase>& cases, TerminalType type = TerminalType::VT220_7) {
  for (const ScreenCase& c : cases) {
    SCOPED_TRACE(c.name);
    Emulator terminal(10, 5);
    terminal.SetType(type);
    terminal.Feed(c.input);
    EXPECT_EQ(Dump(terminal), c.dump);
    EXPECT_EQ(CursorOf(terminal), c.cursor);
  }
}

// What the terminal answers to `input`.
inline std::string AnswerTo(std::string_view input, TerminalType type = TerminalType::VT220_7,
                            bool printer = false) {
  Emulator terminal(80, 24);
  terminal.SetType(type);
  terminal.SetPassThrough(printer);
  terminal.Feed(input);
  return terminal.TakeAnswers();
}

}  // namespace quorvel::vt
