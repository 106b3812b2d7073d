#pragma once

#include <optional>

#include "app/sim/Hands.h"
#include "app/sim/qt/Keys.h"
#include "app/sim/qt/Mouse.h"

namespace quorvel::sim {

// The boxes of the program, the dialogs of the toolkit and the menus that pop up, as the user meets
// them.

bool IsBoxOpen();
std::optional<OpenBox> ShownBox();
void AnswerShownBox(Mouse& mouse, Keys& keys, const BoxReply& reply);

}  // namespace quorvel::sim
