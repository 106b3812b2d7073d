#pragma once

namespace quorvel {

// A widget class of the program's own that knows a control or a window.
class OwnWidget {
 public:
  virtual ~OwnWidget() = default;
  // The peer goes, and with it what the widget knows. The widget may live a little longer, in the
  // midst of one of its own events: it does nothing any more, nor goes on with what it has begun.
  virtual void Forget() = 0;
};

}  // namespace quorvel
