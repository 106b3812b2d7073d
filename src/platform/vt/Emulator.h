#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/vt/Keys.h"
#include "platform/vt/Screen.h"
#include "platform/vt/Scrollback.h"
#include "platform/vt/TerminalType.h"

namespace quorvel::vt {

class Machine;

// A VT52, VT100 or VT220 without a window: bytes of the host go in, a screen and answers come out.
// After the VT220 Programmer Reference Manual (EK-VT220-RM), the VT100 User Guide and ECMA-48. It
// knows no clock, and the same bytes give the same screen however they are cut.
//
// Text of the upper half (0xA0 to 0xFF, and 0x80 to 0x9F where they are no C1 controls) is taken
// as Windows-1252. NUL and DEL are ignored.
class Emulator {
 public:
  explicit Emulator(int columns = 80, int rows = 24);
  ~Emulator();
  Emulator(Emulator&&) noexcept;
  Emulator& operator=(Emulator&&) noexcept;

  // --- output
  // Host output. When it is called from inside onPrint or onPrintEnd, the bytes wait until the
  // block under way is done. A failure thrown by these two is thrown on once the block is done.
  void Feed(std::string_view bytes);
  const Screen& screen() const;
  // What the terminal itself answers (DA, DSR ...), to be sent to the host; at most 64 KiB wait.
  std::string TakeAnswers();
  int TakeBells();  // BELs since the last call
  DirtyRows TakeDirty();

  // --- set-up; sizes are clamped (see Screen.h), numbers outside a type's range are ignored
  void SetType(TerminalType type);  // another type resets as DECSTR does, but keeps autowrap
  TerminalType Type() const;
  void SetSize(int columns, int rows);  // keeps what is shown; rows may go into the scroll-back
  void SetScrollbackRows(int rows);     // 0 .. 32,767
  void SetApplicationKeypad(bool on);   // the host changes these two as well
  void SetApplicationCursorKeys(bool on);
  bool ApplicationKeypad() const;
  bool ApplicationCursorKeys() const;
  void Reset();  // RIS: the state after power-up; the scroll-back stays

  // --- printing: bytes that the host sends to the printer behind the terminal
  void SetPassThrough(bool on);  // while off they are dropped
  std::function<void(std::string_view)> onPrint;
  // A piece of printing is complete (a print screen, the end of printer controller or auto print
  // mode). A single printed line is not: more of them may come.
  std::function<void()> onPrintEnd;

  // --- keys
  // The bytes that a key sends in the present modes; none while the host has locked the keyboard.
  // With Shift, F6 to F20 send what DECUDK has put on them.
  std::string Encode(Key key, Modifiers modifiers = {}) const;
  // Typed text, control characters resolved: the bytes as they are unless the keyboard is locked.
  std::string EncodeText(std::string_view bytes) const;
  bool LocalEcho() const;   // SRM: what is typed is to be fed back as well
  bool AutoRepeat() const;  // DECARM

  // --- lines by absolute index: 0 is the oldest scroll-back line, ScrollbackCount() the screen's
  // first row
  int ScrollbackCount() const;
  int LineCount() const;  // scroll-back and screen
  // Into a line that is used again and again: no allocation. Cells are cut or padded to the
  // screen's columns. Outside of 0 .. LineCount() - 1: a blank line.
  void ReadLine(int absoluteLine, Line& line) const;
  Line LineAt(int absoluteLine) const;
  // As many bytes of Windows-1252 as there are columns; line drawing becomes "+", "-" and "|".
  std::string LineText(int absoluteLine) const;
  void ClearScrollback();

 private:
  void FeedOne(std::string_view bytes);

  std::unique_ptr<Machine> machine_;
  bool feeding_ = false;
  std::string waiting_;  // fed while feeding
};

}  // namespace quorvel::vt
