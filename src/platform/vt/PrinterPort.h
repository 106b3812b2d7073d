#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace quorvel::vt {

// The printer behind the terminal (media copy, VT220 programmer reference, chapter 4). In printer
// controller mode all that comes from the host goes to it, not to the screen, except NUL, XON and
// XOFF, until the sequence that ends the mode. While printing is not allowed what would have been
// printed is dropped.
class PrinterPort {
 public:
  bool allowed = false;
  bool autoPrint = false;
  std::function<void(std::string_view)> onPrint;
  std::function<void()> onPrintEnd;

  bool ControllerOn() const { return controller_; }
  void StartController(bool vt52);
  // Works off bytes in printer controller mode; returns how many it took, which is all of them
  // unless the mode has ended.
  std::size_t Take(std::string_view bytes);
  void Print(std::string_view bytes);
  // The end of one piece of printing: what has been printed may go to the paper.
  void End();
  void Reset();

  // Hands over what is still held back. The first failure of onPrint or onPrintEnd since the last
  // call is thrown on from here, so that it never cuts the screen's work in the middle.
  void Flush();

 private:
  bool TakeOne(char byte);
  void PrintRaw(char byte);
  void Deliver();

  bool controller_ = false;
  bool vt52_ = false;
  std::string held_;    // the beginning of what may be an ending sequence
  std::string buffer_;  // not yet handed over
  std::exception_ptr failure_;
};

}  // namespace quorvel::vt
