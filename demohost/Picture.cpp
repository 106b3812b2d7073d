#include "demohost/Picture.h"

#include <array>
#include <cstdint>

namespace quorvel::demohost {
namespace {

constexpr int kWidth = 320, kHeight = 200;
constexpr int kHeaderSize = 54;  // BITMAPFILEHEADER 14 bytes, BITMAPINFOHEADER 40
constexpr int kBase = 20;        // of the bars, pixels from the lower edge
constexpr int kBarStep = 24, kBarWidth = 16, kFirstBar = 18;
constexpr std::array kSales{62, 71, 90, 84, 103, 120, 118, 97, 125, 133, 149, 160};  // pixels

struct Colour {
  unsigned char blue, green, red;
};
constexpr Colour kPaper{250, 250, 250}, kAxis{60, 60, 60}, kBar{170, 110, 40}, kBest{60, 150, 60};

// Little-endian, as the format wants it.
void Put(std::string& bytes, std::uint32_t number, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
}

Colour At(int x, int y) {
  if (y == kBase - 1 || x == kFirstBar - 4) return kAxis;
  const int bar = (x - kFirstBar) / kBarStep;
  if (x < kFirstBar || y < kBase || bar >= static_cast<int>(kSales.size())) return kPaper;
  const auto index = static_cast<std::size_t>(bar);
  const bool inside = (x - kFirstBar) % kBarStep < kBarWidth && y - kBase < kSales[index];
  if (!inside) return kPaper;
  return index + 1 == kSales.size() ? kBest : kBar;
}

}  // namespace

std::string SalesChart() {
  constexpr std::uint32_t kPixels = std::uint32_t{kWidth} * kHeight * 3;  // rows need no filling
  std::string bytes = "BM";
  Put(bytes, kHeaderSize + kPixels, 4);
  Put(bytes, 0, 4);
  Put(bytes, kHeaderSize, 4);
  Put(bytes, 40, 4);
  Put(bytes, kWidth, 4);
  Put(bytes, kHeight, 4);
  Put(bytes, 1, 2);   // planes
  Put(bytes, 24, 2);  // bits a pixel
  Put(bytes, 0, 4);   // not compressed
  Put(bytes, kPixels, 4);
  Put(bytes, 3780, 4);  // pixels a metre: 96 an inch
  Put(bytes, 3780, 4);
  Put(bytes, 0, 4);
  Put(bytes, 0, 4);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const auto colour = At(x, y);
      for (const auto part : {colour.blue, colour.green, colour.red})
        bytes += static_cast<char>(part);
    }
  }
  return bytes;
}

}  // namespace quorvel::demohost
