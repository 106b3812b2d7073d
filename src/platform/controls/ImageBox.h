#pragma once

#include <memory>
#include <string>

#include "platform/Pictures.h"
#include "platform/controls/Control.h"

namespace quorvel {

// Shows a picture from a file, at the picture's size, from the upper left corner of the control.
class ImageBox : public Control {
 public:
  ImageBox(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::ImageBox; }
  bool TakesFocus() const override { return false; }

  // Finds out about a file: whether it is a picture, and of what size (InfoWidth, InfoHeight, in
  // pixels). RuntimeError as PictureReader. It decodes the file, which alone tells whether it is
  // whole; what has been decoded is kept for LoadImage.
  void ReadImageInfo(const std::string& path);
  int InfoWidth() const { return infoWidth_; }
  int InfoHeight() const { return infoHeight_; }

  // Shows the file. RuntimeError as PictureReader; what was shown stays then.
  void LoadImage(const std::string& path);
  // Stretches what is shown, as it is by now, to a size in pixels. RuntimeError as Picture::Scaled,
  // 5 without a picture.
  void ResizeImage(int width, int height);
  // Whether it holds a picture.
  bool ImageHandle() const { return Shown() != nullptr; }
  void RepaintImage() { TellPeer(Prop::Picture); }

  Property<std::shared_ptr<const Picture>> Shown{*this, Prop::Picture};

 private:
  std::string readPath_;
  std::shared_ptr<const Picture> read_;
  int infoWidth_ = 0;
  int infoHeight_ = 0;
};

}  // namespace quorvel
