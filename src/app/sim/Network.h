#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "app/sim/Agenda.h"
#include "app/sim/HostEnd.h"
#include "app/sim/Story.h"
#include "platform/telnet/Transport.h"

namespace quorvel::sim {

// Sees what goes over the line.
class WireWatch {
 public:
  virtual void OnAccepted(const std::string& host) = 0;
  virtual void OnRefused() = 0;
  virtual void OnSent(std::string_view bytes) = 0;       // by the client
  virtual void OnDelivered(std::string_view bytes) = 0;  // to the client
  virtual void OnLost() = 0;
  virtual void OnHungUp() = 0;          // by the host
  virtual void OnClosedByClient() = 0;  // what was under way is of no use any more
  virtual void OnRequest(const std::string& text, int port) = 0;

 protected:
  ~WireWatch() = default;
};

// The line between the client and the sample host, one connection at a time.
class Network {
 public:
  Network(Agenda& agenda, demohost::Application& host, const Story& story, WireWatch& watch)
      : agenda_(agenda), host_(host), story_(story), watch_(watch) {}

  std::unique_ptr<Transport> MakeTransport();
  // The host's session; nullptr while there is no line.
  const demohost::HostSession* Session() const;

  bool HasLostRequest() const { return line_ && line_->host && line_->host->HasLostRequest(); }

  // A frame that the host sends out of turn.
  void Inject(const std::string& frame);
  void LoseNow();
  void LoseBehindDown(std::size_t bytes);
  void LoseBehindUp(std::size_t bytes);
  void RefuseNext() { refuseNext_ = true; }
  void NoMoreFaults();

 private:
  friend class SimTransport;
  struct Connection {
    TransportListener* listener = nullptr;  // none once the client has closed
    std::string name;                       // of the host, as the client has it
    bool open = false;
    bool reading = true;
    std::deque<std::string> held;  // arrived while the client does not read
    std::unique_ptr<HostEnd> host;
    Milliseconds lastUp = 0;
    Milliseconds lastDown = 0;
  };
  using Line = std::shared_ptr<Connection>;

  void Open(const Line& line);
  void Accept(const Line& line);
  void SendUp(const Line& line, std::string bytes);
  void ArriveUp(const Line& line, std::string bytes);
  void SendDown(const Line& line, const std::string& write);
  void SendAnswers(const Line& line);
  void ArriveDown(const Line& line, std::string bytes);
  void Deliver(const Line& line, std::string_view bytes);
  void Resume(const Line& line);
  void End(const Line& line, bool lost);
  void CloseByClient(const Line& line);
  Milliseconds NextDelay();

  Agenda& agenda_;
  demohost::Application& host_;
  const Story& story_;
  WireWatch& watch_;
  Line line_;
  int port_ = 0;
  std::uint64_t delays_ = 0;
  bool refuseNext_ = false;
  std::optional<std::size_t> leftDown_;  // bytes until the line is lost
  std::optional<std::size_t> leftUp_;
};

}  // namespace quorvel::sim
