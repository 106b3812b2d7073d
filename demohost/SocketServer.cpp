#include "demohost/SocketServer.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

namespace quorvel::demohost {
namespace {

constexpr std::size_t kLinkLimit = 64;  // each holds a few hundred KiB at most while it is read
// What is taken from a client at a time, and how much may wait for it unread. A request of a few
// bytes can bring a record of 32,000, so a client that only asks is not listened to until it reads,
// and is dropped if others' messages still make it grow.
constexpr qint64 kReadSize = qint64{4} * 1024;
constexpr qint64 kWaitAbove = qint64{1024} * 1024;
constexpr qint64 kDropAbove = qint64{16} * 1024 * 1024;
// A client that does not read its last lines after log-off.
constexpr int kCloseMilliseconds = 5000;

}  // namespace

SocketServer::SocketServer(Application& application) : application_(application) {
  connect(&server_, &QTcpServer::newConnection, this, &SocketServer::Accept);
}

SocketServer::~SocketServer() {
  for (const auto& link : links_) {
    link->socket->disconnect(this);
    link->socket->abort();
  }
}

bool SocketServer::Listen(std::uint16_t port) {
  return server_.listen(QHostAddress::LocalHost, port);
}

std::uint16_t SocketServer::Port() const {
  return server_.serverPort();
}

std::string SocketServer::Error() const {
  return server_.errorString().toStdString();
}

void SocketServer::Accept() {
  while (auto* socket = server_.nextPendingConnection()) {
    if (links_.size() >= kLinkLimit) {
      socket->abort();
      socket->deleteLater();
      continue;
    }
    socket->setReadBufferSize(16 * kReadSize);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Serve(socket); });
    connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] { Serve(socket); });
    // Queued: a socket may be dropped while the list is being walked.
    connect(
        socket, &QTcpSocket::disconnected, this, [this, socket] { Drop(socket); },
        Qt::QueuedConnection);
    auto session = std::make_unique<HostSession>(application_, FreePort());
    session->Start();
    links_.push_back(std::make_unique<Link>(Link{socket, std::move(session)}));
    FlushAll();
  }
}

void SocketServer::Serve(QTcpSocket* socket) {
  const auto link = std::find_if(links_.begin(), links_.end(),
                                 [socket](const auto& each) { return each->socket == socket; });
  if (link == links_.end()) return;
  auto& session = *(*link)->session;
  while (socket->bytesAvailable() > 0 && !session.Ended() && socket->bytesToWrite() < kWaitAbove) {
    const auto bytes = socket->read(kReadSize);
    session.Receive({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    FlushAll();
  }
  Flush(**link);  // a printout goes on when there is room
}

// One event of one session can print in all of them.
void SocketServer::FlushAll() {
  for (const auto& link : links_) Flush(*link);
}

void SocketServer::Flush(Link& link) {
  // Flushing the socket tells of written bytes, which leads back here: what the session has next
  // must not overtake the rest of what has been taken.
  if (link.closing || link.flushing) return;
  link.flushing = true;
  for (;;) {
    const bool room = link.socket->bytesToWrite() < kWaitAbove;
    const auto writes = link.session->TakeWrites(room);
    for (const auto& bytes : writes) {
      link.socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
      link.socket->flush();  // each part in a write of its own
    }
    if (writes.empty() || !room) break;
  }
  link.flushing = false;
  if (link.session->Ended()) {
    link.closing = true;
    link.socket->disconnectFromHost();
    QTimer::singleShot(kCloseMilliseconds, link.socket, &QTcpSocket::abort);
  } else if (link.socket->bytesToWrite() > kDropAbove) {
    link.closing = true;
    link.socket->abort();
  }
}

void SocketServer::Drop(QTcpSocket* socket) {
  const auto gone =
      std::erase_if(links_, [socket](const auto& link) { return link->socket == socket; });
  if (gone > 0) socket->deleteLater();
}

// The smallest number that no session has.
int SocketServer::FreePort() const {
  int port = 1;
  const auto taken = [&](const auto& link) { return link->session->Port() == port; };
  while (std::any_of(links_.begin(), links_.end(), taken)) ++port;
  return port;
}

}  // namespace quorvel::demohost
