#include "platform/qt/QtTransport.h"

#include "platform/qt/Text.h"

namespace quorvel {
namespace {

// Most that is read ahead of the program, in bytes; beyond it the network holds the host back.
constexpr qint64 kReadBuffer = 256 * 1024;

}  // namespace

QtTransport::~QtTransport() {
  Drop();
}

void QtTransport::Open(const std::string& host, std::uint16_t port, TransportListener& listener) {
  Drop();
  listener_ = &listener;
  reading_ = true;
  socket_ = new QTcpSocket(this);
  socket_->setReadBufferSize(kReadBuffer);
  connect(socket_, &QTcpSocket::connected, this, [this] {
    socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (listener_) listener_->OnOpened();
  });
  connect(socket_, &QTcpSocket::readyRead, this, [this] { Read(); });
  connect(socket_, &QTcpSocket::disconnected, this, [this] {
    reading_ = true;
    Read();  // what came before the end
    if (listener_) listener_->OnClosed();
  });
  connect(socket_, &QTcpSocket::errorOccurred, this, [this] {
    // The end of an open connection is told by disconnected.
    const auto state = socket_->state();
    if (state == QAbstractSocket::ConnectedState || state == QAbstractSocket::ClosingState) return;
    if (listener_) listener_->OnFailed(ToBytes(socket_->errorString()));
  });
  socket_->connectToHost(QString::fromStdString(host), port);
}

void QtTransport::Read() {
  while (socket_ && listener_ && reading_ && socket_->bytesAvailable() > 0) {
    const QByteArray bytes = socket_->read(kReadBuffer);
    if (bytes.isEmpty()) return;
    listener_->OnBytes(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  }
}

void QtTransport::Write(std::string_view bytes) {
  if (socket_) socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
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

// What has been written still goes out; nothing is heard of the connection any more.
void QtTransport::Drop() {
  listener_ = nullptr;
  if (!socket_) return;
  QTcpSocket* socket = std::exchange(socket_, nullptr);
  socket->disconnect(this);
  socket->setParent(nullptr);
  connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
  connect(socket, &QTcpSocket::errorOccurred, socket, &QObject::deleteLater);
  if (socket->state() == QAbstractSocket::ConnectedState) {
    socket->disconnectFromHost();
    if (socket->state() != QAbstractSocket::UnconnectedState) return;
  } else {
    socket->abort();
  }
  socket->deleteLater();
}

}  // namespace quorvel
