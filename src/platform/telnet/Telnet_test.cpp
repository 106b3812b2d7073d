#include "platform/telnet/Telnet.h"

#include <random>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using namespace std::string_literals;

// What the transport was asked for, in order.
struct TransportLog {
  std::vector<std::string> opened;
  std::vector<std::string> written;
  int closed = 0;
  TransportListener* listener = nullptr;
};

class LoggingTransport : public Transport {
 public:
  explicit LoggingTransport(TransportLog& log) : log_(log) {}
  void Open(const std::string& host, std::uint16_t port, TransportListener& listener) override {
    log_.opened.push_back(host + " " + std::to_string(port));
    log_.listener = &listener;
  }
  void Write(std::string_view bytes) override { log_.written.emplace_back(bytes); }
  void Close() override { ++log_.closed; }
  void SetReading(bool) override {}

 private:
  TransportLog& log_;
};

// A telnet layer and all that it told: text as it came, "<command option>" for a command, and the
// other events by name.
class TelnetTest : public ::testing::Test {
 protected:
  TelnetTest() : telnet(std::make_unique<LoggingTransport>(log)) {
    telnet.onConnect = [this] { told += "{connect}"; };
    telnet.onData = [this](std::string_view data) { told += data; };
    telnet.onClosed = [this] { told += "{closed}"; };
    telnet.onFailed = [this](const std::string& where, const std::string& reason) {
      told += "{failed " + where + "}";
      reasons.push_back(reason);
    };
    telnet.onOption = [this](int command, int option) {
      told += "<" + std::to_string(command) + " " + std::to_string(option) + ">";
    };
  }

  void Open() {
    telnet.Connect("host");
    log.listener->OnOpened();
    told.clear();
  }

  std::string Told() { return std::exchange(told, {}); }

  TransportLog log;
  std::string told;
  std::vector<std::string> reasons;
  Telnet telnet;
};

struct Stream {
  const char* name;
  std::string bytes;
  std::string told;
};

