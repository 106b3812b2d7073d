#include "output/frmImage.h"

#include <algorithm>
#include <limits>

#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// Room for title, menu and borders, in twips.
constexpr int kFrameHeight = 700;
constexpr int kFrameWidth = 120;

// Lengths of this window are 16-bit numbers.
constexpr int kLongest = std::numeric_limits<std::int16_t>::max();

// The length that a field of the message asks; without a number `absent`, and `present` for a
// number that is no length.
int LengthOf(const std::string& field, int absent, int present) {
  if (!IsNumber(field)) return absent;
  int length = present;
  Try([&] { length = ToInt16(field); });
  return length;
}

int ToPixels(int twips) {
  return (twips + OnePixel() / 2) / OnePixel();
}

}  // namespace

frmImage::frmImage() : Window(Kind::Dialog, "frmImage") {
  Caption = "Image Display";
  Resizable = true;
  mnuExit.Click = [this] { Unload(); };
}

// The picture's own size. One that is too large for a length, and for any screen, becomes as large
// as the screen allows, its proportions kept.
frmImage::Size frmImage::OwnSize() const {
  const ScreenMetrics screen = desktop().backend().Screen();
  const double width = double{1} * ledPicture.InfoWidth() * screen.twipsPerPixel;
  const double height = double{1} * ledPicture.InfoHeight() * screen.twipsPerPixel;
  double scale = 1;
  if (std::max(width, height) > kLongest) {
    scale = std::min(std::min(screen.width - kFrameWidth, kLongest) / width,
                     std::min(screen.height - kFrameHeight, kLongest) / height);
  }
  const auto scaled = [&](double length) {
    return std::max(screen.twipsPerPixel, static_cast<int>(scale * length));
  };
  return {scaled(width), scaled(height)};
}

void frmImage::ShowImage() {
  const auto asked = Session().ImageArgs;  // a further message may come while the box is open
  const std::string& path = asked[0];
  if (!Try([&] { ledPicture.ReadImageInfo(path); })) {
    desktop().MsgBox("Invalid Image path " + path);
    return;
  }
  const Size own = OwnSize();
  const int newTop = LengthOf(asked[1], Top, Top);
  const int newLeft = LengthOf(asked[2], Left, Left);
  const int newHeight = std::max(0, LengthOf(asked[4], own.height, Height));
  const int newWidth = std::max(0, LengthOf(asked[3], own.width, Width));

  ledPicture.Height = newHeight;
  ledPicture.Width = newWidth;
  Top = newTop;
  Left = newLeft;
  ready_ = false;
  Height = newHeight + kFrameHeight;
  Width = newWidth + kFrameWidth;
  ready_ = true;
  Try([&] { ledPicture.LoadImage(path); });
  ResizeToControl();
  ledPicture.RepaintImage();
  ledPicture.AccessibleText = "Image " + FileNameOf(path);
  Caption = "Image Display - " + path;
}

void frmImage::ResizeToControl() {
  Try([this] {
    ledPicture.ResizeImage(ToPixels(ledPicture.Width()), ToPixels(ledPicture.Height()));
  });
}

void frmImage::Form_Load() {
  firstShow_ = true;
  ShowImage();
}

void frmImage::Form_Activate() {
  CenterOverMain(*this);
  if (firstShow_) {
    firstShow_ = false;
  } else {
    ShowImage();
  }
}

void frmImage::Form_Resize() {
  if (!ready_) return;
  ledPicture.Height = std::max(0, Height - kFrameHeight);
  ledPicture.Width = std::max(0, Width - kFrameWidth);
  if (ledPicture.ImageHandle()) ResizeToControl();
}

void frmImage::Form_Unload(bool&) {
  if (Session().ScreenLoaded == kFalse) Ask().FocusTerminal();
}

}  // namespace quorvel
