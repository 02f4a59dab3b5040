// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>

#include "bench/readings.h"
#include "bench/window_of_bench.h"

// The program's own window while an instrument sends as fast as a line allows, beside the same window while
// it sends nothing: what share of a core each takes, and how soon a timer of the window's thread is served.
namespace {

using namespace quenlor;

constexpr int kLinesPerSecond = 1440;
constexpr int kBurstMilliseconds = 25;

struct Load {
  double core_share = 0;
  double worst_answer = 0;  // ms
  double usual_answer = 0;  // ms, 99 of 100 are sooner
};

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

Load Watch(int milliseconds) {
  constexpr int kBeat = 5;
  std::vector<double> late;
  QElapsedTimer since;
  QTimer beat;
  beat.setTimerType(Qt::PreciseTimer);
  QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
    late.push_back(static_cast<double>(since.nsecsElapsed()) / 1e6 - kBeat);
    since.restart();
  });
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  const double processor = ProcessorSeconds();
  QElapsedTimer wall;
  wall.start();
  since.start();
  beat.start(kBeat);
  loop.exec();
  const double share = (ProcessorSeconds() - processor) / (static_cast<double>(wall.nsecsElapsed()) / 1e9);
  std::ranges::sort(late);
  return {share, late.back(), late[late.size() * 99 / 100]};
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
  bench::WindowOfBench bench;
  app::MainWindow& window = bench.window;
  window.OpenFile(bench.Put(bench::DataFileText(1'000'000, 19)));
  window.resize(1200, 800);
  window.show();
  const Load idle = Watch(seconds * 1000 / 4);

  window.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
  const auto rows_before = window.Document().Grid1().Rows();
  bench::ReadingSource readings;
  QTimer instrument;
  instrument.setTimerType(Qt::PreciseTimer);
  QElapsedTimer sending;
  long sent = 0;
  QObject::connect(&instrument, &QTimer::timeout, &instrument, [&] {
    std::string lines;
    for (const long due = static_cast<long>(sending.elapsed() * kLinesPerSecond / 1000); sent < due; ++sent) {
      bench::AppendInstrumentLine(readings.Next(), lines);
      lines += "\r\n";
    }
    bench.MSComm1.Feed(lines);
  });
  sending.start();
  instrument.start(kBurstMilliseconds);
  const Load live = Watch(seconds * 1000);
  instrument.stop();
  if (window.Document().Grid1().Rows() != rows_before + sent) {
    std::fputs("readings are missing\n", stderr);
    return 1;
  }
  std::printf(
      "live: %d lines/s onto 1 M readings in 20 runs, share of a core|%.1f %%|%.1f %% idle|-|under 50 %%\n",
      kLinesPerSecond, live.core_share * 100, idle.core_share * 100);
  std::printf("live: the window answers, worst|%.1f ms|%.1f ms idle|-|within 50 ms\n", live.worst_answer,
              idle.worst_answer);
  std::printf("live: the window answers, 99 of 100|%.1f ms|%.1f ms idle|-|-\n", live.usual_answer,
              idle.usual_answer);
  std::fflush(stdout);
  std::_Exit(0);  // the question about unsaved readings has nobody to answer it
}
