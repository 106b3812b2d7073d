#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <string>

#include "platform/CommonDialogs.h"

namespace quorvel {

// Twips and logical pixels: 15 twips are a pixel at 96 dpi, rounded to the nearest.
int TwipsPerPixel();
int ToPixels(int twips);
int ToTwips(int pixels);

// The toolkit's font for a control's: an empty name or size 0 is the desktop's own. "MS Sans Serif"
// stands for the desktop's own, "Fixedsys" and "VT220_ascii" for its best fixed-pitch font, and so
// does a name ending in "Mono" or beginning with "Courier" that is not installed.
QFont ToQFont(const Font& font);

// Colours of controls have blue in the high byte.
QColor ToQColor(int colour);

}  // namespace quorvel
