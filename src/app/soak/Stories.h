#pragma once

#include <string>
#include <vector>

#include "app/tour/SampleHost.h"
#include "app/tour/StepPlayer.h"
#include "platform/qt/QtBackend.h"

namespace quorvel {

// A piece of an operator's work at the sample host. It begins and ends at the main menu.
struct Story {
  std::string name;
  std::vector<TourStep> steps;
};

// Where the operator works.
struct Workplace {
  QtBackend& backend;
  SampleHost& host;
  std::string folder;  // the application folder
};

// Names of the configurations in the application folder: one with the user, one that asks for him.
inline constexpr char kConfiguration[] = "sample.inf";
inline constexpr char kAskingConfiguration[] = "asking.inf";
// Writes both, for the host's address. False if that fails.
bool WriteConfigurations(const Workplace& place);

// Menus, terminal programs, screens with their lists, reports, help, pictures, settings.
std::vector<Story> WorkStories(const Workplace& place);
// The session ends, by a loss of the link in the middle of something or by a log-off, and the
// operator connects anew.
std::vector<Story> ReconnectStories(const Workplace& place);

}  // namespace quorvel
