// The terminal emulation under any bytes of the host: the first byte of the input chooses the type
// of terminal and whether the printer is allowed, the second how the rest is cut. Any cutting must
// give the same screen, scroll-back, answers and paper, and the cursor must stay on the screen.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/vt/Emulator.h"

namespace quorvel::vt {
namespace {

constexpr int kScrollbackRows = 50;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

struct Outcome {
  explicit Outcome(std::uint8_t choice) {
    terminal.SetType(static_cast<TerminalType>(1 + choice % 5));
    terminal.SetPassThrough((choice & 0x80) != 0);
    terminal.SetScrollbackRows(kScrollbackRows);
    terminal.onPrint = [this](std::string_view bytes) { paper += bytes; };
    terminal.onPrintEnd = [this] { paper += "<end>"; };
  }

  Emulator terminal;
  std::string paper;
};

void CheckBounds(const Emulator& terminal) {
  const Screen& screen = terminal.screen();
  Require(screen.CursorRow() >= 0 && screen.CursorRow() < screen.Rows(), "cursor in a row");
  Require(screen.CursorColumn() >= 0 && screen.CursorColumn() < screen.Width(screen.CursorRow()),
          "cursor in its line");
  Require(terminal.ScrollbackCount() <= kScrollbackRows, "scroll-back within its limit");
}

void FeedCut(Outcome& outcome, std::string_view bytes, unsigned seed) {
  while (!bytes.empty()) {
    seed = seed * 1103515245u + 12345u;  // any spread of sizes will do
    const std::size_t size = 1 + (seed >> 16) % 7;
    outcome.terminal.Feed(bytes.substr(0, size));
    CheckBounds(outcome.terminal);
    bytes.remove_prefix(std::min(size, bytes.size()));
  }
}

void CheckSame(Outcome& whole, Outcome& cut) {
  Emulator& a = whole.terminal;
  Emulator& b = cut.terminal;
  Require(a.screen() == b.screen(), "the same screen");
  Require(a.ScrollbackCount() == b.ScrollbackCount(), "as much scroll-back");
  for (int line = 0; line < a.ScrollbackCount(); ++line) {
    Require(a.LineAt(line).cells == b.LineAt(line).cells, "the same scroll-back");
  }
  Require(a.TakeAnswers() == b.TakeAnswers(), "the same answers");
  Require(a.TakeBells() == b.TakeBells(), "as many bells");
  Require(whole.paper == cut.paper, "the same paper");
  for (const Key key : {Key::Up, Key::F6, Key::F20}) {
    Require(a.Encode(key, {}) == b.Encode(key, {}), "the same keys");
  }
}

}  // namespace
}  // namespace quorvel::vt

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvel::vt;
  if (size < 2) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  Outcome whole(data[0]);
  whole.terminal.Feed(bytes);
  CheckBounds(whole.terminal);
  Outcome cut(data[0]);
  FeedCut(cut, bytes, data[1]);
  CheckSame(whole, cut);
  whole.terminal.Reset();
  CheckBounds(whole.terminal);
  return 0;
}
