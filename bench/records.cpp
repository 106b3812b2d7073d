// The text helpers on records of 100 bytes, 4 KB and 1 MB. A loop over all fields must be linear:
// its bytes a second are about the same whatever the size, and stand beside those of a bare memchr
// from mark to mark.

#include "link/Records.h"

#include <cstring>

#include "bench/TabReporter.h"
#include "link/Marks.h"

namespace {

constexpr std::size_t kFieldSize = 20;  // mark included

std::string RecordOf(std::int64_t size) {
  std::string record(static_cast<std::size_t>(size), 'x');
  for (std::size_t i = kFieldSize - 1; i < record.size(); i += kFieldSize) record[i] = quorvel::AM;
  return record;
}

void LoopOverFields(benchmark::State& state) {
  const std::string record = RecordOf(state.range(0));
  for (auto _ : state) {
    std::size_t characters = 0;
    for (const std::string_view field : quorvel::Fields(record, quorvel::AM)) {
      characters += field.size();
    }
    benchmark::DoNotOptimize(characters);
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
  state.SetLabel("peer:memchr/" + std::to_string(state.range(0)));
}
BENCHMARK(LoopOverFields)->Name("fields")->Arg(100)->Arg(4096)->Arg(1 << 20);

void LoopByMemchr(benchmark::State& state) {
  const std::string record = RecordOf(state.range(0));
  const char* const end = record.data() + record.size();
  for (auto _ : state) {
    std::size_t characters = 0;
    for (const char* from = record.data();;) {
      const void* hit = std::memchr(from, quorvel::AM, static_cast<std::size_t>(end - from));
      const char* to = hit ? static_cast<const char*>(hit) : end;
      characters += static_cast<std::size_t>(to - from);
      if (!hit) break;
      from = to + 1;
    }
    benchmark::DoNotOptimize(characters);
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LoopByMemchr)->Name("memchr")->Arg(100)->Arg(4096)->Arg(1 << 20);

void ExtractTheLast(benchmark::State& state) {
  const std::string record = RecordOf(state.range(0));
  const auto last =
      static_cast<std::int16_t>(std::min<std::size_t>(record.size() / kFieldSize, 32767));
  for (auto _ : state) benchmark::DoNotOptimize(quorvel::ExtractOf(record, last, 0, 0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(last * kFieldSize));
}
BENCHMARK(ExtractTheLast)->Name("extract")->Arg(100)->Arg(4096)->Arg(1 << 20);

void ReplaceTheFirst(benchmark::State& state) {
  const std::string record = RecordOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(quorvel::ReplaceOf(record, 1, 0, 0, "new"));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReplaceTheFirst)->Name("replace")->Arg(100)->Arg(4096)->Arg(1 << 20);

void SwapMarks(benchmark::State& state) {
  const std::string record = RecordOf(state.range(0));
  for (auto _ : state) {
    std::string text = record;
    benchmark::DoNotOptimize(quorvel::SwapAll(std::string_view(&quorvel::AM, 1), "\r\n", text));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SwapMarks)->Name("swap")->Arg(100)->Arg(4096)->Arg(1 << 20);

}  // namespace

int main(int argc, char** argv) {
  return quorvel::bench::Main(argc, argv);
}
