#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "app/Wiring.h"
#include "demohost/Application.h"
#include "demohost/HostSession.h"
#include "link/SessionState.h"
#include "link/StartUp.h"
#include "menus/frmSubMenu.h"
#include "menus/mdiMain.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"
#include "platform/headless/HeadlessUser.h"
#include "terminal/frmTelnet.h"

namespace quorvel {

// A folder of its own for one test, gone at its end.
class TestFolder {
 public:
  TestFolder() {
    // Tests run side by side, in processes that look alike.
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            ("quorvel-test-" + std::to_string(random()) + "-" + std::to_string(random()));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::string Path() const { return path_.string(); }
  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
    return (path_ / name).string();
  }

 private:
  std::filesystem::path path_;
};

// The whole client on a headless desktop; the far end of its connection is the test's.
class ClientTest {
 public:
  ClientTest() {
    Session() = SessionState{};
    backend.folder = folder.Path();
    backend.answersAtOnce = true;
    desktop_ = std::make_unique<Desktop>(backend);
    WireHandOvers();
  }

  // Starts the program with a configuration of these lines.
  void Start(const std::string& configuration) {
    backend.commandLine = folder.Write("test.inf", configuration);
    desktop().Post(EventKind::Program, [] { Main(); });
    backend.RunUntilIdle();
  }
  // Starts it, and has the far end take the connection.
  void Connect(const std::string& configuration =
                   "[TELNET]\nHostName=host\n[LOGIN]\nUserId=demo\n"
                   "Pwd=secret\n") {
    Start(configuration);
    Line().Accept();
    backend.RunUntilIdle();
  }

  HeadlessLine& Line() { return *backend.lines.at(backend.lines.size() - 1); }
  // One read of the network, all that follows from it, and what the client has sent meanwhile.
  std::string Deliver(const std::string& bytes) {
    Line().Deliver(bytes);
    backend.RunUntilIdle();
    return Line().TakeSent();
  }
  // What the user does, and all that follows from it.
  std::string Do(const std::function<void()>& act) {
    act();
    backend.RunUntilIdle();
    return backend.lines.empty() ? std::string() : Line().TakeSent();
  }
  // A line of the terminal's screen (from 0) without blanks at its end.
  std::string ScreenLine(int row) {
    std::string line =
        LoadedForm<frmTelnet>()->VT2201.ScreenLines().at(static_cast<std::size_t>(row));
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
  }
  bool ScreenShows(const std::string& text) {
    for (const std::string& line : LoadedForm<frmTelnet>()->VT2201.ScreenLines()) {
      if (line.find(text) != std::string::npos) return true;
    }
    return false;
  }

  TestFolder folder;
  HeadlessBackend backend;
  HeadlessUser user;

 private:
  std::unique_ptr<Desktop> desktop_;
};

// The client joined with the sample host in one process, without a network: every write of one
// side is a read of the other.
class JoinedTest : public ClientTest {
 public:
  JoinedTest()
      : application_(":memory:", [] { return demohost::DateTime{2026, 11, 22, 14, 3, 9}; }) {
    backend.onIdle = [this] { return Exchange(); };
  }

  demohost::HostSession& Host() { return *host_; }
  demohost::Store& HostData() { return application_.Data(); }
  // Ends every write of the host in the next read together with what follows it.
  bool joinWrites = false;

 private:
  bool Exchange() {
    if (backend.lines.empty()) return false;
    const std::shared_ptr<HeadlessLine> line = backend.lines.back();
    if (line != line_) {
      line_ = line;
      host_ = std::make_unique<demohost::HostSession>(application_, ++port_);
      line->Accept();
      host_->Start();
      return true;
    }
    if (!line->open) return false;
    const std::string sent = line->TakeSent();
    if (!sent.empty()) host_->Receive(sent);
    const std::vector<std::string> writes = host_->TakeWrites();
    std::string joined;
    for (const std::string& write : writes) {
      if (joinWrites) {
        joined += write;
      } else {
        line->Deliver(write);
      }
    }
    if (!joined.empty()) line->Deliver(joined);
    const bool ended = host_->Ended();
    if (ended) line->HangUp();
    return ended || !sent.empty() || !writes.empty();
  }

  demohost::Application application_;
  std::unique_ptr<demohost::HostSession> host_;
  std::shared_ptr<HeadlessLine> line_;
  int port_ = 0;
};

}  // namespace quorvel
