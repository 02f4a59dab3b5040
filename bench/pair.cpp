// SPDX-License-Identifier: MIT
#include "bench/pair.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

namespace quenlor::bench {
namespace {

double Median(std::vector<double> numbers) {
  std::ranges::sort(numbers);
  const std::size_t middle = numbers.size() / 2;
  return numbers.size() % 2 == 1 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
}

void Measure(benchmark::State& state, const Row& row, const std::function<Pair()>& prepare) {
  const Pair pair = prepare();
  std::vector<double> ours;
  std::vector<double> baseline;
  std::vector<double> ratios;
  pair.baseline();  // the first one pays for cold caches
  for ([[maybe_unused]] const auto _ : state) {
    const bool baseline_first = ours.size() % 2 == 0;
    if (baseline_first) baseline.push_back(pair.baseline());
    ours.push_back(pair.ours());
    if (!baseline_first) baseline.push_back(pair.baseline());
    ratios.push_back(row.shown == Shown::Time ? ours.back() / baseline.back()
                                              : baseline.back() / ours.back());
    state.SetIterationTime(ours.back());
  }
  state.counters["ours"] = Median(ours);
  state.counters["baseline"] = Median(baseline);
  state.counters["ratio"] = Median(ratios);
  state.counters["things"] = static_cast<double>(row.things);
  state.counters["shown"] = static_cast<double>(row.shown);
  state.SetLabel(row.goal);
}

std::string Scaled(double value, std::initializer_list<std::pair<double, std::string_view>> units) {
  char text[40];
  for (const auto& [unit, name] : units) {
    if (value < unit && unit != (units.end() - 1)->first) continue;
    const double scaled = value / unit;
    const int decimals = scaled < 10 ? 2 : scaled < 100 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f %s", decimals, scaled, name.data());
    break;
  }
  return text;
}

std::string TimeText(double seconds) {
  return Scaled(seconds, {{1.0, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}});
}

std::string RateText(double rate) { return Scaled(rate, {{1e6, "M/s"}, {1e3, "k/s"}, {1, "/s"}}); }

class LinePrinter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      const auto counter = [&run](const char* name) { return run.counters.at(name).value; };
      const auto shown = static_cast<Shown>(static_cast<int>(counter("shown")));
      const auto side = [&](const char* name) {
        return shown == Shown::Rate ? RateText(counter("things") / counter(name))
                                    : TimeText(counter(name) / counter("things"));
      };
      std::printf("%s|%s|%s|%.2f%s|%s\n", run.run_name.function_name.c_str(), side("ours").c_str(),
                  side("baseline").c_str(), counter("ratio"), shown == Shown::TimesFast ? " x faster" : "",
                  run.report_label.c_str());
      std::fflush(stdout);
    }
  }
};

}  // namespace

void AddRow(const Row& row, const std::function<Pair()>& prepare) {
  benchmark::RegisterBenchmark(row.work.c_str(),
                               [row, prepare](benchmark::State& state) { Measure(state, row, prepare); })
      ->Iterations(row.repetitions)
      ->UseManualTime();
}

int MeasureRows(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  LinePrinter printer;
  benchmark::RunSpecifiedBenchmarks(&printer);
  return 0;
}

}  // namespace quenlor::bench
