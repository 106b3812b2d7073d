#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "platform/qt/QtBackend.h"

namespace quorvel {

// One step of the tour: once `ready` holds, a picture is taken under `name` (none if it is empty)
// and then `act` does what the user does next, with real key and mouse events. `act` may open a
// dialog and return only when a later step has closed it.
struct TourStep {
  std::string name;
  std::function<bool()> ready;
  std::function<void()> act;
};

// Plays steps against the running program. Ends the process with status 0 after the last one, with
// status 1 when a step does not get ready in time.
class Tour : public QObject {
 public:
  Tour(QtBackend& backend, std::string folder, std::vector<TourStep> steps);
  void Start();
  int ExitStatus() const { return status_; }

 private:
  void Tick();
  void TakePicture(const std::string& name);
  void End(int status);

  QtBackend& backend_;
  const std::string folder_;
  const std::vector<TourStep> steps_;
  std::size_t next_ = 0;
  int pictures_ = 0;
  int readyTicks_ = 0;
  int status_ = 1;
  bool ended_ = false;
  QElapsedTimer waiting_;
};

// The steps through the program against the sample host.
std::vector<TourStep> TourSteps(QtBackend& backend);
// Those on its customer screen, from the open screen until it is left.
std::vector<TourStep> ScreenSteps(QtBackend& backend);
// The other screens of the sample host, in windows of several sizes; from the main menu and back.
std::vector<TourStep> OtherScreenSteps(QtBackend& backend);
// From the main menu: a picture and a fax; leaves a report that is being closed.
std::vector<TourStep> ImageAndFaxSteps(QtBackend& backend);
// A report in the viewer, from the main menu and back.
std::vector<TourStep> OutputSteps(QtBackend& backend);

// The settings, keys, buttons and bookmarks, from the main menu and back; nothing is kept.
std::vector<TourStep> SettingsSteps(QtBackend& backend);

}  // namespace quorvel
