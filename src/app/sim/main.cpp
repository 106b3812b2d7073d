// quorvel-sim: plays stories of an operator, a client, a line and a host in virtual time, and looks
// whether the rules hold. The same seed is the same story, everywhere.
#include "app/sim/HeadlessDesk.h"
#include "app/sim/HeapCount.h"
#include "app/sim/Program.h"

int main(int argc, char** argv) {
  using namespace quorvel::sim;
  PlayerSetup setup;
  setup.makeDesk = MakeHeadlessDesk;
#ifdef QUORVEL_COUNT_HEAP
  setup.blocksInUse = BlocksInUse;
#endif
  return RunProgram("quorvel-sim", {argv + 1, argv + argc}, setup);
}
