#include "app/tour/Tour.h"

#include <QTimer>
#include <cstdio>
#include <filesystem>

#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

constexpr int kTickMilliseconds = 40;
constexpr int kTicksToSettle = 5;  // the screen is painted and quiet by then
constexpr qint64 kLongestWaitMilliseconds = 20'000;

}  // namespace

Tour::Tour(QtBackend& backend, std::string folder, std::vector<TourStep> steps)
    : backend_(backend), folder_(std::move(folder)), steps_(std::move(steps)) {
  waiting_.start();
}

void Tour::Start() {
  QTimer::singleShot(kTickMilliseconds, this, [this] { Tick(); });
}

// A timer of its own for every tick: one that is being served does not fire again, but a step must
// go on in the loop of a dialog that the step before it has opened.
void Tour::Tick() {
  if (ended_) return;
  if (next_ == steps_.size()) return End(0);
  Start();
  const TourStep& step = steps_[next_];
  readyTicks_ = step.ready() ? readyTicks_ + 1 : 0;
  if (readyTicks_ < kTicksToSettle) {
    if (waiting_.elapsed() < kLongestWaitMilliseconds) return;
    std::fprintf(stderr, "tour: step %zu (%s) did not get ready\n", next_ + 1, step.name.c_str());
    for (const Window* window : desktop().LoadedWindows()) {
      std::fprintf(stderr, "tour: %s is loaded%s\n", window->Name().c_str(),
                   window->IsVisible() ? " and visible" : "");
    }
    TakePicture("stuck");
    return End(1);
  }
  if (!step.name.empty()) TakePicture(step.name);
  ++next_;
  readyTicks_ = 0;
  waiting_.restart();
  if (step.act) step.act();
  waiting_.restart();
}

void Tour::TakePicture(const std::string& name) {
  char number[16];
  std::snprintf(number, sizeof number, "%02d-", ++pictures_);
  const auto path = std::filesystem::path(folder_) / (number + name + ".png");
  if (backend_.SaveScreenshot(path.string())) {
    std::printf("%s\n", path.string().c_str());
  } else {
    std::fprintf(stderr, "tour: can't write %s\n", path.string().c_str());
    End(1);
  }
}

void Tour::End(int status) {
  status_ = status;
  ended_ = true;
  // As an event: it may be called from the loop of a dialog.
  desktop().Handle(EventKind::Program, [] { desktop().EndProcess(); });
}

}  // namespace quorvel
