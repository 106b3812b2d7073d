#include "platform/telnet/Telnet.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/PlainText.h"

namespace quorvel {
namespace {

// RFC 854
constexpr unsigned char kIac = 255;
constexpr unsigned char kWill = 251;
constexpr unsigned char kDont = 254;
constexpr unsigned char kSub = 250;
constexpr unsigned char kSubEnd = 240;

std::string Doubled(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    out += c;
    if (static_cast<unsigned char>(c) == kIac) out += c;
  }
  return out;
}

std::optional<std::uint16_t> PortNumber(std::string_view text) {
  text = Trimmed(text);
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc{} || end != text.data() + text.size() || port == 0) return std::nullopt;
  return port;
}

std::string Where(const std::string& host, const std::string& port) {
  const bool address6 = host.find(':') != std::string::npos;
  return (address6 ? "[" + host + "]" : host) + ":" + port;
}

}  // namespace

HostAddress ParseHostAddress(const std::string& text) {
  if (text.substr(0, 1) == "[") {
    const auto end = text.find(']');
    if (end == std::string::npos) return {text, std::nullopt};
    const std::string host = text.substr(1, end - 1);
    const std::string behind = text.substr(end + 1);
    if (behind.empty()) return {host, std::nullopt};
    if (behind.front() == ':') return {host, behind.substr(1)};
    return {text, std::nullopt};
  }
  const auto colon = text.find(':');
  // More than one colon is a bare IPv6 address.
  if (colon == std::string::npos || text.find(':', colon + 1) != std::string::npos) {
    return {text, std::nullopt};
  }
  return {text.substr(0, colon), text.substr(colon + 1)};
}

Telnet::Telnet(std::unique_ptr<Transport> transport) : transport_(std::move(transport)) {}

Telnet::~Telnet() {
  transport_->Close();
}

void Telnet::Connect(const std::string& address) {
  if (state_ != Connection::Closed) return;
  const HostAddress parsed = ParseHostAddress(address);
  const std::string portText = parsed.port.value_or(RemotePort);
  where_ = Where(parsed.host, portText);
  const auto port = PortNumber(portText);
  if (!port) {
    if (onFailed) onFailed(where_, "\"" + portText + "\" is not a port number");
    return;
  }
  state_ = Connection::Connecting;
  ++session_;
  place_ = Place::Text;
  afterCr_ = false;
  text_.clear();
  transport_->Open(parsed.host, *port, *this);
}

void Telnet::Send(std::string_view text) {
  if (state_ == Connection::Connected && !text.empty()) transport_->Write(Doubled(text));
}

void Telnet::Close() {
  ++session_;
  state_ = Connection::Closed;
  text_.clear();
  transport_->Close();
}

void Telnet::OptionReply(int command, int option, std::string_view text) {
  if (state_ != Connection::Connected) return;
  const char head[] = {static_cast<char>(kIac), static_cast<char>(command),
                       static_cast<char>(option)};
  std::string bytes(head, sizeof head);
  if (command == kSub) {
    bytes += Doubled(text);
    bytes += static_cast<char>(kIac);
    bytes += static_cast<char>(kSubEnd);
  }
  transport_->Write(bytes);
}

void Telnet::OnOpened() {
  if (state_ != Connection::Connecting) return;
  state_ = Connection::Connected;
  if (onConnect) onConnect();
}

void Telnet::OnClosed() {
  if (state_ == Connection::Connecting) return OnFailed("The connection was closed");
  if (state_ != Connection::Connected) return;
  ++session_;
  state_ = Connection::Closed;
  if (onClosed) onClosed();
}

void Telnet::OnFailed(const std::string& reason) {
  if (state_ == Connection::Connected) return OnClosed();
  if (state_ != Connection::Connecting) return;
  ++session_;
  state_ = Connection::Closed;
  if (onFailed) onFailed(where_, reason);
}

void Telnet::OnBytes(std::string_view bytes) {
  if (state_ != Connection::Connected) return;
  const unsigned session = session_;
  while (!bytes.empty()) {
    if (const std::size_t plain = PlainRun(bytes); plain > 0) {
      text_.append(bytes, 0, plain);
      bytes.remove_prefix(plain);
      continue;
    }
    Take(static_cast<unsigned char>(bytes.front()));
    bytes.remove_prefix(1);
    if (session_ != session) return;  // a handler has ended the connection
  }
  FlushText();
}

// How many bytes at the front of `bytes` are text as they stand. Nearly all that a host sends is,
// and goes past the state machine.
std::size_t Telnet::PlainRun(std::string_view bytes) const {
  if (place_ != Place::Text || afterCr_) return 0;
  const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) {
    return c == '\r' || static_cast<unsigned char>(c) == kIac;
  });
  return static_cast<std::size_t>(end - bytes.begin());
}

void Telnet::Take(unsigned char byte) {
  switch (place_) {
    case Place::Text:
      return TakeText(byte);
    case Place::Iac:
      return TakeCommand(byte);
    case Place::Option:
      place_ = Place::Text;
      return Report(command_, byte);
    case Place::SubOption:
      subOption_ = byte;
      place_ = Place::Sub;
      return;
    case Place::Sub:
      if (byte == kIac) place_ = Place::SubIac;
      return;
    case Place::SubIac:
      place_ = byte == kSubEnd ? Place::Text : Place::Sub;
      if (byte == kSubEnd) Report(kSub, subOption_);
      return;
  }
}

void Telnet::TakeText(unsigned char byte) {
  if (byte == kIac) {
    place_ = Place::Iac;
    return;
  }
  const bool padding = byte == 0 && afterCr_;
  afterCr_ = byte == '\r';
  if (!padding) text_ += static_cast<char>(byte);
}

void Telnet::TakeCommand(unsigned char byte) {
  place_ = Place::Text;
  if (byte == kIac) {
    afterCr_ = false;
    text_ += static_cast<char>(kIac);
  } else if (byte == kSub) {
    place_ = Place::SubOption;
  } else if (byte >= kWill && byte <= kDont) {
    command_ = byte;
    place_ = Place::Option;
  }
  // All others (NOP, GA, AYT, data mark ...) ask nothing of a terminal.
}

void Telnet::Report(int command, int option) {
  const unsigned session = session_;
  FlushText();
  if (session_ == session && onOption) onOption(command, option);
}

void Telnet::FlushText() {
  if (text_.empty()) return;
  const std::string text = std::exchange(text_, {});
  if (onData) onData(text);
}

}  // namespace quorvel
