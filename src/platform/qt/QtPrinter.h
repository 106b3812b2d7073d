#pragma once

#include <QPrinter>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Application.h"
#include "platform/CommonDialogs.h"

class QPainter;

namespace quorvel {

// The current printer. Where the system has none, each document becomes a PDF file: the one that
// the user has chosen, or for a screen one of its own in the user's folder for documents. Text is
// printed in a font of fixed pitch; what does not fit the width of the page goes on in the next
// line.
class QtPrinter : public Printer {
 public:
  QtPrinter();
  ~QtPrinter() override;

  std::string DeviceName() override;
  void SetFont(const std::string& name, double size) override;
  std::string FontName() override;
  double FontSize() override;
  void PrintText(const std::string& text) override;
  void EndDocument() override;
  std::string PrintScreen(const std::vector<std::string>& lines) override;

  // For the dialog that sets it up.
  QPrinter& Current();
  // The dialog is about to open: a name for the file that it may print to.
  void OfferFile();
  // The dialog has set it up: what it says of a file is new.
  void TakeChoice();

 private:
  void Begin(int columns);
  void PrintLine(const std::string& line);
  void PrintRow(const std::string& row);
  void NewPage();

  bool PrintsToFile();
  void RequirePrinter();
  QFont FontFor(int columns, double width);

  std::optional<Font> font_;  // that of the program; without one, one that fits the columns
  bool chosen_ = false;       // the user has set the printer up
  QString chosenFile_;        // of the dialog
  bool chosenFileUsed_ = false;
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;  // while a document is open
  int columns_ = 0;                    // characters of a row
  double y_ = 0;                       // where the next row comes, in the printer's dots
};

}  // namespace quorvel
