#include "platform/qt/QtPictures.h"

#include <QFileInfo>
#include <QImageReader>

#include "platform/RuntimeError.h"
#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr std::int64_t kBytesOfPixel = 4;
constexpr int kMebibyte = 1024 * 1024;

bool IsTooLarge(std::int64_t width, std::int64_t height) {
  return width > 0 && height > kLargestPicture / kBytesOfPixel / width;
}

}  // namespace

std::shared_ptr<const Picture> QtPicture::Scaled(int width, int height) const {
  if (width < 1 || height < 1) throw RuntimeError(Failure::InvalidCall);
  if (IsTooLarge(width, height)) throw RuntimeError(Failure::OutOfMemory);
  QImage scaled = image_.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  if (scaled.isNull()) throw RuntimeError(Failure::OutOfMemory);
  return std::make_shared<QtPicture>(std::move(scaled));
}

std::shared_ptr<const Picture> QtPictures::ReadPicture(const std::string& path) {
  const QFileInfo file(PathToUnicode(path));
  // A pipe or a device would keep the program waiting.
  if (!file.isFile()) throw RuntimeError(Failure::FileNotFound);
  if (file.size() > kLargestPicture) throw RuntimeError(Failure::OutOfMemory);
  QImageReader::setAllocationLimit(static_cast<int>(kLargestPicture / kMebibyte));
  QImageReader reader(file.filePath());
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize claimed = reader.size();
  if (claimed.isValid() && IsTooLarge(claimed.width(), claimed.height())) {
    throw RuntimeError(Failure::OutOfMemory);
  }
  QImage image = reader.read();
  if (image.isNull()) throw RuntimeError(Failure::InvalidCall);
  return std::make_shared<QtPicture>(std::move(image));
}

}  // namespace quorvel
