#pragma once

#include <memory>

#include "platform/controls/Window.h"

class QWidget;

namespace quorvel {

// The peer of a dialog above `parent`. One that has rows is laid out by them, and the window takes
// over the size that results.
std::unique_ptr<WindowPeer> MakeDialogPeer(Window& window, QWidget* parent);

}  // namespace quorvel
