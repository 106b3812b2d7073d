#include "platform/vt/PrinterPort.h"

namespace quorvel::vt {
namespace {

// Handed over at this size, to call out seldom and still hold little.
constexpr std::size_t kPiece = 4096;

struct ControllerSequence {
  std::string_view text;
  bool ends;
  bool vt52;
};
constexpr ControllerSequence kSequences[] = {
    {"\x1B[4i", true, false},
    {"\x9B"
     "4i",
     true, false},
    {"\x1B[5i", false, false},
    {"\x9B"
     "5i",
     false, false},  // on already: not for the paper either
    {"\x1BX", true, true},
    {"\x1BW", false, true},
};

constexpr std::string_view kNeverPrinted("\0\x11\x13", 3);  // NUL, XON, XOFF

}  // namespace

void PrinterPort::StartController(bool vt52) {
  controller_ = true;
  vt52_ = vt52;
  held_.clear();
}

std::size_t PrinterPort::Take(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    // The owner may have reset the terminal meanwhile.
    if (TakeOne(bytes[i]) || !controller_) return i + 1;
  }
  return bytes.size();
}

// Returns whether the byte ended the mode.
bool PrinterPort::TakeOne(char byte) {
  if (held_.empty() && byte != '\x1B' && byte != '\x9B') {
    PrintRaw(byte);
    return false;
  }
  held_ += byte;
  while (!held_.empty()) {
    for (const ControllerSequence& sequence : kSequences) {
      if (sequence.vt52 != vt52_ || !sequence.text.starts_with(held_)) continue;
      if (sequence.text.size() > held_.size()) return false;
      held_.clear();
      if (!sequence.ends) return false;
      controller_ = false;
      End();
      return true;
    }
    PrintRaw(held_.front());
    held_.erase(0, 1);
  }
  return false;
}

void PrinterPort::PrintRaw(char byte) {
  if (kNeverPrinted.find(byte) == std::string_view::npos) Print(std::string_view(&byte, 1));
}

void PrinterPort::Print(std::string_view bytes) {
  if (!allowed) return;
  buffer_ += bytes;
  if (buffer_.size() >= kPiece) Deliver();
}

void PrinterPort::End() {
  if (!allowed) return;
  Deliver();
  if (!onPrintEnd || failure_) return;
  try {
    onPrintEnd();
  } catch (...) {
    failure_ = std::current_exception();
  }
}

void PrinterPort::Deliver() {
  const std::string piece = std::exchange(buffer_, {});
  if (piece.empty() || !onPrint || failure_) return;
  try {
    onPrint(piece);
  } catch (...) {
    failure_ = std::current_exception();
  }
}

void PrinterPort::Flush() {
  Deliver();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void PrinterPort::Reset() {
  controller_ = false;
  autoPrint = false;
  held_.clear();
}

}  // namespace quorvel::vt
