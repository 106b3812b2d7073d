#pragma once

#include <QImage>

#include "platform/Pictures.h"

namespace quorvel {

// A picture as the toolkit holds it.
class QtPicture : public Picture {
 public:
  explicit QtPicture(QImage image) : image_(std::move(image)) {}
  const QImage& Image() const { return image_; }
  int Width() const override { return image_.width(); }
  int Height() const override { return image_.height(); }
  std::shared_ptr<const Picture> Scaled(int width, int height) const override;

 private:
  QImage image_;
};

// Reads whatever the toolkit's image plug-ins read. Of an animation the first picture; a photograph
// is turned as its camera was.
class QtPictures : public PictureReader {
 public:
  std::shared_ptr<const Picture> ReadPicture(const std::string& path) override;
};

}  // namespace quorvel
