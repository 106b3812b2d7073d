#include "platform/qt/CopyRegistry.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

namespace quorvel {
namespace {

constexpr int kAnswerMilliseconds = 500;
constexpr qint64 kLongestTitle = 4096;  // bytes; longer requests are none of ours
const QString kPrefix = QStringLiteral("quorvel-copy-");

// Asks the copy at `path` whether it has `title`: "yes" (and it has come to the front), "no", or
// empty when nobody answers.
QByteArray AskCopy(const QString& path, const QString& title) {
  QLocalSocket socket;
  socket.connectToServer(path);
  if (!socket.waitForConnected(kAnswerMilliseconds)) return {};
  socket.write(title.toUtf8() + '\n');
  while (!socket.canReadLine() && socket.waitForReadyRead(kAnswerMilliseconds)) {
  }
  return socket.readLine().trimmed();
}

}  // namespace

CopyRegistry::CopyRegistry(std::function<QString()> title, std::function<void()> raise)
    : title_(std::move(title)), raise_(std::move(raise)) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, [this] { Answer(); });
  server_.listen(Folder() + "/" + kPrefix + QString::number(QCoreApplication::applicationPid()));
}

CopyRegistry::~CopyRegistry() {
  server_.close();
}

// A folder that only this user can enter.
QString CopyRegistry::Folder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (folder.isEmpty()) folder = QDir::tempPath();
  return folder;
}

bool CopyRegistry::OtherCopyRuns() const {
  const QDir folder(Folder());
  const QDir::Filters kinds = QDir::System | QDir::Files;
  for (const QString& name : folder.entryList({kPrefix + "*"}, kinds)) {
    const QString path = folder.filePath(name);
    if (path == server_.fullServerName()) continue;
    QLocalSocket socket;
    socket.connectToServer(path);
    if (socket.waitForConnected(kAnswerMilliseconds)) return true;
    QLocalServer::removeServer(path);  // left behind by a copy that was killed
  }
  return false;
}

bool CopyRegistry::Activate(const QString& title) const {
  const QDir folder(Folder());
  for (const QString& name : folder.entryList({kPrefix + "*"}, QDir::System | QDir::Files)) {
    const QString path = folder.filePath(name);
    if (path != server_.fullServerName() && AskCopy(path, title) == "yes") return true;
  }
  return false;
}

void CopyRegistry::Answer() {
  QLocalSocket* socket = server_.nextPendingConnection();
  connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  const auto read = [this, socket] {
    if (!socket->canReadLine()) {
      if (socket->bytesAvailable() > kLongestTitle) socket->abort();
      return;
    }
    const bool ours = QString::fromUtf8(socket->readLine()).trimmed() == title_().trimmed();
    socket->write(ours ? "yes\n" : "no\n");
    socket->flush();
    if (ours) raise_();
  };
  connect(socket, &QLocalSocket::readyRead, this, read);
  read();
}

}  // namespace quorvel
