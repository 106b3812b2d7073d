#include "platform/qt/QtPrograms.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "platform/RuntimeError.h"
#include "platform/qt/Text.h"

namespace quorvel {

void QtPrograms::Start(const std::string& commandLine, ProgramWindow) {
  QStringList words = QProcess::splitCommand(PathToUnicode(commandLine));
  if (words.isEmpty()) throw RuntimeError(Failure::FileNotFound);
  const QString name = words.takeFirst();
  const QFileInfo file(name);
  const bool isPath = name.contains('/') || name.contains('\\');
  if (isPath && !file.exists()) throw RuntimeError(Failure::FileNotFound);
  if (isPath && !(file.isFile() && file.isExecutable())) {
    throw RuntimeError(Failure::PermissionDenied);
  }
  const QString program = isPath ? file.absoluteFilePath() : QStandardPaths::findExecutable(name);
  if (program.isEmpty()) throw RuntimeError(Failure::FileNotFound);
  if (!QProcess::startDetached(program, words)) throw RuntimeError(Failure::InvalidCall);
}

std::string QtClipboard::Text() {
  return ToBytes(QApplication::clipboard()->text());
}

void QtClipboard::SetText(const std::string& text) {
  QApplication::clipboard()->setText(ToUnicode(text));
}

void QtClipboard::Clear() {
  QApplication::clipboard()->clear();
}

}  // namespace quorvel
