#include "platform/qt/CopyRegistry.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QUuid>

namespace quorvel {
namespace {

constexpr int kPatience = 1000;         // milliseconds for a copy to answer
constexpr qint64 kLongestTitle = 4096;  // bytes; a longer request is none of ours
const char kYes[] = "yes";
const char kNo[] = "no";

QString RegistryFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (folder.isEmpty()) folder = QDir::homePath();
  folder += QStringLiteral("/quorvel-copies");
  QDir().mkpath(folder);
  QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return folder;
}

// Where the copy that is entered as `name` listens: local sockets are files on Unix, and have a
// space of names of their own on Windows.
QString AddressOf(const QString& folder, const QString& name) {
#ifdef Q_OS_WIN
  Q_UNUSED(folder);
  return name;
#else
  return folder + '/' + name + QStringLiteral(".socket");
#endif
}

}  // namespace

CopyRegistry::CopyRegistry(std::function<QString()> title, std::function<void()> raise)
    : title_(std::move(title)),
      raise_(std::move(raise)),
      folder_(RegistryFolder()),
      name_(QUuid::createUuid().toString(QUuid::Id128).left(16)) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, [this] { Answer(); });
  if (!server_.listen(AddressOf(folder_, name_))) return;  // nobody will find us; all else works
  QFile entry(folder_ + '/' + name_ + QStringLiteral(".copy"));
  entry.open(QIODevice::WriteOnly);
}

CopyRegistry::~CopyRegistry() {
  server_.close();
  QFile::remove(folder_ + '/' + name_ + QStringLiteral(".copy"));
}

// Addresses of the copies that are running, this one left out.
QStringList CopyRegistry::Others() const {
  QStringList running;
  const QDir folder(folder_);
  for (const QString& file : folder.entryList({QStringLiteral("*.copy")}, QDir::Files)) {
    const QString name = file.chopped(5);
    if (name == name_) continue;
    const QString address = AddressOf(folder_, name);
    QLocalSocket probe;
    probe.connectToServer(address);
    const bool lives = probe.waitForConnected(kPatience) ||
                       (probe.error() != QLocalSocket::ConnectionRefusedError &&
                        probe.error() != QLocalSocket::ServerNotFoundError);
    if (lives) {
      running << address;
    } else {  // left behind by a copy that was killed
      QLocalServer::removeServer(address);
      QFile::remove(folder.filePath(file));
    }
  }
  return running;
}

QString CopyRegistry::LockOf(const QString& path) const {
  const QByteArray name = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1);
  return folder_ + '/' + QString::fromLatin1(name.toHex().left(16)) + QStringLiteral(".lock");
}

bool CopyRegistry::OtherCopyRuns() const {
  return !Others().isEmpty();
}

bool CopyRegistry::Activate(const QString& title) const {
  for (const QString& address : Others()) {
    QLocalSocket socket;
    socket.connectToServer(address);
    if (!socket.waitForConnected(kPatience)) continue;
    socket.write(title.toUtf8().replace('\n', ' ') + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(kPatience)) {
    }
    if (socket.readLine().trimmed() == kYes) return true;
  }
  return false;
}

void CopyRegistry::Answer() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    socket->setReadBufferSize(kLongestTitle);
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket] {
      if (!socket->canReadLine()) {
        if (socket->bytesAvailable() >= kLongestTitle) socket->abort();
        return;
      }
      const QString wanted = QString::fromUtf8(socket->readLine()).chopped(1);
      const bool ours = wanted == title_().replace('\n', ' ');
      socket->write(QByteArray(ours ? kYes : kNo) + '\n');
      socket->flush();
      if (ours) raise_();
    };
    connect(socket, &QLocalSocket::readyRead, this, read);
    if (socket->bytesAvailable() > 0) read();
  }
}

}  // namespace quorvel
