#pragma once

#include "app/sim/Hands.h"
#include "app/sim/qt/Door.h"
#include "app/sim/qt/Keys.h"
#include "app/sim/qt/Mouse.h"

namespace quorvel::sim {

// Hands at the real desktop. Everything comes in at the toolkit's own door, so that its modality,
// menus and focus have their say. What can't be seen is left alone.
class QtHands : public Hands {
 public:
  explicit QtHands(Door& door) : door_(door), mouse_(door), keys_(door) {}

  bool AreAtOnce() const override { return false; }
  void Click(Control& control) override;
  void DoubleClick(Control& control) override;
  void RightClick(Control& control) override;
  void Press(KeyCode key, int shift) override { keys_.Press(key, shift); }
  void Type(const std::string& text) override { keys_.Type(text); }
  void ChooseMenu(MenuItem& entry) override;
  void CloseBox(Window& window) override;
  void TurnTo(Window& window) override;
  void Resize(Window& window, int width, int height) override;
  void PickRow(Control& list, int row) override;
  void TurnToPage(TabStrip& strip, int page) override;
  std::optional<OpenBox> BoxInFront() override;
  void AnswerBox(const BoxReply& reply) override;

 private:
  void PickInCombo(Control& combo, int row);
  Mouse::Where On(Control& control);

  Door& door_;
  Mouse mouse_;
  Keys keys_;
  // What was picked last: a click on the list behind it goes there, though the list may not have
  // heard of it yet.
  const Control* pickedIn_ = nullptr;
  int picked_ = 0;
};

}  // namespace quorvel::sim
