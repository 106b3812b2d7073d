#include "terminal/CommandStrings.h"

#include <iterator>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "link/StartProgram.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TextBox.h"
#include "settings/SettingFaults.h"

namespace quorvel {
namespace {

bool StartsProgram(const std::string& text) {
  return text.starts_with(kDosMark);
}

// "command, window style"
void StartFrom(const std::string& rest) {
  const std::string command = FieldOf(rest, ",", 1);
  if (WithoutLeadingBlanks(command).empty()) return;
  StartProgram(std::string(WithoutLeadingBlanks(command)), WindowStyleOf(FieldOf(rest, ",", 2)));
}

}  // namespace

void SendCommandString(std::string& text) {
  constexpr std::size_t kMarkLength = std::size(kDosMark) - 1;
  if (StartsProgram(text)) return StartFrom(text.substr(kMarkLength));
  text = ExpandCommandString(text);
  if (text.empty()) return;
  for (const char c : text) SendToHost(std::string(1, c));
  if (text.starts_with("SY.DOS") || Session().ScreenLoaded != kFalse) return;
  Ask().FocusTelnetWindow();
}

std::string CommandStringFault(const std::string& text) {
  std::string fault = SettingFault(text);
  if (!fault.empty() || StartsProgram(text)) return fault;
  try {
    ExpandCommandString(text);
  } catch (const RuntimeError&) {
    return kCodeTooHigh;
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
