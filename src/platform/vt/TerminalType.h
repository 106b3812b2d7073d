#pragma once

namespace quorvel::vt {

// The terminals that can be chosen, numbered as in the settings.
enum class TerminalType : int {
  None = 1,  // bytes are shown as they are; CR, LF, BS, TAB, BEL and FF are obeyed
  VT52 = 2,
  VT100 = 3,
  VT220_7 = 4,
  VT220_8 = 5,
};

}  // namespace quorvel::vt
