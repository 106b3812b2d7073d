#pragma once

#include <memory>

#include "app/sim/Network.h"
#include "app/sim/Rules.h"
#include "app/sim/Workplace.h"
#include "platform/qt/QtBackend.h"

namespace quorvel::sim {

// The real desktop, with a line and services of the story that is told. One for all stories of the
// process: the application object is dear.
class SimQtBackend : public QtBackend {
 public:
  SimQtBackend();
  ~SimQtBackend() override;

  void BeginStory(Network& network, Rules& rules, const Workplace& place);
  // With the story's desktop gone.
  void EndStory();
  // Whether the toolkit serves neither input nor network: nobody may act.
  bool IsPainting() const { return painting_ > 0; }
  bool HasQuit() const { return quit_; }

  std::unique_ptr<WindowPeer> MakePeer(Window& window) override;
  void ServeToolkit(Serve serve) override;
  void Quit() override;
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
  int painting_ = 0;
  bool quit_ = false;
};

}  // namespace quorvel::sim
