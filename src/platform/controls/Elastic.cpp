#include "platform/controls/Elastic.h"

#include <cmath>

namespace quorvel {
namespace {

int Scaled(int length, int now, int built) {
  if (built <= 0) return length;
  return static_cast<int>(std::lround(static_cast<double>(length) * now / built));
}

constexpr double kSmallestFont = 4;  // points; anything smaller can't be read

}  // namespace

Elastic::Elastic(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Created();
}

void Elastic::PropertyChanged(Prop prop) {
  Control::PropertyChanged(prop);
  const bool sized = prop == Prop::Width || prop == Prop::Height;
  if (!sized) return;
  if (lastWidth_ > 0 && lastHeight_ > 0 && Mode() == kScaleAll) {
    Record(*this);
    if (Width() > 0 && Height() > 0) Scale(*this);
  }
  if (Width() > 0 && Height() > 0) {
    lastWidth_ = Width();
    lastHeight_ = Height();
  }
}

void Elastic::Record(Container& container) {
  for (Control* child : container.Children()) {
    const Built built{child->Left(),      child->Top(), child->Width(), child->Height(),
                      child->Font().size, lastWidth_,   lastHeight_};
    built_.try_emplace(child, built);
    Record(*child);
  }
}

void Elastic::Scale(Container& container) {
  for (Control* child : container.Children()) {
    const Built& built = built_.at(child);
    child->Move(Scaled(built.left, Width(), built.outerWidth),
                Scaled(built.top, Height(), built.outerHeight),
                Scaled(built.width, Width(), built.outerWidth),
                Scaled(built.height, Height(), built.outerHeight));
    if (built.fontSize > 0) {
      quorvel::Font font = child->Font();
      const double factor = std::min(static_cast<double>(Width()) / built.outerWidth,
                                     static_cast<double>(Height()) / built.outerHeight);
      font.size = std::max(kSmallestFont, built.fontSize * factor);
      child->Font = font;
    }
    Scale(*child);
  }
}

}  // namespace quorvel
