#include "link/StartProgram.h"

#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

ProgramWindow WindowStyleOf(const std::string& text) {
  static constexpr std::string_view kStyles = "012346";  // 5 is none of the classic ones
  const bool known = text.size() == 1 && kStyles.find(text[0]) != std::string_view::npos;
  return known ? static_cast<ProgramWindow>(text[0] - '0') : ProgramWindow::NormalFocus;
}

void StartProgram(const std::string& command, ProgramWindow window) {
  bool notFound = false;
  try {
    desktop().backend().programs().Start(command, window);
  } catch (const RuntimeError& failure) {
    notFound = failure.failure() == Failure::FileNotFound;
  }
  desktop().Yield();
  if (!notFound) return;
  desktop().MsgBox("Command string " + std::string(WithoutLeadingBlanks(command)) + " not found!");
}

}  // namespace quorvel
