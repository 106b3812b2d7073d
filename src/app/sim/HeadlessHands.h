#pragma once

#include <functional>

#include "app/sim/Hands.h"
#include "platform/headless/HeadlessBackend.h"
#include "platform/headless/HeadlessUser.h"

namespace quorvel::sim {

// Hands at a headless desktop.
class HeadlessHands : public Hands {
 public:
  explicit HeadlessHands(HeadlessBackend& backend) : backend_(backend) {}

  bool AreAtOnce() const override { return true; }
  void Click(Control& control) override { user_.Click(control); }
  void DoubleClick(Control& control) override { user_.DoubleClick(control); }
  void RightClick(Control& control) override { user_.RightClick(control); }
  void Press(KeyCode key, int shift) override { user_.Press(key, shift); }
  void Type(const std::string& text) override;
  void ChooseMenu(MenuItem& entry) override { entry.UserClick(); }
  void CloseBox(Window& window) override { window.UserClose(); }
  void TurnTo(Window& window) override { window.UserActivate(); }
  void Resize(Window& window, int width, int height) override { window.UserResize(width, height); }
  void PickRow(Control& list, int row) override;
  void TurnToPage(TabStrip& strip, int page) override;
  std::optional<OpenBox> BoxInFront() override;
  void AnswerBox(const BoxReply& reply) override;

 private:
  void In(Window& window, std::function<void()> act);
  HeadlessBox* Front() const;

  HeadlessBackend& backend_;
  HeadlessUser user_;
};

}  // namespace quorvel::sim
