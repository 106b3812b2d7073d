#include "platform/qt/QtApplication.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr int kMostCopies = 1000;  // of one user

QString FolderOfUser() {
  QString asked = qEnvironmentVariable("QUORVEL_HOME");
  if (!asked.isEmpty()) return asked;
#ifdef Q_OS_WIN
  return QCoreApplication::applicationDirPath();
#else
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quorvel";
#endif
}

}  // namespace

QtApplication::QtApplication(const QStringList& arguments)
    : copies_([this] { return ToUnicode(title_); }, [this] { ComeToFront(); }) {
  // A path with blanks needs no quotes: all words together are one path.
  commandLine_ = PathToBytes(arguments.mid(1).join(' '));
}

void QtApplication::ComeToFront() {
  if (!window_) return;
  window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
  window_->raise();
  window_->activateWindow();
}

std::string QtApplication::Folder() {
  const QString folder = QDir::cleanPath(QDir(FolderOfUser()).absolutePath());
  if (!QDir().mkpath(folder)) {
    throw RuntimeError(Failure::PathNotFound, std::string(FailureText(Failure::PathNotFound)) +
                                                  ": " + PathToBytes(folder));
  }
  return PathToBytes(QDir::toNativeSeparators(folder));
}

// The lock ends with the process, however that ends. It lies with the copies' own entries, under a
// name that tells the application folder.
std::string QtApplication::OwnPathOf(const std::string& name) {
  const std::string path = PathOf(name);
  const std::size_t point = std::min(name.rfind('.'), name.size());
  for (int copy = 1; copy <= kMostCopies; ++copy) {
    const std::string number = copy == 1 ? "" : "-" + std::to_string(copy);
    const std::string own = PathOf(name.substr(0, point) + number + name.substr(point));
    auto lock = std::make_unique<QLockFile>(copies_.LockOf(PathToUnicode(own)));
    lock->setStaleLockTime(0);
    const bool unusable = !lock->tryLock(0) && lock->error() != QLockFile::LockFailedError;
    if (unusable) return path;  // no locks here: as if it were alone
    if (!lock->isLocked()) continue;
    taken_.push_back(std::move(lock));
    return own;
  }
  return path;
}

std::vector<std::string> QtApplication::Drives() {
  std::vector<std::string> drives;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    // What the system mounts for itself (/proc, /sys ...) holds no files of the user.
    const bool system = volume.device().isEmpty() || !volume.device().contains('/');
    if (volume.isRoot() || (volume.isValid() && volume.isReady() && !system)) {
      drives.push_back(PathToBytes(QDir::toNativeSeparators(volume.rootPath())));
    }
  }
  std::sort(drives.begin(), drives.end());
  drives.erase(std::unique(drives.begin(), drives.end()), drives.end());
  return drives;
}

std::string QtApplication::ShortDate() {
  return ToBytes(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

char QtApplication::PathSeparator() const {
  return QDir::separator().toLatin1();
}

bool QtApplication::ActivateCopy(const std::string& title) {
  return copies_.Activate(ToUnicode(title));
}

}  // namespace quorvel
