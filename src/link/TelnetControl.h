#pragma once

#include <functional>
#include <memory>
#include <string>

#include "link/BlockQueue.h"
#include "platform/telnet/Telnet.h"

namespace quorvel {

class Window;

// TELNET1, the control that makes the link: the telnet protocol, with its events queued so that
// each block of the host is one event of the desktop. Telnet commands are answered at once, in
// the order of the stream.
class TelnetControl {
 public:
  // The state that reads "connected".
  static constexpr int kConnected = 4;

  // `owner` is the window whose events these are; events in flight hold it alive.
  explicit TelnetControl(Window& owner);

  void SetRemotePort(const std::string& port) { telnet_.RemotePort = port; }
  // "host", "host:port", "[address]:port"; a port here goes before the control's. Ignored while a
  // connection is there or under way.
  void Connect(const std::string& host);
  int State() const { return static_cast<int>(telnet_.State()); }
  // Neither connected nor about to be.
  bool IsIdle() const { return telnet_.State() == Telnet::Connection::Closed; }
  void Send(const std::string& text) { telnet_.Send(text); }
  // The state is not kConnected any more when this returns; one empty block follows.
  void Close();
  void OptionReply(int command, int option, const std::string& text);

  std::function<void()> ConnectEvent;
  // The connection could not be made; `where` is host and port.
  std::function<void(const std::string& where, const std::string& reason)> FailEvent;
  // Text has arrived; empty text means that the connection has ended.
  std::function<void(std::string& data)> ReceiveEvent;
  std::function<void(int command, int option)> OptionEvent;

 private:
  void PostNextBlock();
  void DeliverBlock();
  void PostEnd();

  Window& owner_;
  Telnet telnet_;
  BlockQueue blocks_;
  unsigned session_ = 0;  // counts connects and closes: an event in flight may be of an older one
  bool posted_ = false;   // a delivery is on its way
  bool ended_ = false;    // the peer has closed: the empty block follows the last one
};

}  // namespace quorvel
