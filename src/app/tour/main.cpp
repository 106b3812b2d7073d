// quorvel-tour DIR CONFIGURATION: walks through the program and leaves one numbered picture a step
// in DIR.

#include <cstdio>
#include <filesystem>

#include "app/Wiring.h"
#include "app/tour/Tour.h"
#include "link/StartUp.h"
#include "platform/controls/Desktop.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: quorvel-tour DIR CONFIGURATION\n");
    return 2;
  }
  const std::string folder = argv[1];
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (failed) {
    std::fprintf(stderr, "quorvel-tour: %s: %s\n", folder.c_str(), failed.message().c_str());
    return 1;
  }
  argv[1] = argv[0];  // the program sees the configuration only
  quorvel::QtBackend backend(--argc, ++argv);
  quorvel::Desktop desktop(backend);
  quorvel::WireHandOvers();
  quorvel::Tour tour(backend, folder, quorvel::TourSteps(backend));
  desktop.Post(quorvel::EventKind::Program, [] { quorvel::Main(); });
  tour.Start();
  const int status = backend.Run();
  return status != 0 ? status : tour.ExitStatus();
}
