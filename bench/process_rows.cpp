// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <unistd.h>

#include "bench/child_process.h"

// The rows of the table that tell of whole processes: the start of the program, and a picture from a file.
namespace {

using quenlor::bench::Ran;
using quenlor::bench::Run;

double Median(std::vector<double> numbers) {
  std::ranges::sort(numbers);
  return numbers.empty() ? 0 : numbers[numbers.size() / 2];
}

struct Figures {
  std::vector<double> ours;
  std::vector<double> baseline;

  double Ratio() const {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < ours.size(); ++i) ratios.push_back(ours[i] / baseline[i]);
    return Median(ratios);
  }
  void Print(const char* work, const char* unit, double scale, const char* goal) const {
    std::printf("%s|%.1f %s|%.1f %s|%.2f|%s\n", work, Median(ours) * scale, unit, Median(baseline) * scale,
                unit, Ratio(), goal);
    std::fflush(stdout);
  }
};

// Both in turn, again and again; the first round pays for cold caches and does not count.
void Repeat(int rounds, const std::function<void(bool counts)>& round) {
  for (int i = 0; i <= rounds; ++i) round(i > 0);
}

void StartRows(const std::string& here, const std::string& folder) {
  Figures painted;
  Figures memory;
  Repeat(11, [&](bool counts) {
    const Ran baseline = Run(here + "/quenlor-bench-empty-window", {});
    const Ran ours = Run(here + "/quenlor-bench-main-window", {folder});
    if (!counts) return;
    const auto kib = [](const Ran& ran) {
      return std::atof(ran.output.substr(ran.output.find('\n') + 1).c_str());
    };
    painted.ours.push_back(ours.seconds_to_first_line);
    painted.baseline.push_back(baseline.seconds_to_first_line);
    memory.ours.push_back(kib(ours));
    memory.baseline.push_back(kib(baseline));
  });
  painted.Print("start: to the first painted window, to an empty Qt window", "ms", 1e3, "at most 1.5");
  memory.Print("start: idle memory, to an empty Qt window", "MiB", 1.0 / 1024, "45 MiB");
}

void GraphRow(const std::string& here, const std::string& folder, const char* name, const std::string& file,
              int rounds, const char* goal) {
  const std::string out = folder + "/picture.png";
  Figures figures;
  Repeat(rounds, [&](bool counts) {
    const Ran baseline = Run(here + "/quenlor-bench-open-and-png", {file, out});
    const Ran ours =
        Run(here + "/quenlor", {"--folder", folder, "--graph", out, "--size", "1600x1200", file});
    if (ours.exit_code != 0 || baseline.exit_code != 0) std::exit(1);
    if (!counts) return;
    figures.ours.push_back(ours.seconds);
    figures.baseline.push_back(baseline.seconds);
  });
  figures.Print(name, "ms", 1e3, goal);
}

// The same curve by a plotting program that reads the file itself, where it is installed.
void PlotterRow(const std::string& here, const std::string& folder, const char* name, const std::string& file,
                int rounds) {
  constexpr const char* kGoal = "at most 0.75";
  const std::string plotter = "/usr/bin/gnuplot";
  if (::access(plotter.c_str(), X_OK) != 0) {
    std::printf("%s|-|skipped: gnuplot is not installed|-|%s\n", name, kGoal);
    return;
  }
  const std::string out = folder + "/picture.png";
  const std::string script = "set terminal png size 1600,1200; set output '" + out +
                             "'; set datafile separator ','; unset key; plot '" + file +
                             "' skip 1 using (timecolumn(2, '%tH:%tM:%tS')):3 with lines";
  Figures figures;
  Repeat(rounds, [&](bool counts) {
    const Ran baseline = Run(plotter, {"-e", script});
    const Ran ours =
        Run(here + "/quenlor", {"--folder", folder, "--graph", out, "--size", "1600x1200", file});
    if (ours.exit_code != 0 || baseline.exit_code != 0) std::exit(1);
    if (!counts) return;
    figures.ours.push_back(ours.seconds);
    figures.baseline.push_back(baseline.seconds);
  });
  figures.Print(name, "ms", 1e3, kGoal);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: quenlor-bench-processes FOLDER 1M.csv 10M.csv\n", stderr);
    return 2;
  }
  const std::string path = argv[0];
  const std::string here = path.substr(0, path.find_last_of('/'));
  StartRows(here, argv[1]);
  GraphRow(here, argv[1], "graph: 1600x1200 PNG of 1 M readings, to opening and Qt's own PNG", argv[2], 7,
           "238 ms where a fast plotting program takes 340");
  GraphRow(here, argv[1], "graph: 1600x1200 PNG of 10 M readings, to opening and Qt's own PNG", argv[3], 3,
           "1440 ms where a fast plotting program takes 3000");
  PlotterRow(here, argv[1], "graph: 1600x1200 PNG of 1 M readings, to gnuplot", argv[2], 5);
  PlotterRow(here, argv[1], "graph: 1600x1200 PNG of 10 M readings, to gnuplot", argv[3], 3);
}
