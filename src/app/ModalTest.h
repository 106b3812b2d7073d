#pragma once

#include <utility>

#include "app/FarEndTest.h"

namespace quorvel {

// Tests of modal windows, which also open one another.
class ModalTest : public FarEndTest {
 protected:
  // Opens the window by an operation of the user and acts in it while it waits; it is closed then,
  // if it has not been.
  template <class F>
  void In(const std::function<void()>& open, const std::function<void(F&)>& act) {
    const std::size_t before = visits_.size();
    visits_.push_back({[] { return LoadedForm<F>() && LoadedForm<F>()->IsVisible(); },
                       [act] {
                         act(*LoadedForm<F>());
                         if (LoadedForm<F>()) LoadedForm<F>()->UserClose();
                       }});
    if (!backend.onIdle) backend.onIdle = [this] { return Visit(); };
    if (desktop().IsHandling()) {
      open();
    } else {
      Run(open);
    }
    EXPECT_EQ(visits_.size(), before) << "the window has not opened";
    visits_.resize(before);
    EXPECT_FALSE(LoadedForm<F>());
  }

 private:
  struct VisitOf {
    std::function<bool()> isOpen;
    std::function<void()> act;
  };
  bool Visit() {
    if (visits_.empty() || !visits_.back().isOpen()) return false;
    const auto act = std::move(visits_.back().act);
    visits_.pop_back();
    act();
    return true;
  }

  std::vector<VisitOf> visits_;
};

}  // namespace quorvel
