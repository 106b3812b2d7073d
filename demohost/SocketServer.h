// Sessions over TCP on the loopback interface. All protocol is in HostSession; this only carries
// bytes.
#pragma once

#include <QTcpServer>
#include <cstdint>
#include <memory>
#include <vector>

#include "demohost/Application.h"
#include "demohost/HostSession.h"

class QTcpSocket;

namespace quorvel::demohost {

class SocketServer final : public QObject {
 public:
  explicit SocketServer(Application& application);
  ~SocketServer() override;

  /// Port 0 takes a free one. False if it can't be had; Error() says why.
  bool Listen(std::uint16_t port);
  std::uint16_t Port() const;
  std::string Error() const;

 private:
  struct Link {
    QTcpSocket* socket;
    std::unique_ptr<HostSession> session;
    bool closing = false;
    bool flushing = false;
  };

  void Accept();
  void Serve(QTcpSocket* socket);
  void Drop(QTcpSocket* socket);
  void FlushAll();
  void Flush(Link& link);
  int FreePort() const;

  Application& application_;
  QTcpServer server_;
  std::vector<std::unique_ptr<Link>> links_;
};

}  // namespace quorvel::demohost
