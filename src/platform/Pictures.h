#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvel {

// Most memory that a picture may take when it is decoded, and the largest file that is read, in
// bytes: room for 67 million pixels of 32 bits. A file of a few hundred bytes may claim more.
inline constexpr std::int64_t kLargestPicture = std::int64_t{256} * 1024 * 1024;

// A picture in memory, of the backend that has read it. Sizes are pixels.
class Picture {
 public:
  virtual ~Picture() = default;
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  // The same, stretched to another size. RuntimeError 5 for a size below 1, 7 above
  // kLargestPicture.
  virtual std::shared_ptr<const Picture> Scaled(int width, int height) const = 0;
};

class PictureReader {
 public:
  virtual ~PictureReader() = default;
  // Reads a picture file of any format that the toolkit knows, by its content. RuntimeError 53 when
  // there is no such file, 7 when it is too large, 5 when it can't be decoded.
  virtual std::shared_ptr<const Picture> ReadPicture(const std::string& path) = 0;
};

}  // namespace quorvel
