#pragma once

#include <memory>

#include "platform/controls/Window.h"

class QAction;
class QDialog;
class QWidget;

namespace quorvel {

class MainShell;

// The peer of a window; children are put into the shell's client area.
std::unique_ptr<WindowPeer> MakeWindowPeer(Window& window, MainShell*& shell);

// The widget of a loaded window; nullptr otherwise.
QWidget* WidgetOf(const Window& window);

// The user seems to have turned to a window of the toolkit, that of `window`. When a box or a
// dialog closes, the window system may choose one by itself, and the program puts that right at
// once; so only what lasts counts.
void NoticeTurn(QWidget& widget, Window& window);

// Keeps a box above a window, in its middle, without making it the window's own: the window may be
// unloaded while the box is open.
void PlaceAbove(QWidget* window, QDialog& box);

// After a box has closed: the toolkit's focus to where the keyboard is, whichever window the window
// system has chosen.
void GiveKeyboardBack();

}  // namespace quorvel
