#include "platform/vt/Emulator.h"

#include <exception>
#include <utility>

#include "platform/vt/Machine.h"

namespace quorvel::vt {

Emulator::Emulator(int columns, int rows) : machine_(std::make_unique<Machine>(columns, rows)) {}
Emulator::~Emulator() = default;
Emulator::Emulator(Emulator&&) noexcept = default;
Emulator& Emulator::operator=(Emulator&&) noexcept = default;

void Emulator::Feed(std::string_view bytes) {
  if (feeding_) {
    waiting_ += bytes;
    return;
  }
  feeding_ = true;
  machine_->printer.onPrint = onPrint;
  machine_->printer.onPrintEnd = onPrintEnd;
  std::exception_ptr failure;
  std::string next;
  do {
    try {
      FeedOne(bytes);
    } catch (...) {
      if (!failure) failure = std::current_exception();
    }
    next = std::exchange(waiting_, {});
    bytes = next;
  } while (!bytes.empty());
  feeding_ = false;
  if (failure) std::rethrow_exception(failure);
}

void Emulator::FeedOne(std::string_view bytes) {
  while (!bytes.empty()) {
    const bool raw = machine_->printer.ControllerOn();
    bytes.remove_prefix(raw ? machine_->printer.Take(bytes)
                            : machine_->parser.Feed(bytes, *machine_));
  }
  machine_->printer.Flush();
}

const Screen& Emulator::screen() const {
  return machine_->screen;
}
std::string Emulator::TakeAnswers() {
  return std::exchange(machine_->answers, {});
}
int Emulator::TakeBells() {
  return std::exchange(machine_->bells, 0);
}

DirtyRows Emulator::TakeDirty() {
  return {machine_->screen.TakeDirtyBits(), std::exchange(machine_->scrolledOff, 0),
          std::exchange(machine_->dropped, 0), std::exchange(machine_->resized, false)};
}

void Emulator::SetType(TerminalType type) {
  machine_->SetType(type);
}

TerminalType Emulator::Type() const {
  return machine_->type;
}

void Emulator::SetSize(int columns, int rows) {
  machine_->Resize(columns, rows);
  machine_->setUp.columns = machine_->screen.Columns();
}

void Emulator::SetScrollbackRows(int rows) {
  if (rows == machine_->scrollback.Limit()) return;
  machine_->scrollback.SetLimit(rows);
  machine_->resized = true;
}

void Emulator::SetApplicationKeypad(bool on) {
  machine_->setUp.applicationKeypad = on;
  machine_->modes.applicationKeypad = on;
}

void Emulator::SetApplicationCursorKeys(bool on) {
  machine_->setUp.applicationCursorKeys = on;
  machine_->modes.applicationCursorKeys = on;
}

bool Emulator::ApplicationKeypad() const {
  return machine_->modes.applicationKeypad;
}
bool Emulator::ApplicationCursorKeys() const {
  return machine_->modes.applicationCursorKeys;
}

void Emulator::Reset() {
  machine_->HardReset();
}

void Emulator::SetPassThrough(bool on) {
  machine_->printer.allowed = on;
}

std::string Emulator::Encode(Key key, Modifiers modifiers) const {
  if (machine_->modes.keyboardLocked) return {};
  if (modifiers.shift && machine_->level == Level::Vt220) {
    const std::string& text = machine_->userKeys.TextOf(key);
    if (!text.empty()) return text;
  }
  return vt::Encode(key, modifiers, machine_->KeyModesNow());
}

std::string Emulator::EncodeText(std::string_view bytes) const {
  return machine_->modes.keyboardLocked ? std::string() : std::string(bytes);
}

bool Emulator::LocalEcho() const {
  return machine_->modes.localEcho;
}
bool Emulator::AutoRepeat() const {
  return machine_->modes.autoRepeat;
}

int Emulator::ScrollbackCount() const {
  return machine_->scrollback.Count();
}
int Emulator::LineCount() const {
  return ScrollbackCount() + screen().Rows();
}

void Emulator::ReadLine(int absoluteLine, Line& line) const {
  const int columns = screen().Columns();
  const int row = absoluteLine - ScrollbackCount();
  if (absoluteLine >= 0 && row < 0) {
    machine_->scrollback.Read(absoluteLine, columns, line);
  } else if (row >= 0 && row < screen().Rows()) {
    const auto cells = screen().Row(row);
    line.cells.assign(cells.begin(), cells.end());
    line.attribute = screen().LineAttributeAt(row);
    line.wrapped = screen().Wrapped(row);
  } else {
    line = Line{std::vector<Cell>(static_cast<std::size_t>(columns))};
  }
}

Line Emulator::LineAt(int absoluteLine) const {
  Line line;
  ReadLine(absoluteLine, line);
  return line;
}

std::string Emulator::LineText(int absoluteLine) const {
  return Machine::TextOf(LineAt(absoluteLine).cells);
}

void Emulator::ClearScrollback() {
  machine_->scrollback.Clear();
  machine_->resized = true;
}

}  // namespace quorvel::vt
