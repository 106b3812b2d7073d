// The text helpers on records of 100 bytes, 4 KB and 1 MB. A loop over all fields must be linear:
// its bytes a second are about the same whatever the size.

#include "bench/TabReporter.h"
#include "link/Marks.h"
#include "link/Records.h"

namespace {

// A record of `size` bytes whose attributes have 19 characters each.
std::string RecordOf(std::size_t size) {
  std::string record;
  while (record.size() + 20 <= size) record += std::string("attribute of a recor").replace(19, 1, 1, quorvel::AM);
  return record;
}

void LoopOverFields(benchmark::State& state) {
  const std::string record = RecordOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::size_t characters = 0;
    for (const std::string_view field : quorvel::Fields(record, quorvel::AM)) {
      characters += field.size();
    }
    benchmark::DoNotOptimize(characters);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(record.size()));
}
BENCHMARK(LoopOverFields)->Name("fields")->Arg(100)->Arg(4096)->Arg(1 << 20);

void ExtractTheLast(benchmark::State& state) {
  const std::string record = RecordOf(static_cast<std::size_t>(state.range(0)));
  const auto last = static_cast<std::int16_t>(std::min<std::size_t>(record.size() / 20, 32767));
  for (auto _ : state) benchmark::DoNotOptimize(quorvel::ExtractOf(record, last, 0, 0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(last) * 20);
}
BENCHMARK(ExtractTheLast)->Name("extract")->Arg(100)->Arg(4096)->Arg(1 << 20);

void ReplaceTheFirst(benchmark::State& state) {
  const std::string record = RecordOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(quorvel::ReplaceOf(record, 1, 0, 0, "new"));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(record.size()));
}
BENCHMARK(ReplaceTheFirst)->Name("replace")->Arg(100)->Arg(4096)->Arg(1 << 20);

void SwapMarks(benchmark::State& state) {
  const std::string record = RecordOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::string text = record;
    benchmark::DoNotOptimize(quorvel::SwapAll(std::string_view(&quorvel::AM, 1), "\r\n", text));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(record.size()));
}
BENCHMARK(SwapMarks)->Name("swap")->Arg(100)->Arg(4096)->Arg(1 << 20);

}  // namespace

int main(int argc, char** argv) { return quorvel::bench::Main(argc, argv); }
