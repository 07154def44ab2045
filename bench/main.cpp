#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "compare.h"

namespace {

struct Row {
  std::string subject;
  Peer peer;
};

std::vector<Row>& Rows() {
  static std::vector<Row> s_Rows;
  return s_Rows;
}

struct Figure {
  const char* subject;
  std::string (*measure)();
};

std::vector<Figure>& Figures() {
  static std::vector<Figure> s_Figures;
  return s_Figures;
}

std::string OursName(const std::string& subject) {
  return subject + "/ours";
}
std::string PeerName(const Row& row) {
  return row.subject + "/" + row.peer.name;
}

// Nanoseconds of every repetition, by benchmark, in the order they ran.
using Times = std::map<std::string, std::vector<double>>;

double Minimum(const std::vector<double>& times) {
  return *std::min_element(times.begin(), times.end());
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double Ratio(const Goal& goal, double ours, double peer) {
  return goal.atLeast ? peer / ours : ours / peer;
}

void PrintRow(const Row& row, const Times& times) {
  const auto ours = times.find(OursName(row.subject));
  const auto peer = times.find(PeerName(row));
  if (!row.peer.run) {
    std::printf("%-38s %-28s skipped: its package is not installed\n", row.subject.c_str(), row.peer.name);
    return;
  }
  if (ours == times.end() || peer == times.end()) return;  // filtered out
  std::vector<double> ratios;
  for (std::size_t i = 0; i < std::min(ours->second.size(), peer->second.size()); ++i)
    ratios.push_back(Ratio(row.peer.goal, ours->second[i], peer->second[i]));
  const double median = Median(ratios);
  const bool met = row.peer.goal.atLeast ? median >= row.peer.goal.ratio : median <= row.peer.goal.ratio;
  std::printf("%-38s %-28s %10.1f %10.1f  %s %5.4gx %8.2fx %8.2fx  %s\n", row.subject.c_str(), row.peer.name,
              Median(ours->second), Median(peer->second),
              row.peer.goal.atLeast ? ">=" : "<=", row.peer.goal.ratio, median,
              Ratio(row.peer.goal, Minimum(ours->second), Minimum(peer->second)), met ? "met" : "MISSED");
}

class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.run_type == Run::RT_Iteration && !run.error_occurred)
        m_Times[run.run_name.function_name].push_back(
            run.run_name.time_type.empty() ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime());
  }

  void Finalize() override {
    std::printf("%-38s %-28s %10s %10s  %9s %9s %9s\n", "subject", "peer", "ours ns", "peer ns", "goal",
                "median", "minima");
    for (const Row& row : Rows()) PrintRow(row, m_Times);
  }

 private:
  Times m_Times;
};

}  // namespace

bool Compare(const char* subject, Body ours, const std::vector<Peer>& peers, Clocked clocked) {
  const auto add = [clocked](const std::string& name, Body body) {
    benchmark::internal::Benchmark* const added = benchmark::RegisterBenchmark(name.c_str(), body);
    if (clocked == Clocked::Elapsed) added->UseRealTime();
  };
  add(OursName(subject), ours);
  for (const Peer& peer : peers) {
    Rows().push_back({subject, peer});
    if (peer.run) add(PeerName(Rows().back()), peer.run);
  }
  return true;
}

bool Show(const char* subject, std::string (*measure)()) {
  Figures().push_back({subject, measure});
  return true;
}

int main(int argc, char** argv) {
  std::vector<std::string> words = {argv[0], "--benchmark_enable_random_interleaving=true",
                                    "--benchmark_repetitions=9", "--benchmark_min_time=0.03"};
  words.insert(words.end(), argv + 1, argv + argc);  // the caller's words come last and win
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 2;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (argc == 1)
    for (const Figure& figure : Figures())
      std::printf("%-38s %s\n", figure.subject, figure.measure().c_str());
  return 0;
}
