#include "platform/qt/QtPrograms.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "platform/RuntimeError.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// A desktop gives a started program the keyboard by the time in its startup id; 0 asks for none
// (freedesktop.org, Startup Notification Protocol; _NET_WM_USER_TIME of the EWMH). On Wayland the
// keyboard comes with an activation token, which is left out.
void AskForNoFocus(QProcess& process) {
  static int started = 0;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(
      QStringLiteral("DESKTOP_STARTUP_ID"),
      QStringLiteral("quorvel-%1-%2_TIME0").arg(QCoreApplication::applicationPid()).arg(++started));
  environment.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
  process.setProcessEnvironment(environment);
}

}  // namespace

void QtPrograms::Start(const std::string& commandLine, ProgramWindow window) {
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
  QProcess process;
  process.setProgram(program);
  process.setArguments(words);
  if (window == ProgramWindow::NormalNoFocus || window == ProgramWindow::MinimizedNoFocus) {
    AskForNoFocus(process);
  }
  if (!process.startDetached()) throw RuntimeError(Failure::InvalidCall);
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
