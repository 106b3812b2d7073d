#pragma once

#include <string>
#include <vector>

#include "app/tour/StepPlayer.h"
#include "platform/qt/QtBackend.h"

namespace quorvel {

// Plays steps against the running program and takes a picture at each that has a name. Ends the
// process with status 0 after the last one, with status 1 when a step does not get ready in time.
class Tour {
 public:
  Tour(QtBackend& backend, std::string folder, std::vector<TourStep> steps);
  void Start();
  int ExitStatus() const { return status_; }

 private:
  void TakePicture(const std::string& name);
  void TellStuck(std::size_t number, const TourStep& step);
  void End(int status);

  QtBackend& backend_;
  const std::string folder_;
  std::vector<TourStep> steps_;
  StepPlayer player_{Pace{}};
  int pictures_ = 0;
  int status_ = 1;
};

// The steps through the program against the sample host.
std::vector<TourStep> TourSteps(QtBackend& backend);
// Those on its customer screen, from the open screen until it is left.
std::vector<TourStep> ScreenSteps(QtBackend& backend);
// The other screens of the sample host, in windows of several sizes; from the main menu and back.
std::vector<TourStep> OtherScreenSteps(QtBackend& backend);
// From the main menu: a picture of the host, whose file is lost, and back to the main menu.
std::vector<TourStep> ImageSteps(QtBackend& backend);
// From the main menu: a report goes out by fax; leaves a report that is being closed.
std::vector<TourStep> FaxSteps(QtBackend& backend);
// A report in the viewer, from the main menu and back.
std::vector<TourStep> OutputSteps(QtBackend& backend);

// The settings, keys, buttons and bookmarks, from the main menu and back; nothing is kept.
std::vector<TourStep> SettingsSteps(QtBackend& backend);

}  // namespace quorvel
