#pragma once

#include "platform/vt/Machine.h"
#include "platform/vt/Sequence.h"

// The control functions, by family. Each is called with the machine and the sequence that named
// it; which sequence that is stands in the tables of Functions.cpp.
namespace quorvel::vt::functions {

// FunctionsControl.cpp: C0 and C1 controls
void Bell(Machine& m);
void Backspace(Machine& m);
void Tab(Machine& m);
void LineFeed(Machine& m);
void FormFeed(Machine& m);
void CarriageReturn(Machine& m);
void ShiftOut(Machine& m);
void ShiftIn(Machine& m);
void Substitute(Machine& m);
void Index(Machine& m);
void NextLine(Machine& m);
void SetTab(Machine& m);
void ReverseIndex(Machine& m);
void SingleShift2(Machine& m);
void SingleShift3(Machine& m);
void Identify(Machine& m);

using Arguments = const Sequence&;

// FunctionsCursor.cpp: cursor, tabs, margins, save and restore
void CursorUp(Machine& m, Arguments a);
void CursorDown(Machine& m, Arguments a);
void CursorForward(Machine& m, Arguments a);
void CursorBackward(Machine& m, Arguments a);
void CursorNextLine(Machine& m, Arguments a);
void CursorPreviousLine(Machine& m, Arguments a);
void CursorColumn(Machine& m, Arguments a);
void CursorRow(Machine& m, Arguments a);
void CursorPosition(Machine& m, Arguments a);
void TabForward(Machine& m, Arguments a);
void TabBackward(Machine& m, Arguments a);
void ClearTabs(Machine& m, Arguments a);
void SetMargins(Machine& m, Arguments a);
void SaveCursor(Machine& m, Arguments a);
void RestoreCursor(Machine& m, Arguments a);

// FunctionsEdit.cpp: insert, delete, erase, line attributes
void InsertCharacters(Machine& m, Arguments a);
void DeleteCharacters(Machine& m, Arguments a);
void EraseCharacters(Machine& m, Arguments a);
void InsertLines(Machine& m, Arguments a);
void DeleteLines(Machine& m, Arguments a);
void EraseInDisplay(Machine& m, Arguments a);
void EraseInLine(Machine& m, Arguments a);
void SelectiveEraseInDisplay(Machine& m, Arguments a);
void SelectiveEraseInLine(Machine& m, Arguments a);
void ScrollUp(Machine& m, Arguments a);
void ScrollDown(Machine& m, Arguments a);
void DoubleHeightTop(Machine& m, Arguments a);
void DoubleHeightBottom(Machine& m, Arguments a);
void SingleWidth(Machine& m, Arguments a);
void DoubleWidth(Machine& m, Arguments a);
void AlignmentPattern(Machine& m, Arguments a);

// FunctionsMode.cpp: modes, levels, resets
void SetMode(Machine& m, Arguments a);
void ResetMode(Machine& m, Arguments a);
void SetPrivateMode(Machine& m, Arguments a);
void ResetPrivateMode(Machine& m, Arguments a);
void ApplicationKeypad(Machine& m, Arguments a);
void NumericKeypad(Machine& m, Arguments a);
void SevenBitControls(Machine& m, Arguments a);
void EightBitControls(Machine& m, Arguments a);
void ConformanceLevel(Machine& m, Arguments a);
void SoftReset(Machine& m, Arguments a);
void HardReset(Machine& m, Arguments a);

// FunctionsRendition.cpp: attributes, colours, character sets
void GraphicRendition(Machine& m, Arguments a);
void CharacterProtection(Machine& m, Arguments a);
void Designate(Machine& m, Arguments a);
void LockingShift(Machine& m, Arguments a);

// FunctionsReport.cpp: reports and printing
void DeviceAttributes(Machine& m, Arguments a);
void SecondaryAttributes(Machine& m, Arguments a);
void StatusReport(Machine& m, Arguments a);
void PrivateStatusReport(Machine& m, Arguments a);
void TerminalParameters(Machine& m, Arguments a);
void MediaCopy(Machine& m, Arguments a);
void PrivateMediaCopy(Machine& m, Arguments a);

// FunctionsVt52.cpp: ESC and one character in VT52 mode
void Vt52(Machine& m, char final, int row, int column);

}  // namespace quorvel::vt::functions
