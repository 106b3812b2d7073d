// quorvel-sim-qt: the stories of quorvel-sim at the real desktop, by real events.
#include "app/sim/Program.h"
#include "app/sim/qt/Home.h"
#include "app/sim/qt/QtDesk.h"
#include "app/sim/qt/SimQtBackend.h"

int main(int argc, char** argv) {
  using namespace quorvel::sim;
  const Home home;
  SimQtBackend backend;
  PlayerSetup setup;
  setup.makeDesk = [&](const DeskSetup& desk) {
    home.EmptyDocuments();
    return std::make_unique<QtDesk>(backend, desk);
  };
  // A story takes much longer here, most of all with sanitizers on a busy machine.
  setup.longest = std::chrono::minutes(5);
  return RunProgram("quorvel-sim-qt", {argv + 1, argv + argc}, setup);
}
