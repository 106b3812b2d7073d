#include "platform/qt/QtPrinter.h"

#include <QDateTime>
#include <QDir>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/qt/Looks.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr double kPoints = 10;
constexpr double kSmallestPoints = 4;
constexpr int kUsualColumns = 80;
constexpr std::size_t kTab = 8;  // columns from one tab stop to the next

// A name that no document has yet.
QString NewPdfName() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (folder.isEmpty() || !QDir().mkpath(folder)) folder = QDir::tempPath();
  const QString stem =
      folder + "/quorvel-" + QDateTime::currentDateTime().toString("yyyyMMdd-hhmmss");
  QString name = stem + ".pdf";
  for (int i = 2; QFile::exists(name); ++i) name = stem + '-' + QString::number(i) + ".pdf";
  return name;
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

// Opens a document whose rows have room for at least `columns` characters.
void QtPrinter::Begin(int columns) {
  if (painter_) return;
  QPrinter& printer = Current();
  printer.setDocName(QStringLiteral("Quorvel GUI"));
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(NewPdfName());
  }
  auto painter = std::make_unique<QPainter>();
  if (!painter->begin(&printer)) throw RuntimeError(Failure::PrinterError);
  const double width = printer.pageRect(QPrinter::DevicePixel).width();
  double points = kPoints;
  double advance = 0;
  do {
    painter->setFont(ToQFont({"Courier New", points}));
    advance = QFontMetricsF(painter->font(), &printer).horizontalAdvance('M');
    points -= 0.5;
  } while (advance * columns > width && points >= kSmallestPoints);
  columns_ = std::max(1, static_cast<int>(width / advance));
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
  Begin(kUsualColumns);
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\n') {
      PrintLine(std::exchange(line, {}));
      if (i + 1 == text.size()) return;  // the end of the text ends no further line
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

void QtPrinter::EndDocument() {
  if (!painter_) return;
  painter_->end();
  painter_.reset();
}

void QtPrinter::PrintScreen(const std::vector<std::string>& lines) {
  EndDocument();
  std::size_t widest = kUsualColumns;
  for (const std::string& line : lines) widest = std::max(widest, line.size());
  Begin(static_cast<int>(widest));
  for (const std::string& line : lines) PrintLine(line);
  EndDocument();
}

}  // namespace quorvel
