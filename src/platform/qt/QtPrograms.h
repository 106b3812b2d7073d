#pragma once

#include "platform/Application.h"

namespace quorvel {

// Of the window styles, a program is asked not to take the keyboard (4 and 6). No desktop of X11 or
// Wayland can be asked to hide, minimise or maximise the window of another program: it comes up as
// the program and the desktop think fit.
class QtPrograms : public Programs {
 public:
  void Start(const std::string& commandLine, ProgramWindow window) override;
};

class QtClipboard : public Clipboard {
 public:
  std::string Text() override;
  void SetText(const std::string& text) override;
  void Clear() override;
};

}  // namespace quorvel
