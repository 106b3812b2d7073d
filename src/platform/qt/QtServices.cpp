#include "platform/qt/QtServices.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontDialog>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>

#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/qt/Text.h"
#include "platform/qt/WidgetPeers.h"
#include "platform/qt/WindowPeers.h"

namespace quorvel {

// --- the application

QtApplication::QtApplication(const QStringList& arguments)
    : copies_([this] { return ToUnicode(title_); },
              [this] {
                if (!window_) return;
                window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
                window_->raise();
                window_->activateWindow();
              }) {
  if (arguments.size() > 1) commandLine_ = PathToBytes(arguments.mid(1).join(' '));
}

std::string QtApplication::Folder() {
  QString folder = qEnvironmentVariable("QUORVEL_HOME");
  if (folder.isEmpty()) {
#ifdef Q_OS_WIN
    folder = QCoreApplication::applicationDirPath();
#else
    folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quorvel";
#endif
  }
  if (!QDir().mkpath(folder)) {
    throw RuntimeError(Failure::PathNotFound, std::string(FailureText(Failure::PathNotFound)) +
                                                  ": " + PathToBytes(folder));
  }
  return PathToBytes(QDir::toNativeSeparators(QDir::cleanPath(folder)));
}

char QtApplication::PathSeparator() const {
  return QDir::separator().toLatin1();
}

bool QtApplication::ActivateCopy(const std::string& title) {
  return copies_.Activate(ToUnicode(title));
}

// --- dialogs

int QtDialogs::Exec(QDialog& dialog, const char* name) {
  dialog.setObjectName(name);
  dialog.setAccessibleDescription(AccessibleDescription(QString(), name));
  const QPointer<QDialog> outer = open_;
  open_ = &dialog;
  PlaceAbove(QApplication::activeWindow(), dialog);
  const int answer = dialog.exec();
  open_ = outer;
  GiveKeyboardBack();
  return answer;
}

void QtDialogs::CloseOpen() {
  if (open_) open_->reject();
}

std::optional<std::string> QtDialogs::ChooseFile(const FileDialog& wanted) {
  const bool open = wanted.purpose == FileDialog::Purpose::Open;
  QFileDialog dialog;
  dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  dialog.setFileMode(open && (wanted.flags & FileDialog::kFileMustExist) ? QFileDialog::ExistingFile
                                                                         : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite,
                   (wanted.flags & FileDialog::kOverwritePrompt) == 0);
  if (!wanted.title.empty()) dialog.setWindowTitle(ToCaption(wanted.title));
  if (!wanted.initialFolder.empty()) dialog.setDirectory(PathToUnicode(wanted.initialFolder));
  dialog.setDefaultSuffix(ToCaption(wanted.defaultExtension));
  // "Description (*.inf) | *.inf": pairs of a text and its pattern.
  QStringList filters;
  const QStringList parts = ToCaption(wanted.filter).split('|');
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters << parts[i].trimmed();
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  if (!wanted.fileName.empty()) dialog.selectFile(PathToUnicode(wanted.fileName));
  if (Exec(dialog, "FileDialog") != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return {};
  return PathToBytes(QDir::toNativeSeparators(dialog.selectedFiles().first()));
}

std::optional<std::uint32_t> QtDialogs::ChooseColour(std::uint32_t present) {
  QColorDialog dialog(ToQColor(static_cast<int>(present)));
  if (Exec(dialog, "ColourDialog") != QDialog::Accepted) return {};
  const QColor colour = dialog.currentColor();
  return static_cast<std::uint32_t>(colour.red() + 256 * colour.green() + 65536 * colour.blue());
}

std::optional<quorvel::Font> QtDialogs::ChooseFont(const quorvel::Font& present) {
  QFontDialog dialog(ToQFont(present));
  if (Exec(dialog, "FontDialog") != QDialog::Accepted) return {};
  const QFont font = dialog.currentFont();
  return quorvel::Font{ToBytes(font.family()), font.pointSizeF(), font.bold(), font.italic()};
}

bool QtDialogs::ChoosePrinter() {
  auto& printer = static_cast<QtPrinter&>(desktop().backend().printer());
  QPrintDialog dialog(&printer.Current());
  return Exec(dialog, "PrinterDialog") == QDialog::Accepted;
}

// --- clipboard

std::string QtClipboard::Text() {
  return ToBytes(QApplication::clipboard()->text());
}
void QtClipboard::SetText(const std::string& text) {
  QApplication::clipboard()->setText(ToUnicode(text));
}
void QtClipboard::Clear() {
  QApplication::clipboard()->clear();
}

// --- printer

QtPrinter::QtPrinter() = default;
QtPrinter::~QtPrinter() = default;

QPrinter& QtPrinter::Current() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
      printer_->setOutputFormat(QPrinter::PdfFormat);
      QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
      if (folder.isEmpty() || !QDir().mkpath(folder)) folder = QDir::tempPath();
      printer_->setOutputFileName(folder + "/quorvel.pdf");
    }
  }
  return *printer_;
}

void QtPrinter::PrintLine(const QString& line) {
  QPrinter& printer = Current();
  if (!painter_) {
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(&printer)) {
      painter_.reset();
      throw RuntimeError(Failure::PrinterError);
    }
    QFont font = ToQFont({"Courier New", 10});
    painter_->setFont(font);
    y_ = 0;
  }
  const QFontMetricsF metrics(painter_->font(), &printer);
  if (y_ + metrics.height() > printer.pageRect(QPrinter::DevicePixel).height()) {
    printer.newPage();
    y_ = 0;
  }
  painter_->drawText(QPointF(0, y_ + metrics.ascent()), line);
  y_ += metrics.height();
}

void QtPrinter::PrintText(const std::string& text) {
  std::size_t from = 0;
  while (true) {
    const auto end = text.find('\n', from);
    std::string line = text.substr(from, end == std::string::npos ? end : end - from);
    while (!line.empty() && line.back() == '\r') line.pop_back();
    // A form feed begins a new page.
    for (auto feed = line.find('\f'); feed != std::string::npos; feed = line.find('\f')) {
      if (feed > 0) PrintLine(ToUnicode(line.substr(0, feed)));
      if (painter_) {
        Current().newPage();
        y_ = 0;
      }
      line.erase(0, feed + 1);
    }
    PrintLine(ToUnicode(line));
    if (end == std::string::npos || end + 1 == text.size()) return;
    from = end + 1;
  }
}

void QtPrinter::EndDocument() {
  if (!painter_) return;
  painter_->end();
  painter_.reset();
}

void QtPrinter::PrintScreen(const std::vector<std::string>& lines) {
  EndDocument();
  for (const std::string& line : lines) PrintLine(ToUnicode(line));
  EndDocument();
}

// --- programs

void QtPrograms::Start(const std::string& commandLine, ProgramWindow) {
  QStringList words = QProcess::splitCommand(ToUnicode(commandLine));
  if (words.isEmpty()) throw RuntimeError(Failure::FileNotFound);
  const QString name = words.takeFirst();
  QString program = name;
  if (!name.contains('/') && !name.contains('\\')) program = QStandardPaths::findExecutable(name);
  if (program.isEmpty() || !QFileInfo::exists(program)) throw RuntimeError(Failure::FileNotFound);
  if (!QFileInfo(program).isExecutable()) throw RuntimeError(Failure::PermissionDenied);
  if (!QProcess::startDetached(program, words)) throw RuntimeError(Failure::InvalidCall);
}

}  // namespace quorvel
