#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/telnet/Transport.h"

namespace quorvel {

// A host and its port as the user writes them: "host", "host:2323", "[::1]:2323", "::1".
struct HostAddress {
  std::string host;
  std::optional<std::string> port;  // as written; not checked
};
HostAddress ParseHostAddress(const std::string& text);

// The telnet protocol (RFC 854) over a Transport: text without commands, commands as events.
//
// Outgoing text goes as it stands, IAC doubled; a bare CR stays bare. Of incoming text IAC IAC is
// one character 255, and a NUL right behind a CR is dropped (hosts end lines CR NUL LF), also
// across reads. Sub-negotiations of any length are taken, cut anywhere; of their content only the
// option is kept. Text is held back no longer than the read that it came with.
//
// A handler may call Close or Connect; it must not destroy the object.
class Telnet final : private TransportListener {
 public:
  enum class Connection { Closed = 0, Connected = 4, Connecting = 6 };

  explicit Telnet(std::unique_ptr<Transport> transport);
  ~Telnet();
  Telnet(const Telnet&) = delete;
  Telnet& operator=(const Telnet&) = delete;

  std::string RemotePort = "23";

  // Ignored while a connection is there or under way. A port in `address` goes before RemotePort.
  // A port that is none is told by onFailed, from inside this call.
  void Connect(const std::string& address);
  Connection State() const { return state_; }
  // One write; nothing when not connected.
  void Send(std::string_view text);
  // No event comes after this; the state is Closed when it returns.
  void Close();
  // A telnet command in one write: IAC command option, or for command 250 a sub-negotiation with
  // its text.
  void OptionReply(int command, int option, std::string_view text);
  void SetReading(bool reading) { transport_->SetReading(reading); }

  std::function<void()> onConnect;
  std::function<void(std::string_view data)> onData;
  std::function<void()> onClosed;  // the far side ended it
  // A command with its option: 250 sub-option, 251 WILL, 252 WONT, 253 DO, 254 DONT; in its place
  // in the stream.
  std::function<void(int command, int option)> onOption;
  // `where` is host and port.
  std::function<void(const std::string& where, const std::string& reason)> onFailed;

 private:
  // Where the parser is in the stream.
  enum class Place { Text, Iac, Option, SubOption, Sub, SubIac };

  void OnOpened() override;
  void OnBytes(std::string_view bytes) override;
  void OnClosed() override;
  void OnFailed(const std::string& reason) override;

  std::size_t PlainRun(std::string_view bytes) const;
  void Take(unsigned char byte);
  void TakeText(unsigned char byte);
  void TakeCommand(unsigned char byte);
  void FlushText();
  void Report(int command, int option);

  std::unique_ptr<Transport> transport_;
  Connection state_ = Connection::Closed;
  unsigned session_ = 0;  // counts connects and closes: a handler may have ended this one
  std::string where_;
  Place place_ = Place::Text;
  int command_ = 0;
  int subOption_ = 0;
  bool afterCr_ = false;
  std::string text_;
};

}  // namespace quorvel
