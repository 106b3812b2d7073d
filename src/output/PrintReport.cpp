#include "output/PrintReport.h"

#include <chrono>

#include "link/SessionState.h"
#include "output/frmPrintStatus.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/ReportLines.h"

namespace quorvel {
namespace {

// How often the count of lines is painted while they are printed.
constexpr auto kBetweenCounts = std::chrono::milliseconds(200);

std::string PrinterAndFont(Printer& printer) {
  return printer.DeviceName() + "\nFont Name: " + printer.FontName() +
         "\nFont Size: " + ShortNumber(printer.FontSize());
}

void ShowProgress(std::size_t line, std::size_t count) {
  frmPrintStatus* status = LoadedForm<frmPrintStatus>();
  if (!status) return;
  status->lblProgress.Caption = "Line " + std::to_string(line) + " of " + std::to_string(count);
  desktop().Paint();
}

void PrintLines(const ReportLines& lines, Printer& printer) {
  using Clock = std::chrono::steady_clock;
  auto shown = Clock::now();
  if (lines.Count() == 0) Try([&] { printer.PrintText(""); });  // an empty document is one, too
  for (std::size_t i = 0; i < lines.Count(); ++i) {
    Try([&] { printer.PrintText(std::string(lines.At(i))); });
    if (Clock::now() - shown < kBetweenCounts) continue;
    ShowProgress(i + 1, lines.Count());
    shown = Clock::now();
  }
}

}  // namespace

void PrintReport(const ReportLines& lines) {
  bool chosen = true;
  Try([&chosen] { chosen = desktop().ChoosePrinter(); });
  if (!chosen) return;
  Printer& printer = desktop().backend().printer();
  const auto owner = Form<frmPrintStatus>();
  frmPrintStatus& status = *owner;
  status.Show();
  Try([&] { status.lblPrinter.Caption = printer.DeviceName(); });
  desktop().Yield();
  const SessionState& s = Session();
  Try([&] { printer.SetFont(s.DefaultPrintFont, s.DefaultPrintFontSize); });
  if (frmPrintStatus* open = LoadedForm<frmPrintStatus>()) {
    Try([&] { open->lblPrinter.Caption = PrinterAndFont(printer); });
  }
  ShowProgress(0, lines.Count());
  PrintLines(lines, printer);
  Try([&] { printer.EndDocument(); });
  if (frmPrintStatus* open = LoadedForm<frmPrintStatus>()) open->Unload();
}

void ChoosePrinter() {
  Try([] { desktop().ChoosePrinter(); });
}

}  // namespace quorvel
