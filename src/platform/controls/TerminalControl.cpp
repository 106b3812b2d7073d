#include "platform/controls/TerminalControl.h"

#include "platform/controls/Desktop.h"

namespace quorvel {
Terminal::Terminal(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  AccessibleText.Adopt("Terminal");
  emulation_.onPrint = [this](std::string_view bytes) { toPrint_ += bytes; };
  emulation_.onPrintEnd = [this] { endPrint_ = true; };
  for (const Prop mode : {Prop::TermType, Prop::ScreenSize, Prop::BufferRows, Prop::KeyPad,
                          Prop::CursorKeys, Prop::PassThrough}) {
    Apply(mode);
  }
  Created();
}

// The peer goes first: its widget looks at the screen once more when it loses the keyboard.
Terminal::~Terminal() {
  SetPeer(nullptr);
}

void Terminal::Apply(Prop mode) {
  switch (mode) {
    case Prop::TermType:
      emulation_.SetType(static_cast<vt::TerminalType>(std::clamp(TermType(), 1, 5)));
      break;
    case Prop::ScreenSize:
      emulation_.SetSize(Columns() == 1 ? 132 : 80, Rows());
      break;
    case Prop::BufferRows:
      emulation_.SetScrollbackRows(BufferRows());
      break;
    case Prop::KeyPad:
      emulation_.SetApplicationKeypad(KeyPad() == 1);
      break;
    case Prop::CursorKeys:
      emulation_.SetApplicationCursorKeys(CursorKeys() == 1);
      break;
    case Prop::PassThrough:
      emulation_.SetPassThrough(PassThrough());
      break;
    default:
      break;
  }
}

// The properties tell what holds now, whoever has set it.
void Terminal::AdoptModes() {
  Columns.Adopt(emulation_.screen().Columns() > 80 ? 1 : 0);
  Rows.Adopt(emulation_.screen().Rows());
  KeyPad.Adopt(emulation_.ApplicationKeypad() ? 1 : 0);
  CursorKeys.Adopt(emulation_.ApplicationCursorKeys() ? 1 : 0);
}

void Terminal::PropertyChanged(Prop prop) {
  Apply(prop);
  AdoptModes();
  Control::PropertyChanged(prop);
}

void Terminal::Write(std::string_view bytes) {
  emulation_.Feed(bytes);
  AdoptModes();
  if (emulation_.TakeBells() > 0) desktop().backend().Beep();
  const std::string answers = emulation_.TakeAnswers();
  if (!answers.empty() && Answer) Answer(answers);
  TellPeer(Prop::Screen);
  PrintCollected();
}

void Terminal::PrintCollected() {
  const std::string text = std::exchange(toPrint_, {});
  const bool ends = std::exchange(endPrint_, false);
  const bool told = std::exchange(printFailureTold_, printFailureTold_ && !ends);
  try {
    Printer& printer = desktop().backend().printer();
    // The printer ends the last line itself.
    if (!text.empty()) printer.PrintText(text.substr(0, text.size() - text.ends_with('\n')));
    if (ends) printer.EndDocument();
  } catch (const RuntimeError&) {
    printFailureTold_ = !ends;
    if (!told) throw;  // one box is enough for what is printed in many pieces
  }
}

std::vector<std::string> Terminal::ScreenLines() const {
  std::vector<std::string> lines;
  const int first = emulation_.ScrollbackCount();
  const int rows = emulation_.screen().Rows();
  lines.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    lines.push_back(emulation_.LineText(first + row));
  }
  return lines;
}

std::string Terminal::PrintScreen() {
  return desktop().backend().printer().PrintScreen(ScreenLines());
}

void Terminal::UserText(const std::string& bytes) {
  if (!window().TakesInput() || !Reachable() || bytes.empty()) return;
  window().AsUserEvent([this, bytes] {
    if (KeyboardData) KeyboardData(emulation_.EncodeText(bytes));
  });
}

void Terminal::UserPaste(const std::string& bytes) {
  if (!window().TakesInput() || !Reachable() || bytes.empty()) return;
  window().AsUserEvent([this, bytes] {
    if (Paste) Paste(bytes);
  });
}

void Terminal::UserKey(vt::Key key, vt::Modifiers modifiers) {
  UserText(emulation_.Encode(key, modifiers));
}

void Terminal::UserSelect(Selection selection) {
  selection_ = std::move(selection);
  TellPeer(Prop::Selection);
  window().AsUserEventAtOnce([this] { Raise(SelectionChange); });
}

}  // namespace quorvel
