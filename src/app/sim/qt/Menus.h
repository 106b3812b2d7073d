#pragma once

#include "app/sim/qt/Door.h"
#include "app/sim/qt/Keys.h"
#include "app/sim/qt/Mouse.h"
#include "platform/controls/Menu.h"

class QMenu;

namespace quorvel::sim {

// The menu that has popped up, if it is one of the program's; nullptr otherwise.
MenuItem* PoppedUp();
// Clicks an entry of the menu that has popped up.
void ClickInPopUp(Mouse& mouse, MenuItem& entry);
// Clicks the way to an entry from the menu bar on, and leaves a menu that stays open.
void ChooseFromBar(Door& door, Mouse& mouse, Keys& keys, MenuItem& entry);
// Whether the menu bar, or something that has popped up and is no menu of the program's, has the
// input: Escape leads out.
bool IsAstray();

}  // namespace quorvel::sim
