#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/sim/Requests.h"
#include "app/sim/Story.h"
#include "demohost/HostSession.h"

namespace quorvel::sim {

// The host's end of one connection: a session of the sample host. The host of Errors refuses some
// of the requests itself, by the answer that the verb wants.
class HostEnd {
 public:
  using OnRequest = std::function<void(const std::string& text, int port)>;

  // `onRequest` hears of every request ahead of the host.
  HostEnd(demohost::Application& application, int port, const Story& story, OnRequest onRequest);

  void Start() { session_.Start(); }
  void Receive(std::string_view bytes);
  // Each element a write; in the order in which they are to go out.
  std::vector<std::string> TakeWrites();
  // Whether a request has come behind typed text, which no host can tell from more of it.
  bool HasLostRequest() const { return lost_ || session_.HasLostRequest(); }
  bool HasEnded() const { return session_.Ended(); }
  const demohost::HostSession& Session() const { return session_; }

 private:
  void TakeRequest(const std::string& text);
  bool Refuses(const std::string& text);

  demohost::HostSession session_;
  const Story& story_;
  OnRequest onRequest_;
  DataBytes data_;
  RequestReader requests_;
  std::string heldBack_;  // of a request that is not complete
  std::vector<std::string> refusals_;
  std::uint64_t count_ = 0;
  bool lost_ = false;
};

}  // namespace quorvel::sim
