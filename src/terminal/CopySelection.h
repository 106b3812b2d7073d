#pragma once

namespace quorvel {

// Takes the terminal's selection (SelectionStart, SelectionLength, SelectionScreen) to the
// clipboard: line by line, blanks at line ends cut off, each line followed by CR LF.
void CopySelection();

}  // namespace quorvel
