// quorvel-sim: plays stories of an operator, a client, a line and a host in virtual time, and looks
// whether the rules hold. The same seed is the same story, everywhere.
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "app/sim/CommandLine.h"
#include "app/sim/HeapCount.h"
#include "app/sim/Player.h"

namespace {

// What a handler of signals may read.
volatile std::sig_atomic_t& CurrentSeed() {
  static volatile std::sig_atomic_t seed = 0;
  return seed;
}
volatile std::sig_atomic_t& CurrentKind() {
  static volatile std::sig_atomic_t kind = 0;
  return kind;
}

extern "C" void TellCrash(int signal) {
  const auto& row = quorvel::sim::Kinds()[static_cast<std::size_t>(CurrentKind())];
  std::fprintf(stderr, "quorvel-sim: signal %d in --story %s --seeds %d-%d\n", signal,
               std::string(row.name).c_str(), static_cast<int>(CurrentSeed()),
               static_cast<int>(CurrentSeed()));
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvel::sim;
  const auto options = ReadCommandLine({argv + 1, argv + argc});
  if (!options || options->help) {
    std::fputs(UsageText().c_str(), options ? stdout : stderr);
    return options ? 0 : 2;
  }
  Kinds();  // made ahead of any signal
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE}) std::signal(signal, TellCrash);
  Player player(*options, [](const std::string& line) { std::puts(line.c_str()); });
  player.onStory = [](Kind kind, std::uint64_t seed) {
    CurrentKind() = static_cast<std::sig_atomic_t>(kind);
    CurrentSeed() = static_cast<std::sig_atomic_t>(seed);
  };
#ifdef QUORVEL_COUNT_HEAP
  player.CountBlocksBy(BlocksInUse);
#endif
  return player.Play() ? 0 : 1;
}
