#pragma once

#include <QPixmap>

class QWidget;

namespace quorvel {

// A picture of the main window with dialogs, boxes and menus that are open above it. It is composed
// of the windows' own pictures, so it works where there is no screen; in place of the window
// system's frames it draws plain ones.
QPixmap PictureOfAll(QWidget& shell);

}  // namespace quorvel
