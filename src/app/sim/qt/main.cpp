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
  setup.makeDesk = [&](Network& network, Rules& rules, const Workplace& place) {
    home.EmptyDocuments();
    return std::make_unique<QtDesk>(backend, network, rules, place);
  };
  setup.longest =
      std::chrono::minutes(5);  // it takes some hundred times as long as without a toolkit
  return RunProgram("quorvel-sim-qt", {argv + 1, argv + argc}, setup);
}
