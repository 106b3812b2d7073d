// The terminal emulation beside libvterm: bytes of a host to an updated screen of 80 by 24, in
// blocks of 16 KiB, 32 MiB a turn.

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <vterm.h>

#include "bench/TabReporter.h"
#include "bench/TerminalLoads.h"
#include "platform/vt/Emulator.h"

namespace {

constexpr std::size_t kBlock = 16384;
constexpr std::size_t kTurn = 32U << 20;
constexpr int kColumns = 80;
constexpr int kRows = 24;

struct Load {
  const char* name;
  std::string (*text)(std::size_t size);
};
constexpr Load kLoads[] = {
    {"plain", quorvel::bench::PlainLines},   {"rewrite", quorvel::bench::Rewrites},
    {"scroll", quorvel::bench::ShortLines},  {"cursor", quorvel::bench::CursorMoves},
    {"dense", quorvel::bench::DenseColours}, {"form", quorvel::bench::EntryForms},
};

template <class Feed>
void InBlocks(benchmark::State& state, const Load& load, Feed feed) {
  const std::string text = load.text(kTurn);
  for (auto _ : state) {
    for (std::string_view rest = text; !rest.empty();) {
      feed(rest.substr(0, kBlock));
      rest.remove_prefix(std::min(kBlock, rest.size()));
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Ours(benchmark::State& state, const Load& load) {
  quorvel::vt::Emulator emulator(kColumns, kRows);
  InBlocks(state, load, [&](std::string_view block) { emulator.Feed(block); });
  benchmark::DoNotOptimize(emulator.screen().CursorRow());
}

void Libvterm(benchmark::State& state, const Load& load) {
  const std::unique_ptr<VTerm, decltype(&vterm_free)> terminal(vterm_new(kRows, kColumns),
                                                               vterm_free);
  vterm_set_utf8(terminal.get(), 0);
  VTermScreen* const screen = vterm_obtain_screen(terminal.get());
  vterm_screen_reset(screen, 1);
  InBlocks(state, load, [&](std::string_view block) {
    vterm_input_write(terminal.get(), block.data(), block.size());
    vterm_screen_flush_damage(screen);
  });
}

void Copy(benchmark::State& state, const Load& load) {
  std::string target(kBlock, ' ');
  InBlocks(state, load, [&](std::string_view block) {
    std::memcpy(target.data(), block.data(), block.size());
    benchmark::DoNotOptimize(target.data());
  });
}

void Register() {
  for (const Load& load : kLoads) {
    const std::string name = load.name;
    const std::string peers = "peer:libvterm_" + name + (name == "plain" ? ",memcpy_plain" : "");
    benchmark::RegisterBenchmark(name.c_str(), [load, peers](benchmark::State& state) {
      Ours(state, load);
      state.SetLabel(peers);
    });
    benchmark::RegisterBenchmark(("libvterm_" + name).c_str(),
                                 [load](benchmark::State& state) { Libvterm(state, load); });
  }
  benchmark::RegisterBenchmark("memcpy_plain",
                               [](benchmark::State& state) { Copy(state, kLoads[0]); });
}

}  // namespace

int main(int argc, char** argv) {
  Register();
  return quorvel::bench::Main(argc, argv);
}
