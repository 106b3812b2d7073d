#include "platform/qt/QtDialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QMessageBox>
#include <QPrintDialog>

#include "platform/controls/Desktop.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/BoxAbove.h"
#include "platform/qt/Looks.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr int kPrinterDialogWidth = 560;  // pixels: room for a path

// True when the user has agreed. The end of the program leaves the dialog's loop like a cancel.
bool IsAgreed(QDialog& dialog, const char* name) {
  dialog.setObjectName(QLatin1String(name));
  dialog.setAccessibleName(dialog.windowTitle());
  dialog.setAccessibleDescription(AccessibleDescription(QString(), name));
  const BoxAbove above(&dialog);
  QObject::connect(&dialog, &QDialog::finished, &dialog, [] { desktop().BoxHasClosed(); });
  return dialog.exec() == QDialog::Accepted;
}

// "Description | *.ext | Description | *.ext": the toolkit wants "Description (*.ext)".
QStringList FiltersOf(const std::string& filter) {
  QStringList filters;
  const QStringList parts = ToCaption(filter).split('|');
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString pattern = parts[i + 1].trimmed().replace(';', ' ');
    if (pattern == "*.*") pattern = "*";  // all files, also those without a point
    QString text = parts[i].trimmed();
    text.truncate(text.lastIndexOf('(') > 0 ? text.lastIndexOf('(') : text.size());
    filters << text.trimmed() + " (" + pattern + ")";
  }
  return filters;
}

}  // namespace

std::optional<std::string> QtDialogs::ChooseFile(const FileDialog& wanted) {
  const bool open = wanted.purpose == FileDialog::Purpose::Open;
  QFileDialog dialog;
  dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  const bool mustExist = open && (wanted.flags & FileDialog::kFileMustExist) != 0;
  dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite,
                   (wanted.flags & FileDialog::kOverwritePrompt) == 0);
  dialog.setDefaultSuffix(ToCaption(wanted.defaultExtension));
  if (!wanted.title.empty()) dialog.setWindowTitle(ToCaption(wanted.title));
  if (!wanted.initialFolder.empty()) dialog.setDirectory(PathToUnicode(wanted.initialFolder));
  const QStringList filters = FiltersOf(wanted.filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  if (!wanted.fileName.empty()) dialog.selectFile(PathToUnicode(wanted.fileName));
  while (IsAgreed(dialog, "FileDialog") && !dialog.selectedFiles().isEmpty()) {
    const QString path = dialog.selectedFiles().constFirst();
    const QDir folder = QFileInfo(path).dir();
    if ((wanted.flags & FileDialog::kPathMustExist) == 0 || folder.exists()) {
      return PathToBytes(QDir::toNativeSeparators(path));
    }
    QMessageBox::warning(&dialog, dialog.windowTitle(),
                         "There is no folder " + QDir::toNativeSeparators(folder.path()));
  }
  return std::nullopt;
}

std::optional<std::uint32_t> QtDialogs::ChooseColour(std::uint32_t present) {
  QColorDialog dialog(ToQColor(static_cast<int>(present & 0xFFFFFF)));
  if (!IsAgreed(dialog, "ColourDialog")) return std::nullopt;
  const QColor colour = dialog.currentColor();
  return static_cast<std::uint32_t>(colour.red() + 256 * colour.green() + 65536 * colour.blue());
}

std::optional<quorvel::Font> QtDialogs::ChooseFont(const quorvel::Font& present) {
  QFontDialog dialog(ToQFont(present));
  if (!IsAgreed(dialog, "FontDialog")) return std::nullopt;
  const QFont font = dialog.currentFont();
  return quorvel::Font{ToBytes(font.family()), font.pointSizeF(), font.bold(), font.italic()};
}

bool QtDialogs::ChoosePrinter() {
  printer_.OfferFile();
  QPrintDialog dialog(&printer_.Current());
  dialog.setMinimumWidth(kPrinterDialogWidth);
  if (!IsAgreed(dialog, "PrinterDialog")) return false;
  printer_.TakeChoice();
  return true;
}

}  // namespace quorvel
