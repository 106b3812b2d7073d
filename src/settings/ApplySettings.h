#pragma once

namespace quorvel {

// Pushes the terminal's settings into the terminal control and fits it to the main window. An
// empty font or colour field leaves the control's present value; one that is no number is
// RuntimeError 13.
void ApplySettings();

}  // namespace quorvel
