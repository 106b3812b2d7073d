#include "terminal/TerminalKeys.h"

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Requests.h"
#include "link/SessionState.h"
#include "platform/controls/TerminalControl.h"

namespace quorvel {
namespace {

bool IsFrom(KeyCode first, KeyCode last, int code) {
  return code >= static_cast<int>(first) && code <= static_cast<int>(last);
}

// The keys F13 and up have command strings too, but only the terminal knows them.
bool TakeFunctionKey(const KeyEvent& key) {
  const auto number =
      static_cast<std::size_t>(key.code) - static_cast<std::size_t>(KeyCode::F1) + 1;
  const SessionState& s = Session();
  const std::string command =
      key.shift == kNoShift ? s.FunctionKeys.at(number) : s.ShiftFunctionKeys.at(number);
  if (command.empty()) return false;
  Ask().SendCommandString(command);
  return true;
}

// What a key of the keypad sends to the host; 0 for one that stays with the terminal. The first
// three are no keys of a VT220's keypad, or would send their application sequence.
char PlainKey(int code, bool numeric) {
  switch (static_cast<KeyCode>(code)) {
    case KeyCode::Multiply:
      return '*';
    case KeyCode::Subtract:
      return '-';
    case KeyCode::Add:
      return '+';
    case KeyCode::Decimal:
      return numeric ? '.' : '\0';
    case KeyCode::NumpadEnter:
      return numeric ? CR : '\0';
    default:
      break;
  }
  const bool digit = IsFrom(KeyCode::Numpad0, KeyCode::Numpad9, code);
  return digit && numeric ? static_cast<char>('0' + code - static_cast<int>(KeyCode::Numpad0))
                          : '\0';
}

bool Take(Terminal& terminal, const KeyEvent& key) {
  if (IsFrom(KeyCode::F1, KeyCode::F12, key.code)) return TakeFunctionKey(key);
  if (key.code == static_cast<int>(KeyCode::NumLock)) return true;
  if (key.code == static_cast<int>(KeyCode::Divide)) {
    terminal.UserText("/");  // typed like the main key, whatever modifiers are down
    return true;
  }
  const char plain = PlainKey(key.code, Session().KeyPad == 0);
  if (plain == '\0') return false;
  SendToHost(std::string(1, plain));
  return true;
}

}  // namespace

void TakeTerminalKey(Terminal& terminal, KeyEvent& key) {
  if (Take(terminal, key)) key.code = 0;
}

}  // namespace quorvel
