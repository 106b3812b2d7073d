#pragma once

#include "app/sim/Desk.h"
#include "app/sim/HeadlessHands.h"
#include "platform/headless/HeadlessBackend.h"

namespace quorvel::sim {

// A headless desktop on the story's line, whose boxes and windows the rules see.
class HeadlessDesk : public Desk, private HeadlessBackend {
 public:
  explicit HeadlessDesk(const DeskSetup& setup);

  Backend& backend() override { return *this; }
  Hands& hands() override { return hands_; }
  void Play(std::function<bool()> next) override;
  bool HasEnded() const override { return ended; }
  bool HasOpenBoxes() const override { return !openBoxes.empty(); }
  void ForgetThePast() override;

 private:
  std::unique_ptr<Transport> MakeTransport() override { return network_.MakeTransport(); }
  MessageBoxAnswer ShowMessageBox(const MessageBoxRequest& request) override;
  std::unique_ptr<WindowPeer> MakePeer(Window& window) override;

  Network& network_;
  Rules& rules_;
  HeadlessHands hands_{*this};
};

std::unique_ptr<Desk> MakeHeadlessDesk(const DeskSetup& setup);

}  // namespace quorvel::sim
