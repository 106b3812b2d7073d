#include "app/Wiring.h"
#include "link/StartUp.h"
#include "platform/controls/Desktop.h"
#include "platform/qt/QtBackend.h"

int main(int argc, char** argv) {
  quorvel::QtBackend backend(argc, argv);
  quorvel::Desktop desktop(backend);
  quorvel::WireHandOvers();
  desktop.Post(quorvel::EventKind::Program, [] { quorvel::Main(); });
  return backend.Run();
}
