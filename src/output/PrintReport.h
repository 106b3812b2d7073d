#pragma once

namespace quorvel {

class ReportLines;

// Prints lines on a printer that the user chooses, in the print font of the settings, one printed
// line each. The user interface stands still meanwhile; failures are passed over in silence.
void PrintReport(const ReportLines& lines);

// Lets the user choose the current printer. A cancel or a failure changes nothing.
void ChoosePrinter();

}  // namespace quorvel
