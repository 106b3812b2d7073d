#pragma once

class QAccessibleInterface;

namespace quorvel {

class TerminalWidget;

// What assistive tools read of a terminal: role Terminal and the text interface over the rows that
// are shown, at fixed width and joined by LF, with caret, selection, character rectangles, colours
// and weight.
QAccessibleInterface* MakeAccessible(TerminalWidget* widget);

// Tells assistive tools what has changed in the text since the last call, and where the caret is.
// To be called only while something listens.
void AnnounceTerminal(TerminalWidget& widget);

}  // namespace quorvel
