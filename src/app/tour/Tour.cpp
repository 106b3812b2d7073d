#include "app/tour/Tour.h"

#include <cstdio>
#include <filesystem>

#include "app/tour/Sights.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

Tour::Tour(QtBackend& backend, std::string folder, std::vector<TourStep> steps)
    : backend_(backend), folder_(std::move(folder)), steps_(std::move(steps)) {
  player_.onReady = [this](const TourStep& step) {
    if (!step.name.empty()) TakePicture(step.name);
  };
  player_.onPlayed = [this] { End(0); };
  player_.onStuck = [this](std::size_t number, const TourStep& step) { TellStuck(number, step); };
}

void Tour::Start() {
  player_.Play(std::move(steps_));
}

void Tour::TellStuck(std::size_t number, const TourStep& step) {
  std::fprintf(stderr, "tour: step %zu (%s) did not get ready\n%s", number, step.name.c_str(),
               WhatShows().c_str());
  TakePicture("stuck");
  End(1);
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
  player_.Stop();
  // As an event: it may be called from the loop of a dialog.
  desktop().Handle(EventKind::Program, [] { desktop().EndProcess(); });
}

}  // namespace quorvel
