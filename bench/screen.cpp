// The data-entry screen: building one of 79 fields and 60 lines, carrying a record of 3,900
// characters between its two orders, and the conversions.

#include "app/Wiring.h"
#include "bench/TabReporter.h"
#include "entry/Conversions.h"
#include "entry/RecordMapping.h"
#include "entry/ScreenDefinition.h"
#include "entry/frmEntry.h"
#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"
#ifdef QUORVEL_BENCH_QT
#include "platform/qt/QtBackend.h"
#endif

namespace {

using quorvel::AM;
using quorvel::SVM;
using quorvel::VM;

constexpr int kFields = 79;
constexpr int kLines = 60;
constexpr std::size_t kRecordSize = 3900;

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string Prompts() {
  std::string prompts;
  for (int i = 0; i < kLines; ++i) {
    if (i > 0) prompts += AM;
    prompts += std::to_string(i % 2 * 40) + SVM + std::to_string(i / 2 + 1) + VM + "Prompt " +
               std::to_string(i) + ":";
  }
  return prompts;
}

// One key field, then stored ones: of each ten a combo box, three dates and two amounts.
std::string Parms() {
  std::string order;
  std::string fields;
  for (int i = 0; i < kFields; ++i) {
    const int number = i + 2;
    order += (i > 0 ? std::string(1, VM) : std::string()) + std::to_string(number);
    std::string field = TwoDigits(i % 2 * 40 + 12) + TwoDigits(i / 2 + 1) + "121";
    field += VM;
    field += SVM + (i == 0 ? std::string() : std::to_string(i));
    field += VM + std::string("A tip") + VM;
    if (i % 10 < 3) field += "D2/";
    if (i % 10 >= 3 && i % 10 < 5) field += "MR2,$";
    field += VM + std::string("X") + VM + "FIELD" + std::to_string(number);
    if (i % 10 == 9) {
      field.append(15, VM);
      field += std::string("A") + SVM + "B" + SVM + "C";
    }
    fields += AM + field;
  }
  return order + fields;
}

std::string FileRecord() {
  std::string record;
  while (record.size() < kRecordSize) {
    if (!record.empty()) record += AM;
    record += "a value of fifty characters, more than it can hold";
  }
  return record.substr(0, kRecordSize);
}

void BuildScreenOn(quorvel::Backend& backend, benchmark::State& state) {
  quorvel::Desktop desktop(backend);
  quorvel::Session() = quorvel::SessionState{};
  quorvel::WireHandOvers();
  desktop.Handle(quorvel::EventKind::Program, [&] {
    quorvel::Session().ScreenPrompts = Prompts();
    quorvel::Session().ScreenParms = Parms();
    for (auto _ : state) {
      quorvel::Ask().ShowEntryScreen();
      if (quorvel::Session().FieldCount != kFields) state.SkipWithError("the screen is not built");
      desktop.Yield();  // shows it, where there is something to show it on
      quorvel::Ask().UnloadEntryScreen();
    }
  });
}

void BuildScreen(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  BuildScreenOn(backend, state);
}
BENCHMARK(BuildScreen)->Name("screen_79_fields_60_lines");

#ifdef QUORVEL_BENCH_QT
void BuildScreenOnQt(benchmark::State& state) {
  char name[] = "bench";
  char* arguments[] = {name, nullptr};
  quorvel::QtBackend backend(1, arguments);
  BuildScreenOn(backend, state);
}
// A fixed number of turns: the toolkit's application object can be made but once.
BENCHMARK(BuildScreenOnQt)->Name("screen_79_fields_60_lines_qt")->Iterations(40);
#endif

void LoadRecord(benchmark::State& state) {
  const quorvel::ScreenDefinition definition(Prompts(), Parms());
  const std::string file = FileRecord();
  for (auto _ : state) {
    benchmark::DoNotOptimize(quorvel::LoadEntryRecord(definition, {}, file));
  }
}
BENCHMARK(LoadRecord)->Name("load_entry_record_3900");

void PackRecord(benchmark::State& state) {
  const quorvel::ScreenDefinition definition(Prompts(), Parms());
  const std::string file = FileRecord();
  const std::string entry = AM + file;
  for (auto _ : state) {
    benchmark::DoNotOptimize(quorvel::PackEntryRecord(definition, entry, file));
  }
}
BENCHMARK(PackRecord)->Name("pack_entry_record_3900");

using Conversion = std::string (*)(std::string_view, std::string_view);

void Convert(benchmark::State& state, Conversion convert, const char* text, const char* code) {
  for (auto _ : state) benchmark::DoNotOptimize(convert(text, code));
}
BENCHMARK_CAPTURE(Convert, out, quorvel::OutputConv, "123456789", "MR2,$")->Name("show_amount");
BENCHMARK_CAPTURE(Convert, in, quorvel::InputConv, "1,234,567.89", "MR2")->Name("take_amount");
BENCHMARK_CAPTURE(Convert, date_out, quorvel::OutputConv, "21512", "D4/")->Name("show_date");
BENCHMARK_CAPTURE(Convert, date_in, quorvel::InputConv, "11/23/2026", "D4/")->Name("take_date");

}  // namespace

int main(int argc, char** argv) {
  return quorvel::bench::Main(argc, argv);
}
