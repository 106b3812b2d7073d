#pragma once

#include <memory>

#include "platform/controls/Window.h"

class QAction;
class QWidget;

namespace quorvel {

class MainShell;

// The peer of a window; children are put into the shell's client area.
std::unique_ptr<WindowPeer> MakeWindowPeer(Window& window, MainShell*& shell);

// The widget of a loaded window; nullptr otherwise.
QWidget* WidgetOf(const Window& window);

}  // namespace quorvel