const std::vector<Stream>& Streams() {
  static const std::vector<Stream> streams = {
      {"plain text", "login: ", "login: "},
      {"doubled IAC", "a\xFF\xFF"s + "b", "a\xFF"s + "b"},
      {"two doubled IAC", "\xFF\xFF\xFF\xFF", "\xFF\xFF"},
      {"commands in place", "a\xFF\xFD\x18"s + "b\xFF\xFB\x01"s + "c", "a<253 24>b<251 1>c"},
      {"WONT, DONT", "\xFF\xFC\x03\xFF\xFE\xFF", "<252 3><254 255>"},
      {"line ends with NUL", "a\r\0\nb\r\0c"s, "a\r\nb\rc"},
      {"NUL that is text", "a\0b\0"s, "a\0b\0"s},
      {"only the first NUL", "\r\0\0"s, "\r\0"s},
      {"CR CR NUL", "\r\r\0x"s, "\r\rx"},
      {"CR LF NUL", "\r\n\0"s, "\r\n\0"s},
      {"CR, doubled IAC, NUL", "\r\xFF\xFF\0"s, "\r\xFF\0"s},
      {"CR, command, NUL", "\r\xFF\xFD\x1F\0x"s, "\r<253 31>x"},
      {"sub-negotiation", "a\xFF\xFA\x18\x01\xFF\xF0"s + "b", "a<250 24>b"},
      {"IAC inside", "\xFF\xFA\x18\xFF\xFF\xF0text\xFF\xF0x", "<250 24>x"},
      {"content is no text",
       "\xFF\xFA\x1F\r\0\xF0\x7F"s + std::string(70'000, '\xAA') + "\xFF\xF0z"s, "<250 31>z"},
      {"empty sub-negotiation", "\xFF\xFA\x1F\xFF\xF0z", "<250 31>z"},
      {"commands without option", "a\xFF\xF1\xFF\xF2\xFF\xF6\xFF\xF9\xFF\xF0"s + "b", "ab"},
      {"unknown command", "a\xFF\x01"s + "b", "ab"},
  };
  return streams;
}

TEST_F(TelnetTest, TakesCommandsOutOfTheText) {
  for (const Stream& stream : Streams()) {
    Open();
    log.listener->OnBytes(stream.bytes);
    EXPECT_EQ(Told(), stream.told) << stream.name;
    telnet.Close();
  }
}

// Reads of a network end anywhere: any cutting tells the same, in the same order.
TEST_F(TelnetTest, CuttingChangesNothing) {
  std::mt19937 random(854);
  std::string bytes, expected;
  for (const Stream& stream : Streams()) {
    // Every cut in two, for the whole road of states; long ones near their ends only.
    for (std::size_t cut = 1; cut < stream.bytes.size(); ++cut) {
      if (cut > 40 && cut + 10 < stream.bytes.size()) continue;
      Open();
      log.listener->OnBytes(std::string_view(stream.bytes).substr(0, cut));
      log.listener->OnBytes(std::string_view(stream.bytes).substr(cut));
      ASSERT_EQ(Told(), stream.told) << stream.name << " cut at " << cut;
      telnet.Close();
    }
    bytes += stream.bytes + "|";
    expected += stream.told + "|";
  }
  for (int round = 0; round < 20; ++round) {
    Open();
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t size = random() % (round % 2 ? 3000 : 4);
      log.listener->OnBytes(std::string_view(bytes).substr(at, size));
      at += size;
    }
    ASSERT_EQ(Told(), expected);
    telnet.Close();
  }
}

TEST_F(TelnetTest, SendsInOneWriteWithIacDoubled) {
  telnet.Send("lost");
  telnet.OptionReply(251, 24, "");
  EXPECT_TRUE(log.written.empty());
  Open();
  telnet.Send("OFF\r");
  telnet.Send("a\xFF\0\n"s);
  telnet.Send("");
  telnet.OptionReply(252, 3, "");
  telnet.OptionReply(250, 24, "\0vt\xFF"s);
  const std::vector<std::string> expected = {"OFF\r", "a\xFF\xFF\0\n"s, "\xFF\xFC\x03",
                                             "\xFF\xFA\x18\0vt\xFF\xFF\xFF\xF0"s};
  EXPECT_EQ(log.written, expected);
}

TEST_F(TelnetTest, AddressesAndPorts) {
  const struct {
    std::string address, remotePort, opened, failed;
  } cases[] = {
      {"host", "23", "host 23", ""},
      {"host", "2323", "host 2323", ""},
      {"host:992", "2323", "host 992", ""},
      {"[::1]:2323", "23", "::1 2323", ""},
      {"[::1]", "23", "::1 23", ""},
      {"::1", "65535", "::1 65535", ""},
      {"fe80::1:2323", "23", "fe80::1:2323 23", ""},
      {"host", "Port", "", "host:Port"},
      {"host:0", "23", "", "host:0"},
      {"host:65536", "23", "", "host:65536"},
      {"host:-1", "23", "", "host:-1"},
      {"host:2 3", "23", "", "host:2 3"},
      {"host:", "23", "", "host:"},
      {"[::1]:x", "23", "", "[::1]:x"},
  };
  for (const auto& c : cases) {
    log.opened.clear();
    reasons.clear();
    telnet.RemotePort = c.remotePort;
    telnet.Connect(c.address);
    if (c.failed.empty()) {
      EXPECT_EQ(log.opened, std::vector<std::string>{c.opened}) << c.address;
      EXPECT_EQ(telnet.State(), Telnet::Connection::Connecting);
    } else {
      EXPECT_TRUE(log.opened.empty()) << c.address;
      EXPECT_EQ(Told(), "{failed " + c.failed + "}");
      EXPECT_EQ(telnet.State(), Telnet::Connection::Closed);
      ASSERT_EQ(reasons.size(), 1u);
      EXPECT_FALSE(reasons[0].empty());
    }
    telnet.Close();
  }
}

TEST_F(TelnetTest, LifeOfAConnection) {
  EXPECT_EQ(static_cast<int>(telnet.State()), 0);
  telnet.Connect("host");
  telnet.Connect("other");  // ignored
  EXPECT_EQ(log.opened.size(), 1u);
  EXPECT_NE(static_cast<int>(telnet.State()), 4);
  log.listener->OnFailed("refused");
  EXPECT_EQ(Told(), "{failed host:23}");
  EXPECT_EQ(reasons, std::vector<std::string>{"refused"});

  telnet.Connect("host");
  log.listener->OnOpened();
  EXPECT_EQ(static_cast<int>(telnet.State()), 4);
  telnet.Connect("other");  // ignored
  EXPECT_EQ(log.opened.size(), 2u);
  log.listener->OnBytes("x\r\xFF");
  log.listener->OnClosed();
  log.listener->OnClosed();
  EXPECT_EQ(Told(), "{connect}x\r{closed}");
  EXPECT_EQ(static_cast<int>(telnet.State()), 0);

  // The next connection knows nothing of the half command and of the CR.
  Open();
  log.listener->OnBytes("\0\xFD"s);
  EXPECT_EQ(Told(), "\0\xFD"s);

  // From this side: no event, whatever still comes.
  const int closed = log.closed;
  telnet.Close();
  EXPECT_EQ(log.closed, closed + 1);
  EXPECT_EQ(static_cast<int>(telnet.State()), 0);
  log.listener->OnBytes("late\xFF\xFD\x18");
  log.listener->OnOpened();
  log.listener->OnFailed("late");
  log.listener->OnClosed();
  telnet.Send("late");
  EXPECT_EQ(Told(), "");
  EXPECT_TRUE(log.written.empty());
}

TEST_F(TelnetTest, CloseInsideAHandlerEndsTheRead) {
  telnet.onOption = [this](int, int) { telnet.Close(); };
  Open();
  log.listener->OnBytes("a\xFF\xFD\x18"s + "b\xFF\xFD\x18");
  EXPECT_EQ(Told(), "a");

  telnet.onOption = [this](int, int) { told += "<>"; };
  telnet.onData = [this](std::string_view data) {
    told += data;
    telnet.Close();
  };
  Open();
  log.listener->OnBytes("a\xFF\xFD\x18"s + "b");
  EXPECT_EQ(Told(), "a");
}

}  // namespace
}  // namespace quorvel
