// Reports: the capture into a file, the load of 1,000,000 lines (100 MB) beside the plain read of
// the same file, and the opening and closing of the viewer beside a plain list widget.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include "TabReporter.h"
#include "app/Wiring.h"
#include "link/CaptureMessages.h"
#include "link/SessionState.h"
#include "output/frmReport.h"
#include "platform/controls/Desktop.h"
#include "platform/headless/HeadlessBackend.h"

#ifdef QUORVEL_BENCH_QT
#include <QApplication>
#include <QListWidget>

#include "platform/qt/QtBackend.h"
#endif

namespace {

constexpr std::size_t kLines = 1'000'000;
constexpr std::size_t kLineLength = 98;  // and CR LF: 100 MB in all
constexpr std::size_t kBlock = 4096;

// A folder of this run, gone at its end.
class Folder {
 public:
  Folder()
      : path_(std::filesystem::temp_directory_path() /
              ("quorvel-bench-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string File(const char* name) const { return (path_ / name).string(); }

 private:
  const std::filesystem::path path_;
};

const Folder& TheFolder() {
  static const Folder folder;
  return folder;
}

// The report, written once and read once, so that it is in the page cache.
const std::string& ReportFile() {
  static const std::string path = [] {
    std::string name = TheFolder().File("ledger.txt");
    std::ofstream file(name, std::ios::binary);
    for (std::size_t i = 1; i <= kLines; ++i) {
      std::string line = std::to_string(i) + "  22 Nov 2026  C1001  Invoice";
      line.resize(kLineLength, '.');
      file << line << "\r\n";
    }
    file.close();
    std::ifstream(name, std::ios::binary).ignore(std::numeric_limits<std::streamsize>::max());
    return name;
  }();
  return path;
}

std::int64_t ReportSize() {
  return static_cast<std::int64_t>(std::filesystem::file_size(ReportFile()));
}

void Capture(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  quorvel::Desktop desktop(backend);
  quorvel::Session().CaptureFile = TheFolder().File("capture.txt");
  const std::string block(kBlock, 'x');
  for (auto _ : state) {
    std::filesystem::remove(quorvel::Session().CaptureFile);
    for (std::size_t done = 0; done < kLines * 100; done += kBlock) {
      quorvel::AppendToCapture(block);
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kLines * 100));
}
BENCHMARK(Capture)->Name("capture_100_mb_in_4_kib_blocks")->Unit(benchmark::kMillisecond);

// What the load can be measured by: the file into memory that nobody has touched yet.
void PlainRead(benchmark::State& state) {
  const auto size = static_cast<std::size_t>(ReportSize());
  for (auto _ : state) {
    std::ifstream file(ReportFile(), std::ios::binary);
    std::unique_ptr<char[]> text(new char[size]);
    file.read(text.get(), static_cast<std::streamsize>(size));
    benchmark::DoNotOptimize(text.get());
    state.PauseTiming();
    text.reset();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ReportSize());
}
BENCHMARK(PlainRead)->Name("plain_read");

void Load(benchmark::State& state) {
  quorvel::HeadlessBackend backend;
  quorvel::Desktop desktop(backend);
  quorvel::WireHandOvers();
  quorvel::frmReport& report = *quorvel::Form<quorvel::frmReport>();
  for (auto _ : state) {
    std::ifstream file(ReportFile(), std::ios::binary);
    report.Fill(file, static_cast<std::size_t>(ReportSize()));
    state.PauseTiming();
    if (report.txtReport.Lines().Count() != kLines) state.SkipWithError("lines are missing");
    report.txtReport.Clear();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ReportSize());
  state.SetLabel("peer:plain_read");
}
BENCHMARK(Load)->Name("load_1m_lines");

#ifdef QUORVEL_BENCH_QT

// The toolkit's application object can be made but once.
class RealDesktop {
 public:
  RealDesktop() : backend_(1, arguments_), desktop_(backend_) {
    quorvel::WireHandOvers();
    quorvel::Session().CaptureFile = ReportFile();
  }

 private:
  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  quorvel::QtBackend backend_;
  quorvel::Desktop desktop_;
};

std::unique_ptr<RealDesktop> theDesktop;

void NeedDesktop() {
  if (!theDesktop) theDesktop = std::make_unique<RealDesktop>();
}

void OpenViewer() {
  quorvel::desktop().Handle(quorvel::EventKind::Program, [] { quorvel::ShowReport(); });
  QApplication::processEvents();
}

void CloseViewer() {
  quorvel::desktop().Handle(quorvel::EventKind::Program,
                            [] { quorvel::Form<quorvel::frmReport>()->Unload(); });
  QApplication::processEvents();
}

void FillWidget(QListWidget& list) {
  std::ifstream file(ReportFile(), std::ios::binary);
  list.resize(900, 600);
  list.show();
  QApplication::processEvents();
  for (std::string line; std::getline(file, line);) {
    line.pop_back();
    list.addItem(QString::fromLatin1(line.data(), static_cast<qsizetype>(line.size())));
  }
  QApplication::processEvents();
}

// Times one half of opening and closing.
template <class Open, class Close>
void Measure(benchmark::State& state, bool opening, const Open& open, const Close& close) {
  NeedDesktop();
  for (auto _ : state) {
    if (!opening) state.PauseTiming();
    open();
    opening ? state.PauseTiming() : state.ResumeTiming();
    close();
    if (opening) state.ResumeTiming();
  }
}

void Viewer(benchmark::State& state, bool opening) {
  Measure(state, opening, OpenViewer, CloseViewer);
  state.SetLabel(opening ? "peer:list_widget_fill_1m_lines/iterations:2"
                         : "peer:list_widget_close_1m_lines/iterations:2");
}
void Widget(benchmark::State& state, bool opening) {
  std::unique_ptr<QListWidget> list;
  Measure(
      state, opening,
      [&list] {
        list = std::make_unique<QListWidget>();
        FillWidget(*list);
      },
      [&list] { list.reset(); });
}

BENCHMARK_CAPTURE(Widget, open, true)->Name("list_widget_fill_1m_lines")->Iterations(2);
BENCHMARK_CAPTURE(Widget, close, false)->Name("list_widget_close_1m_lines")->Iterations(2);
BENCHMARK_CAPTURE(Viewer, open, true)->Name("viewer_open_1m_lines")->Iterations(20);
BENCHMARK_CAPTURE(Viewer, close, false)->Name("viewer_close_1m_lines")->Iterations(20);

#endif

}  // namespace

int main(int argc, char** argv) {
  const int status = quorvel::bench::Main(argc, argv);
#ifdef QUORVEL_BENCH_QT
  theDesktop.reset();
#endif
  return status;
}
