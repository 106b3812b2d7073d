// What an operator does who hits any key and clicks anywhere.
#include "app/sim/Operator.h"
#include "app/sim/Sights.h"
#include "menus/mdiMain.h"
#include "platform/controls/Desktop.h"
#include "platform/controls/TabStrip.h"

namespace quorvel::sim {
namespace {

// Most acts go to the window in front, some to any that shows.
Window* AnyWindow(Random& dice) {
  Window* front = desktop().focus().Front();
  if (front && dice.Chance(65)) return front;
  const auto windows = VisibleWindows();
  return windows.empty() ? nullptr : windows[dice.Below(windows.size())];
}

}  // namespace

void Operator::Fumble(Random& dice) {
  Window* window = AnyWindow(dice);
  if (!window) return;
  const int what = dice.Between(1, 100);
  if (what <= 45) return FumbleControl(*window, dice);
  if (what <= 75) return FumbleKey(dice);
  if (what <= 87) {
    const auto entries = EntriesOf(*window);
    if (!entries.empty()) hands_.ChooseMenu(*entries[dice.Below(entries.size())]);
    return;
  }
  if (what <= 92) return hands_.CloseBox(*window);
  if (what <= 96) return hands_.TurnTo(*window);
  if (Window* main = LoadedForm<mdiMain>()) {
    hands_.Resize(*main, dice.Between(0, 20000), dice.Between(0, 14000));
  }
}

void Operator::FumbleControl(Window& window, Random& dice) {
  const auto controls = ReachableOf(window);
  if (controls.empty()) return;
  Control& control = *controls[dice.Below(controls.size())];
  if (control.kind() == ControlKind::TabStrip) {
    auto& strip = static_cast<TabStrip&>(control);
    const int page = static_cast<int>(dice.Below(static_cast<std::size_t>(strip.Tabs())));
    if (strip.TabVisible(page)) hands_.TurnToPage(strip, page);
    return;
  }
  if (!RowsOf(control).empty()) PickRowOf(control, dice);
  const int what = dice.Between(1, 100);
  if (what <= 70) return hands_.Click(control);
  if (what <= 85) return hands_.DoubleClick(control);
  hands_.RightClick(control);
}

void Operator::FumbleKey(Random& dice) {
  static constexpr KeyCode kKeys[] = {
      KeyCode::Return, KeyCode::Return, KeyCode::Tab, KeyCode::Escape, KeyCode::Up,
      KeyCode::Down,   KeyCode::Left,   KeyCode::F1,  KeyCode::F3,     KeyCode::Backspace,
      KeyCode::Delete, KeyCode::Menu,   KeyCode::F10, KeyCode::F12,    KeyCode::Home};
  static constexpr int kShifts[] = {kNoShift, kNoShift, kNoShift, kShift, kControl, kAlt};
  static constexpr const char* kTexts[] = {"a", "E", "12", "C1004", ".", " ", "x y", "-5", "\r"};
  if (dice.Chance(45)) return hands_.Type(kTexts[dice.Below(std::size(kTexts))]);
  const int shift = kShifts[dice.Below(std::size(kShifts))];
  hands_.Press(kKeys[dice.Below(std::size(kKeys))], shift);
}

}  // namespace quorvel::sim
