#include "app/sim/Program.h"

#include <csignal>
#include <cstdio>

#include "app/sim/CommandLine.h"

namespace quorvel::sim {
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
const char*& NameOfProgram() {
  static const char* name = "";
  return name;
}

extern "C" void TellCrash(int signal) {
  const KindRow& row = Kinds()[static_cast<std::size_t>(CurrentKind())];
  std::fprintf(stderr, "%s: signal %d in --story %s --seeds %d-%d\n", NameOfProgram(), signal,
               std::string(row.name).c_str(), static_cast<int>(CurrentSeed()),
               static_cast<int>(CurrentSeed()));
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void TellCrashes(const std::string& name) {
  NameOfProgram() = name.c_str();
  Kinds();  // made ahead of any signal
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE}) std::signal(signal, TellCrash);
}

}  // namespace

int RunProgram(const std::string& name, const std::vector<std::string>& words,
               const PlayerSetup& setup) {
  const auto options = ReadCommandLine(words);
  if (!options || options->help) {
    std::fputs(UsageText(name).c_str(), options ? stdout : stderr);
    return options ? 0 : 2;
  }
  TellCrashes(name);
  Player player(*options, setup, [](const std::string& line) { std::puts(line.c_str()); });
  player.onStory = [](Kind kind, std::uint64_t seed) {
    CurrentKind() = static_cast<std::sig_atomic_t>(kind);
    CurrentSeed() = static_cast<std::sig_atomic_t>(seed);
  };
  return player.Play() ? 0 : 1;
}

}  // namespace quorvel::sim
