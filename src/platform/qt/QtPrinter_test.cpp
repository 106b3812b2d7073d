// Printing into PDF files, read back by another program.
#include "platform/qt/QtPrinter.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

std::string TextOf(const QString& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", pdf, "-"});
  if (!reader.waitForFinished(60'000) || reader.exitCode() != 0) return "pdftotext has failed";
  return reader.readAllStandardOutput().toStdString();
}

std::size_t CountOf(const std::string& what, const std::string& text) {
  std::size_t count = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

class QtPrinterTest : public ::testing::Test {
 protected:
  // As if the user had chosen this file in the dialog.
  QString Choose(QtPrinter& printer, const char* name) const {
    QString path = folder.filePath(name);
    printer.Current().setOutputFormat(QPrinter::PdfFormat);
    printer.Current().setOutputFileName(path);
    printer.TakeChoice();
    return path;
  }

  QTemporaryDir folder;
};

TEST_F(QtPrinterTest, TenThousandLinesInAMomentAndSearchable) {
  QtPrinter printer;
  const QString pdf = Choose(printer, "report.pdf");
  EXPECT_EQ(printer.DeviceName(), "PDF file " + PathToBytes(pdf));
  printer.SetFont("Courier New", 10);
  EXPECT_EQ(printer.FontSize(), 10);
  EXPECT_FALSE(printer.FontName().empty());
  QElapsedTimer time;
  time.start();
  for (int i = 1; i <= 10'000; ++i) {
    printer.PrintText("Line " + std::to_string(i) + "  caf\xE9  item of the stock count");
  }
  printer.EndDocument();
  RecordProperty("milliseconds", static_cast<int>(time.elapsed()));
  EXPECT_LT(time.elapsed(), 5'000);
  const std::string text = TextOf(pdf);
  EXPECT_EQ(CountOf("item of the stock count", text), 10'000u);
  EXPECT_EQ(CountOf("Line 10000 ", text), 1u);
  EXPECT_EQ(CountOf("caf\xC3\xA9", text), 10'000u);  // UTF-8 of the Windows-1252 byte
  EXPECT_GT(CountOf("\f", text), 100u);              // pages
}

TEST_F(QtPrinterTest, LongLinesGoOnAndFormFeedsTurnThePage) {
  QtPrinter printer;
  const QString pdf = Choose(printer, "wide.pdf");
  printer.PrintText(std::string(300, 'w') + "END");
  printer.PrintText("second\fthird page\twith a tab");
  printer.EndDocument();
  const std::string text = TextOf(pdf);
  EXPECT_EQ(CountOf("w", text), 301u);  // that of "with" too
  EXPECT_EQ(CountOf("END", text), 1u);
  EXPECT_LT(text.find("second"), text.find('\f'));
  EXPECT_GT(text.find("third page"), text.find('\f'));
}

TEST_F(QtPrinterTest, AnotherDocumentReplacesNoOther) {
  QtPrinter printer;
  const QString pdf = Choose(printer, "out.pdf");
  for (const char* text : {"one", "two", "three"}) {
    printer.PrintText(text);
    printer.EndDocument();
  }
  EXPECT_EQ(CountOf("one", TextOf(pdf)), 1u);
  EXPECT_EQ(CountOf("two", TextOf(folder.filePath("out-2.pdf"))), 1u);
  EXPECT_EQ(CountOf("three", TextOf(folder.filePath("out-3.pdf"))), 1u);
}

TEST_F(QtPrinterTest, AFileThatCanNotBeWrittenIsAPrinterError) {
  QtPrinter printer;
  printer.Current().setOutputFormat(QPrinter::PdfFormat);
  printer.Current().setOutputFileName(folder.filePath("no/such/folder/x.pdf"));
  printer.TakeChoice();
  try {
    printer.PrintText("x");
    FAIL() << "printed";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 482);
  }
}

}  // namespace
}  // namespace quorvel
