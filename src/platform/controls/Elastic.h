#pragma once

#include <map>
#include <string>

#include "platform/controls/Control.h"

namespace quorvel {

// A container that keeps the geometry of what lies on it as first built and scales places, sizes
// and fonts with its own size, at once. Mode 0 does nothing, mode 7 scales all.
class Elastic : public Control {
 public:
  static constexpr int kOff = 0;
  static constexpr int kScaleAll = 7;

  Elastic(Container& parent, std::string name, int index = -1);
  ControlKind kind() const override { return ControlKind::Elastic; }
  bool TakesFocus() const override { return false; }

  Property<int> Mode{*this, Prop::Mode, kOff};
  void PropertyChanged(Prop prop) override;

 private:
  // A control as first built, and the size of this container at that time.
  struct Built {
    int left, top, width, height;
    double fontSize;
    int outerWidth, outerHeight;
  };

  void Record(Container& container);
  void Scale(Container& container);

  std::map<const Control*, Built> built_;
  int lastWidth_ = 0;
  int lastHeight_ = 0;
};

}  // namespace quorvel
