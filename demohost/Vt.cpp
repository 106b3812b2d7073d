#include "demohost/Vt.h"

namespace quorvel::demohost::vt {
namespace {

// DEC special graphics: l k m j corners, q horizontal, x vertical, t u tees left and right.
std::string Edge(char left, char right, int width) {
  std::string edge(kGraphics);
  edge += left;
  edge.append(static_cast<std::size_t>(width) - 2, 'q');
  edge += right;
  edge += kAscii;
  return edge;
}

}  // namespace

std::string At(int row, int column) {
  return "\x1B[" + std::to_string(row) + ";" + std::to_string(column) + "H";
}

std::string In(std::string_view attribute, std::string_view text) {
  return std::string(attribute) + std::string(text) + std::string(kNormal);
}

std::string Box(int row, int column, int height, int width, std::string_view title) {
  const auto side = std::string(kGraphics) + "x" + std::string(kAscii);
  std::string box = At(row, column) + Edge('l', 'k', width);
  for (int i = row + 1; i < row + height - 1; ++i) {
    box.append(At(i, column)).append(side).append(At(i, column + width - 1)).append(side);
  }
  box += At(row + height - 1, column) + Edge('m', 'j', width);
  if (!title.empty()) box += At(row, column + 3) + In(kBold, " " + std::string(title) + " ");
  return box;
}

std::string Rule(int row, int column, int width) {
  return At(row, column) + Edge('t', 'u', width);
}

}  // namespace quorvel::demohost::vt
