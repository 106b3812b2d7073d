#include "platform/controls/ImageBox.h"

#include <utility>

#include "platform/controls/Desktop.h"

namespace quorvel {

ImageBox::ImageBox(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void ImageBox::ReadImageInfo(const std::string& path) {
  read_.reset();  // not two in memory
  read_ = desktop().backend().pictures().ReadPicture(path);
  readPath_ = path;
  infoWidth_ = read_->Width();
  infoHeight_ = read_->Height();
}

void ImageBox::LoadImage(const std::string& path) {
  if (!read_ || readPath_ != path) ReadImageInfo(path);
  Shown = std::exchange(read_, nullptr);
}

void ImageBox::ResizeImage(int width, int height) {
  if (!Shown()) throw RuntimeError(Failure::InvalidCall);
  if (Shown()->Width() == width && Shown()->Height() == height) return;
  Shown = Shown()->Scaled(width, height);
}

}  // namespace quorvel
