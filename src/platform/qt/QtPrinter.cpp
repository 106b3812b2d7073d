#include "platform/qt/QtPrinter.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/qt/Looks.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr double kPoints = 10;
constexpr double kSmallestPoints = 4;
constexpr int kUsualColumns = 80;
constexpr std::size_t kTab = 8;  // columns from one tab stop to the next

// The name, or the next one with a number that no file has yet.
QString FreeName(const QString& stem) {
  QString name = stem + ".pdf";
  for (int i = 2; QFile::exists(name); ++i) name = stem + '-' + QString::number(i) + ".pdf";
  return name;
}

QString NewPdfName() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (folder.isEmpty() || !QDir().mkpath(folder)) folder = QDir::tempPath();
  return FreeName(folder + "/quorvel-" + QDateTime::currentDateTime().toString("yyyyMMdd-hhmmss"));
}

std::string WithoutTabs(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '\t') {
      out.append(kTab - out.size() % kTab, ' ');
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace

QtPrinter::QtPrinter() = default;

QtPrinter::~QtPrinter() {
  EndDocument();
}

QPrinter& QtPrinter::Current() {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

bool QtPrinter::PrintsToFile() {
  return QPrinterInfo::availablePrinterNames().isEmpty() ||
         Current().outputFormat() == QPrinter::PdfFormat;
}

void QtPrinter::OfferFile() {
  if (PrintsToFile()) Current().setOutputFileName(NewPdfName());
}

void QtPrinter::TakeChoice() {
  chosen_ = true;
  chosenFile_ =
      Current().outputFormat() == QPrinter::PdfFormat ? Current().outputFileName() : QString();
  chosenFileUsed_ = false;
}

std::string QtPrinter::DeviceName() {
  if (!PrintsToFile()) return ToBytes(Current().printerName());
  return chosenFile_.isEmpty() ? "PDF file" : "PDF file " + PathToBytes(chosenFile_);
}

void QtPrinter::SetFont(const std::string& name, double size) {
  font_ = quorvel::Font{name, size};
}

std::string QtPrinter::FontName() {
  return ToBytes(QFontInfo(FontFor(kUsualColumns, 0)).family());
}

double QtPrinter::FontSize() {
  const QFont onPaper(FontFor(kUsualColumns, 0), &Current());
  return std::round(QFontInfo(onPaper).pointSizeF() * 10) / 10;  // its dots are no whole points
}

// The font of the program; without one, the biggest of usual size that has `columns` in `width`.
QFont QtPrinter::FontFor(int columns, double width) {
  if (font_) return ToQFont(*font_);
  double points = kPoints;
  QFont font = ToQFont({"Courier New", points});
  while (width > 0 && points > kSmallestPoints &&
         QFontMetricsF(font, &Current()).horizontalAdvance('M') * columns > width) {
    points -= 0.5;
    font = ToQFont({"Courier New", points});
  }
  return font;
}

// Opens a document whose rows have room for at least `columns` characters, unless the program has
// chosen a font.
void QtPrinter::Begin(int columns) {
  if (painter_) return;
  QPrinter& printer = Current();
  printer.setDocName(QStringLiteral("Quorvel GUI"));
  if (PrintsToFile()) {
    // A document never replaces the one before it.
    const QFileInfo chosen(chosenFile_);
    const QString again = chosen.path() + '/' + chosen.completeBaseName();
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(chosenFile_.isEmpty() ? NewPdfName()
                              : chosenFileUsed_     ? FreeName(again)
                                                    : chosenFile_);
    chosenFileUsed_ = true;
  }
  auto painter = std::make_unique<QPainter>();
  if (!painter->begin(&printer)) throw RuntimeError(Failure::PrinterError);
  const double width = printer.pageRect(QPrinter::DevicePixel).width();
  const QFont font = FontFor(columns, width);
  painter->setFont(font);
  const double advance = QFontMetricsF(font, &printer).horizontalAdvance('M');
  columns_ = std::max(1, static_cast<int>(width / std::max(advance, 1.0)));
  painter_ = std::move(painter);
  y_ = 0;
}

void QtPrinter::NewPage() {
  if (!Current().newPage()) throw RuntimeError(Failure::PrinterError);
  y_ = 0;
}

void QtPrinter::PrintRow(const std::string& row) {
  const QFontMetricsF metrics(painter_->font(), &Current());
  if (y_ + metrics.height() > Current().pageRect(QPrinter::DevicePixel).height()) NewPage();
  painter_->drawText(QPointF(0, y_ + metrics.ascent()), ToUnicode(row));
  y_ += metrics.height();
}

void QtPrinter::PrintLine(const std::string& line) {
  const std::string text = WithoutTabs(line);
  const auto columns = static_cast<std::size_t>(columns_);
  std::size_t from = 0;
  do {
    PrintRow(text.substr(from, columns));
    from += columns;
  } while (from < text.size());
}

void QtPrinter::PrintText(const std::string& text) {
  RequirePrinter();
  Begin(kUsualColumns);
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\n') {
      PrintLine(std::exchange(line, {}));
    } else if (c == '\f') {
      if (!line.empty()) PrintLine(std::exchange(line, {}));
      if (y_ > 0) NewPage();
      if (i + 1 == text.size()) return;
    } else if (c != '\r') {
      line += c;
    }
  }
  PrintLine(line);
}

// Text of the host goes to a printer, or to the file that the user has chosen: not to a file of
// which nobody knows.
void QtPrinter::RequirePrinter() {
  if (painter_ || chosen_ || !QPrinterInfo::availablePrinterNames().isEmpty()) return;
  throw RuntimeError(Failure::PrinterError,
                     "There is no printer. Set one up, or choose a PDF file with Printer Setup.");
}

void QtPrinter::EndDocument() {
  if (!painter_) return;
  painter_->end();
  painter_.reset();
}

std::string QtPrinter::PrintScreen(const std::vector<std::string>& lines) {
  EndDocument();
  const std::optional<quorvel::Font> ofProgram = std::exchange(font_, std::nullopt);
  std::size_t widest = kUsualColumns;
  for (const std::string& line : lines) widest = std::max(widest, line.size());
  Begin(static_cast<int>(widest));
  for (const std::string& line : lines) PrintLine(line);
  EndDocument();
  font_ = ofProgram;
  const QString file = QDir::toNativeSeparators(Current().outputFileName());
  return PrintsToFile() ? PathToBytes(file) : std::string();
}

}  // namespace quorvel
