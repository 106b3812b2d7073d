// A user and client in one, for the tests: scripts of bytes to a session, and what came back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "demohost/Application.h"
#include "demohost/HostSession.h"
#include "demohost/Marks.h"

namespace quorvel::demohost {

inline DateTime TestNow() {
  return {2026, 11, 22, 14, 3, 9};
}

/// Fields joined by FS and put between frame marks, as either side writes it.
inline std::string Framed(const std::vector<std::string>& fields) {
  std::string frame(1, kFrameMark);
  for (const auto& field : fields) frame += (frame.size() > 1 ? "\xFA" : "") + field;
  return frame + kFrameMark;
}

class TestClient {
 public:
  TestClient(Application& host, int port) : session_(host, port) { session_.Start(); }

  /// Sends the bytes and collects what the session writes.
  TestClient& Send(std::string_view bytes) {
    session_.Receive(bytes);
    return Collect();
  }
  TestClient& Type(std::string_view line) { return Send(std::string(line) + "\r"); }
  TestClient& Request(const std::vector<std::string>& fields) { return Type(Framed(fields)); }
  TestClient& LogIn(std::string_view user = "demo") {
    Type(user).Type(user);
    return Forget();
  }
  /// Picks up what other sessions have caused.
  TestClient& Collect() {
    for (auto writes = session_.TakeWrites(); !writes.empty(); writes = session_.TakeWrites()) {
      for (auto& write : writes) {
        const bool frame = write.front() == kFrameMark;
        (frame ? frames_ : texts_).push_back(write);
        writes_.push_back(std::move(write));
      }
    }
    return *this;
  }
  TestClient& Forget() {
    Collect();
    writes_.clear();
    frames_.clear();
    texts_.clear();
    return *this;
  }

  /// Everything since Forget, and the frames and the rest apart.
  const std::vector<std::string>& Writes() const { return writes_; }
  const std::vector<std::string>& Frames() const { return frames_; }
  std::string LastFrame() const { return frames_.empty() ? "" : frames_.back(); }
  std::string Text() const {
    std::string all;
    for (const auto& text : texts_) all += text;
    return all;
  }
  bool Shows(std::string_view text) const { return Text().find(text) != std::string::npos; }
  bool AtMenu(const std::string& id) const {
    return LastFrame().starts_with(std::string(1, kFrameMark) + "~STARTMENU~\xFA" + id + "\xFA");
  }
  HostSession& Session() { return session_; }

 private:
  HostSession session_;
  std::vector<std::string> writes_, frames_, texts_;
};

}  // namespace quorvel::demohost
