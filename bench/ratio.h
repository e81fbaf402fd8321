#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace carapace_bench {

/// Prints the runs as usual and keeps their times, so that two benchmarks of one process can be set
/// side by side.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration) {
        m_seconds[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// The median processor time of a benchmark over its repetitions, in its own unit; 0 when it did
  /// not run. The clock on the wall would count what other programs take, too.
  double Median(const std::string& name) const {
    const auto found = m_seconds.find(name);
    if (found == m_seconds.end()) return 0.0;
    std::vector<double> times = found->second;
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
  }

 private:
  std::map<std::string, std::vector<double>> m_seconds;
};

/// Runs the benchmarks of this program, `subject` and `peer` among them, and prints the
/// ratio of their median times beside the one that is aimed at. Returns the exit code.
inline int RunAgainstPeer(int argc, char** argv, const std::string& subject,
                          const std::string& peer, double target) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const double peer_time = reporter.Median(peer);
  if (peer_time > 0.0) {
    std::printf("%s / %s = %.3f (target: at most %.2f)\n", subject.c_str(), peer.c_str(),
                reporter.Median(subject) / peer_time, target);
  }
  return 0;
}

}  // namespace carapace_bench
