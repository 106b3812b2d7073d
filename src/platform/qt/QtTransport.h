#pragma once

#include <QTcpSocket>

#include "platform/telnet/Transport.h"

namespace quorvel {

// A TCP connection, IPv4 or IPv6. Look-up and connecting run beside the window; the connection is
// kept alive by the network's own probes and sends small writes without delay.
class QtTransport : public QObject, public Transport {
 public:
  QtTransport() = default;
  ~QtTransport() override;

  void Open(const std::string& host, std::uint16_t port, TransportListener& listener) override;
  void Write(std::string_view bytes) override;
  void Close() override;
  void SetReading(bool reading) override;

 private:
  void Read();
  void Drop();

  QTcpSocket* socket_ = nullptr;
  TransportListener* listener_ = nullptr;
  bool opened_ = false;
  bool reading_ = true;
};

}  // namespace quorvel
