#pragma once

#include "platform/Application.h"

namespace quorvel {

// Window styles are asked for where the platform can be asked; X11 and Wayland can't.
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
