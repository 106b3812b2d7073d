#pragma once

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace quorvel::bench {

// Prints one tab-separated line for each figure: name, value, unit, peer, the peer's value, ratio
// of ours to the peer's; the last three are empty where there is no peer.
//
// A benchmark named "x" whose peer is measured by another one of the same run is registered with
// the label "peer:NAME", NAME being that benchmark; several names, separated by commas, give a line
// each. Peers are printed too. The figure is bytes a second where the benchmark counts bytes, else
// nanoseconds a turn; of a benchmark that is repeated, the median.
class TabReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (!run.error_occurred && run.run_type == Run::RT_Iteration) Add(FigureOf(run));
    }
  }

  void Finalize() override {
    std::map<std::string, double> values;
    for (const Figure& figure : figures_) values[figure.name] = Median(figure.values);
    for (const Figure& figure : figures_) {
      std::istringstream peers(figure.peers);
      std::string peer;
      do {
        std::getline(peers, peer, ',');
        PrintLine(figure, peer, values);
      } while (!peers.eof());
    }
  }

 private:
  struct Figure {
    std::string name;
    std::vector<double> values;
    std::string unit;
    std::string peers;
  };

  void Add(const Figure& figure) {
    for (Figure& known : figures_) {
      if (known.name != figure.name) continue;
      known.values.push_back(figure.values.front());
      return;
    }
    figures_.push_back(figure);
  }

  static double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
  }

  static void PrintLine(const Figure& figure, const std::string& peer,
                        const std::map<std::string, double>& values) {
    const double value = Median(figure.values);
    std::printf("%s\t%.4g\t%s\t", figure.name.c_str(), value, figure.unit.c_str());
    const auto found = values.find(peer);
    if (found == values.end()) {
      std::printf("\t\t\n");
    } else {
      std::printf("%s\t%.4g\t%.3g\n", peer.c_str(), found->second, value / found->second);
    }
  }

  static Figure FigureOf(const Run& run) {
    Figure figure{run.run_name.str(), {run.GetAdjustedRealTime()}, "ns", ""};
    const auto bytes = run.counters.find("bytes_per_second");
    if (bytes != run.counters.end()) {
      figure.values = {bytes->second};
      figure.unit = "B/s";
    }
    const std::string mark = "peer:";
    if (run.report_label.rfind(mark, 0) == 0) figure.peers = run.report_label.substr(mark.size());
    return figure;
  }

  std::vector<Figure> figures_;
};

// `usual` are options of the benchmark library ahead of those of the command line, which come last
// and win.
inline int Main(int argc, char** argv, std::vector<std::string> usual = {}) {
  std::vector<char*> options{argv[0]};
  for (std::string& option : usual) options.push_back(option.data());
  options.insert(options.end(), argv + 1, argv + argc);
  int count = static_cast<int>(options.size());
  options.push_back(nullptr);
  benchmark::Initialize(&count, options.data());
  TabReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}

}  // namespace quorvel::bench
