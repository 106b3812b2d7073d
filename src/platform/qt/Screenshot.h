#pragma once

#include <QImage>

class QWidget;

namespace quorvel {

// A picture of the main window with dialogs, boxes and menus that are open above it. It is composed
// of the windows' own pictures, so it works where there is no screen; in place of the window
// system's frames it draws plain ones. The text "front" of the picture tells where in it the dialog
// or box in front is, frame included: pixels as WIDTHxHEIGHT+LEFT+TOP. Without one there is no
// text.
QImage PictureOfAll(QWidget& shell);

}  // namespace quorvel
