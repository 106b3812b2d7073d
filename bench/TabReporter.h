#pragma once

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
// nanoseconds a turn.
class TabReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (!run.error_occurred) figures_.push_back(FigureOf(run));
    }
  }

  void Finalize() override {
    std::map<std::string, double> values;
    for (const Figure& figure : figures_) values[figure.name] = figure.value;
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
    double value;
    std::string unit;
    std::string peers;
  };

  static void PrintLine(const Figure& figure, const std::string& peer,
                        const std::map<std::string, double>& values) {
    std::printf("%s\t%.4g\t%s\t", figure.name.c_str(), figure.value, figure.unit.c_str());
    const auto found = values.find(peer);
    if (found == values.end()) {
      std::printf("\t\t\n");
    } else {
      std::printf("%s\t%.4g\t%.3g\n", peer.c_str(), found->second, figure.value / found->second);
    }
  }

  static Figure FigureOf(const Run& run) {
    Figure figure{run.run_name.str(), run.GetAdjustedRealTime(), "ns", ""};
    const auto bytes = run.counters.find("bytes_per_second");
    if (bytes != run.counters.end()) {
      figure.value = bytes->second;
      figure.unit = "B/s";
    }
    const std::string mark = "peer:";
    if (run.report_label.rfind(mark, 0) == 0) figure.peers = run.report_label.substr(mark.size());
    return figure;
  }

  std::vector<Figure> figures_;
};

inline int Main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  TabReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}

}  // namespace quorvel::bench
