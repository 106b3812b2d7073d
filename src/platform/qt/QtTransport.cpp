#include "platform/qt/QtTransport.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QPointer>
#include <utility>

#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// Most that is read ahead of the program, in bytes; beyond it the network holds the host back.
constexpr qint64 kReadBuffer = qint64{256} * 1024;

}  // namespace

QtTransport::~QtTransport() {
  Drop();
}

void QtTransport::Open(const std::string& host, std::uint16_t port, TransportListener& listener) {
  Drop();
  listener_ = &listener;
  opened_ = false;
  reading_ = true;
  socket_ = new QTcpSocket(QCoreApplication::instance());
  socket_->setProxy(QNetworkProxy::NoProxy);
  socket_->setReadBufferSize(kReadBuffer);
  connect(socket_, &QTcpSocket::connected, this, [this] {
    opened_ = true;
    socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    listener_->OnOpened();
  });
  connect(socket_, &QTcpSocket::readyRead, this, [this] { Read(); });
  connect(socket_, &QTcpSocket::disconnected, this, [this] {
    const QPointer<QTcpSocket> ended(socket_);
    reading_ = true;
    Read();  // what came before the end
    // The listener may have closed meanwhile, or opened anew.
    if (ended && socket_ == ended && listener_) listener_->OnClosed();
  });
  connect(socket_, &QTcpSocket::errorOccurred, this, [this] {
    // The end of an open connection is told by `disconnected`.
    if (!opened_ && listener_) listener_->OnFailed(ToBytes(socket_->errorString()));
  });
  // An address that needs no look-up may fail at once: not from inside this call.
  QMetaObject::invokeMethod(
      socket_,
      [socket = socket_, name = QString::fromStdString(host), port] {
        socket->connectToHost(name, port);
      },
      Qt::QueuedConnection);
}

void QtTransport::Read() {
  QPointer<QtTransport> self(this);
  QPointer<QTcpSocket> socket(socket_);
  while (self && socket && socket == socket_ && listener_ && reading_ &&
         socket->bytesAvailable() > 0) {
    const QByteArray bytes = socket->read(kReadBuffer);
    if (bytes.isEmpty()) return;
    listener_->OnBytes(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  }
}

void QtTransport::Write(std::string_view bytes) {
  if (socket_ && opened_) socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtTransport::SetReading(bool reading) {
  if (reading_ == reading) return;
  reading_ = reading;
  if (reading)
    QMetaObject::invokeMethod(
        this, [this] { Read(); }, Qt::QueuedConnection);
}

void QtTransport::Close() {
  Drop();
}

// Nothing is heard of the connection any more, but what has been written still goes out.
void QtTransport::Drop() {
  listener_ = nullptr;
  if (!socket_) return;
  QTcpSocket* socket = std::exchange(socket_, nullptr);
  socket->disconnect(this);
  if (!opened_) {
    socket->abort();
    socket->deleteLater();
    return;
  }
  connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
  socket->flush();
  socket->disconnectFromHost();
  if (socket->state() == QAbstractSocket::UnconnectedState) socket->deleteLater();
}

}  // namespace quorvel
