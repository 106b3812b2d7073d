#pragma once

#include "app/sim/Failure.h"
#include "app/sim/Hands.h"
#include "app/sim/Rules.h"

namespace quorvel::sim {

// Hands whose doings are told, and known to the rules.
class WatchedHands : public Hands {
 public:
  WatchedHands(Hands& hands, Rules& rules, const Teller& tell)
      : hands_(hands), rules_(rules), tell_(tell) {}

  bool AreAtOnce() const override { return hands_.AreAtOnce(); }
  void Click(Control& control) override;
  void DoubleClick(Control& control) override;
  void RightClick(Control& control) override;
  void Press(KeyCode key, int shift) override;
  void Type(const std::string& text) override;
  void ChooseMenu(MenuItem& entry) override;
  void CloseBox(Window& window) override;
  void TurnTo(Window& window) override;
  void Resize(Window& window, int width, int height) override;
  void PickRow(Control& list, int row) override;
  void TurnToPage(TabStrip& strip, int page) override;
  std::optional<OpenBox> BoxInFront() override { return hands_.BoxInFront(); }
  void AnswerBox(const BoxReply& reply) override;

 private:
  void Tell(const std::string& what);

  Hands& hands_;
  Rules& rules_;
  const Teller& tell_;
};

}  // namespace quorvel::sim
