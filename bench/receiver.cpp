// The receiver on plain blocks, beside memchr over the same bytes: what is left of the speed of
// looking for a mark. The terminal is left out; it has a benchmark of its own.

#include "link/Receiver.h"

#include <cstring>

#include "bench/TabReporter.h"
#include "link/BlockQueue.h"
#include "link/HandOvers.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"

namespace {

using quorvel::Session;

std::string PlainBlock() {
  std::string block;
  while (block.size() < quorvel::BlockQueue::kLongestBlock) block += "A line of plain text.\r\n";
  block.resize(quorvel::BlockQueue::kLongestBlock);
  return block;
}

void SearchOnly(benchmark::State& state) {
  const std::string block = PlainBlock();
  const std::size_t length = quorvel::BlockQueue::kLongestBlock;
  for (auto _ : state) benchmark::DoNotOptimize(std::memchr(block.data(), 127, length));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(block.size()));
}
BENCHMARK(SearchOnly)->Name("memchr");

void Receive(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  quorvel::Desktop desktop(backend);
  Session() = quorvel::SessionState{};
  std::size_t written = 0;
  quorvel::Ask() = quorvel::HandOvers{};
  quorvel::Ask().WriteTerminal = [&](std::string_view text) { written += text.size(); };
  std::string block = PlainBlock();
  for (auto _ : state) quorvel::ReceiveHostData(block);
  benchmark::DoNotOptimize(written);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(block.size()));
  state.SetLabel("peer:memchr");
}
BENCHMARK(Receive)->Name("receiver");

void ReceiveThroughQueue(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  quorvel::Desktop desktop(backend);
  Session() = quorvel::SessionState{};
  quorvel::Ask() = quorvel::HandOvers{};
  const std::string read = PlainBlock();
  for (auto _ : state) {
    quorvel::BlockQueue queue;
    queue.Push(read);
    while (!queue.IsEmpty()) {
      std::string block = queue.Take(Session().FrameStart != 0, quorvel::FrameMark());
      quorvel::ReceiveHostData(block);
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(read.size()));
  state.SetLabel("peer:memchr");
}
BENCHMARK(ReceiveThroughQueue)->Name("receiver_queue");

}  // namespace

int main(int argc, char** argv) {
  return quorvel::bench::Main(argc, argv);
}
