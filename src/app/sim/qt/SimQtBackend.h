#pragma once

#include <memory>

#include "app/sim/Desk.h"
#include "platform/qt/QtBackend.h"

namespace quorvel::sim {

// The real desktop, with a line and services of the story that is told. One for all stories of the
// process: the application object is dear.
class SimQtBackend : public QtBackend {
 public:
  SimQtBackend();
  ~SimQtBackend() override;

  void BeginStory(const DeskSetup& setup);
  // With the story's desktop gone.
  void EndStory();
  // What the toolkit serves at the moment. Its boxes and menus have loops of their own, which this
  // does not tell of.
  Serve Serving() const { return serving_; }
  bool HasQuit() const { return quit_; }

  std::unique_ptr<WindowPeer> MakePeer(Window& window) override;
  void ServeToolkit(Serve serve) override;
  void Quit(int status) override;
  MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) override;
  Application& application() override;
  CommonDialogs& dialogs() override;
  Printer& printer() override;
  Programs& programs() override;
  FaxService& fax() override;
  std::unique_ptr<Transport> MakeTransport() override;

 private:
  struct Story;
  std::unique_ptr<Story> story_;
  Serve serving_ = Serve::Waiting;
  bool quit_ = false;
};

}  // namespace quorvel::sim
