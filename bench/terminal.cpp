// The terminal emulation beside libvterm: bytes of a host to an updated screen of 80 by 24, in
// blocks of 16 KiB, 32 MiB a turn. And what a line of scroll-back costs in memory.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include <vterm.h>

#include "bench/TabReporter.h"
#include "bench/TerminalLoads.h"
#include "platform/vt/Emulator.h"

namespace {

std::size_t allocated = 0;  // bytes asked for and not yet given back; see the operators below

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

// Bytes beyond the text of an 80-column line in one attribute.
double ScrollbackLine() {
  constexpr int kLines = 32767;
  const std::string line(kColumns, 'x');
  quorvel::vt::Emulator emulator(kColumns, kRows);
  emulator.SetScrollbackRows(kLines);
  const std::size_t empty = allocated;
  for (int i = 0; i < kLines + kRows; ++i) emulator.Feed("\x1B[7m" + line + "\r\n");
  const std::size_t bytes = allocated - empty;
  return static_cast<double>(bytes) / emulator.ScrollbackCount() - kColumns;
}

}  // namespace

// Each allocation carries its size in front of it.
void* operator new(std::size_t size) {
  constexpr std::size_t kFront = alignof(std::max_align_t);
  void* const memory = std::malloc(size + kFront);
  if (memory == nullptr) throw std::bad_alloc();
  std::memcpy(memory, &size, sizeof size);
  allocated += size;
  return static_cast<char*>(memory) + kFront;
}
void operator delete(void* memory) noexcept {
  if (memory == nullptr) return;
  void* const front = static_cast<char*>(memory) - alignof(std::max_align_t);
  std::size_t size = 0;
  std::memcpy(&size, front, sizeof size);
  allocated -= size;
  std::free(front);
}
void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}

int main(int argc, char** argv) {
  Register();
  // In turns: on a machine shared with others, a second is not like the next.
  const int status = quorvel::bench::Main(
      argc, argv,
      {"--benchmark_repetitions=3", "--benchmark_enable_random_interleaving=true",
       "--benchmark_min_time=0.1"});
  std::printf("scrollback_line\t%.4g\tB\t\t\t\n", ScrollbackLine());
  return status;
}
