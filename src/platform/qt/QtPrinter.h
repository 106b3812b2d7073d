#pragma once

#include <QPrinter>
#include <memory>
#include <string>
#include <vector>

#include "platform/Application.h"

class QPainter;

namespace quorvel {

// The current printer. Where the system has none, each document becomes a PDF file of its own in
// the user's folder for documents. Text is printed in a font of fixed pitch; what does not fit the
// width of the page goes on in the next line.
class QtPrinter : public Printer {
 public:
  QtPrinter();
  ~QtPrinter() override;

  void PrintText(const std::string& text) override;
  void EndDocument() override;
  void PrintScreen(const std::vector<std::string>& lines) override;

  // For the dialog that sets it up.
  QPrinter& Current();

 private:
  void Begin(int columns);
  void PrintLine(const std::string& line);
  void PrintRow(const std::string& row);
  void NewPage();

  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;  // while a document is open
  int columns_ = 0;                    // characters of a row
  double y_ = 0;                       // where the next row comes, in the printer's dots
};

}  // namespace quorvel
