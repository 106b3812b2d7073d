// The telnet layer under any bytes of the host: the first byte of the input chooses how the rest is
// cut into reads. Any cutting must tell the same, and text that one end sends must arrive at the
// other as it was.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/telnet/Telnet.h"

namespace quorvel {
namespace {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

// The host's end: takes the listener, keeps what is written.
struct HostEnd {
  TransportListener* listener = nullptr;
  std::vector<std::string> writes;
};

class HostTransport : public Transport {
 public:
  explicit HostTransport(HostEnd& end) : end_(end) {}
  void Open(const std::string&, std::uint16_t, TransportListener& listener) override {
    end_.listener = &listener;
  }
  void Write(std::string_view bytes) override { end_.writes.emplace_back(bytes); }
  void Close() override {}
  void SetReading(bool) override {}

 private:
  HostEnd& end_;
};

struct Told {
  std::string text;
  std::vector<std::string> events;  // commands, each with the length of the text ahead of it
  bool operator==(const Told&) const = default;
};

// One connection that answers every command, as a client does.
class Client {
 public:
  Client() : telnet(std::make_unique<HostTransport>(host)) {
    telnet.onData = [this](std::string_view data) {
      Require(!data.empty(), "text is never empty");
      told.text += data;
    };
    telnet.onOption = [this](int command, int option) {
      Require(command >= 250 && command <= 254, "only commands with an option are told");
      told.events.push_back(std::to_string(told.text.size()) + ":" + std::to_string(command) + " " +
                            std::to_string(option));
      telnet.OptionReply(command, option, "\xFF");
    };
    telnet.Connect("host");
    host.listener->OnOpened();
  }

  HostEnd host;
  Told told;
  Telnet telnet;
};

Told WholeStream(std::string_view bytes) {
  Client client;
  client.host.listener->OnBytes(bytes);
  Require(client.told.text.size() <= bytes.size(), "no text that was not sent");
  Require(client.host.writes.size() == client.told.events.size(), "one write for each answer");
  return client.told;
}

Told CutStream(std::string_view bytes, unsigned seed) {
  Client client;
  while (!bytes.empty()) {
    seed = seed * 1103515245u + 12345u;  // any spread of sizes will do
    const std::size_t size = 1 + (seed >> 16) % 7;
    client.host.listener->OnBytes(bytes.substr(0, size));
    bytes.remove_prefix(std::min(size, bytes.size()));
  }
  return client.told;
}

// What arrives of a text: all but a NUL right behind a CR (RFC 854, "The NVT printer").
std::string WithoutPadding(std::string_view text) {
  std::string arrived;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i > 0 && text[i] == '\0' && text[i - 1] == '\r') continue;
    arrived += text[i];
  }
  return arrived;
}

void SendAcross(std::string_view text) {
  Client sender;
  Client receiver;
  sender.telnet.Send(text);
  for (const std::string& write : sender.host.writes) receiver.host.listener->OnBytes(write);
  Require(receiver.told.events.empty(), "text holds no command");
  Require(receiver.told.text == WithoutPadding(text), "text arrives as it was sent");
}

}  // namespace
}  // namespace quorvel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvel;
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  Require(WholeStream(bytes) == CutStream(bytes, data[0]), "cutting changes nothing");
  SendAcross(bytes);
  return 0;
}
