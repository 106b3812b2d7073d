#include "terminal/CommandStrings.h"

#include <algorithm>
#include <iterator>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TextBox.h"
#include "settings/SettingFaults.h"

namespace quorvel {
namespace {

struct WindowStyle {
  const char* number;
  ProgramWindow window;
};
constexpr WindowStyle kStyles[] = {
    {"0", ProgramWindow::Hidden},         {"1", ProgramWindow::NormalFocus},
    {"2", ProgramWindow::MinimizedFocus}, {"3", ProgramWindow::MaximizedFocus},
    {"4", ProgramWindow::NormalNoFocus},  {"6", ProgramWindow::MinimizedNoFocus},
};

ProgramWindow StyleOf(const std::string& number) {
  const auto found = std::find_if(std::begin(kStyles), std::end(kStyles),
                                  [&](const WindowStyle& style) { return number == style.number; });
  return found == std::end(kStyles) ? ProgramWindow::NormalFocus : found->window;
}

bool StartsProgram(const std::string& text) {
  return text.starts_with(kDosMark);
}

void StartProgram(const std::string& rest) {
  std::string command = FieldOf(rest, ",", 1);
  const ProgramWindow window = StyleOf(FieldOf(rest, ",", 2));
  command.erase(0, command.find_first_not_of(' '));
  if (command.empty()) return;
  try {
    desktop().backend().programs().Start(command, window);
    desktop().Yield();
  } catch (const RuntimeError& failure) {
    if (failure.failure() != Failure::FileNotFound) return;
    desktop().MsgBox("Command string " + command + " not found!");
  }
}

}  // namespace

void SendCommandString(std::string& text) {
  constexpr std::size_t kMarkLength = std::size(kDosMark) - 1;
  if (StartsProgram(text)) return StartProgram(text.substr(kMarkLength));
  text = ExpandCommandString(text);
  if (text.empty()) return;
  for (const char c : text) SendToHost(std::string(1, c));
  if (text.starts_with("SY.DOS") || Session().ScreenLoaded != kFalse) return;
  Ask().FocusTelnetWindow();
}

std::string CommandStringFault(const std::string& text) {
  const std::string fault = SettingFault(text);
  if (!fault.empty() || StartsProgram(text)) return fault;
  try {
    ExpandCommandString(text);
  } catch (const RuntimeError&) {
    return "has a code above 255; a character has one from 0 to 255.";
  }
  return {};
}

void BindInsertMenu(const Window& window, MenuItem& enter, MenuItem& escape, MenuItem& program) {
  const auto inserting = [&window](const char* notation) {
    return [&window, notation] {
      Control* box = window.ActiveControl();
      if (!box || box->kind() != ControlKind::TextBox) return;
      static_cast<TextBox*>(box)->Insert(notation);
    };
  };
  enter.Click = inserting("^[13]");
  escape.Click = inserting("^[27]");
  program.Click = inserting(kDosMark);
}

}  // namespace quorvel
