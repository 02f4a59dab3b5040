// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <thread>
#include <utility>

#include "bench/readings.h"
#include "bench/window_of_bench.h"
#include "graph/plot_picture.h"

// The program's own window while an instrument sends as fast as a line allows, beside the same window while
// it sends nothing: what share of a core each takes, and how soon a timer of the window's thread is served.
// The same with a graph that shows little of them, and with a pointer on its curves. How late the machine
// itself wakes a thread that only sleeps stands beside the worst.
namespace {

using namespace quenlor;

constexpr int kLinesPerSecond = 1440;
constexpr int kBurstMilliseconds = 25;
constexpr int kBeat = 5;  // ms

struct Load {
  double core_share = 0;
  double worst_answer = 0;  // ms
  double worst_work = 0;    // ms of the processor, of the window's thread between two answers
  double worst_sleep = 0;   // ms, the machine's own
  double usual_answer = 0;  // ms, 99 of 100 are sooner
};

double ThreadMilliseconds() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// A thread that only sleeps, and how much too long at most.
class Sleeper {
 public:
  Sleeper() : thread_([this] { Sleep(); }) {}
  ~Sleeper() { Worst(); }
  Sleeper(const Sleeper&) = delete;
  Sleeper& operator=(const Sleeper&) = delete;

  double Worst() {  // ms; ends it
    over_ = true;
    if (thread_.joinable()) thread_.join();
    return worst_;
  }

 private:
  void Sleep() {
    while (!over_) {
      QElapsedTimer since;
      since.start();
      std::this_thread::sleep_for(std::chrono::milliseconds(kBeat));
      worst_ = std::max(worst_, static_cast<double>(since.nsecsElapsed()) / 1e6 - kBeat);
    }
  }

  std::atomic<bool> over_ = false;
  double worst_ = 0;
  std::thread thread_;
};

Load Watch(int milliseconds) {
  std::vector<double> late;
  double worst_work = 0;
  double worked = ThreadMilliseconds();
  QElapsedTimer since;
  QTimer beat;
  beat.setTimerType(Qt::PreciseTimer);
  QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
    late.push_back(static_cast<double>(since.nsecsElapsed()) / 1e6 - kBeat);
    since.restart();
    const double now = ThreadMilliseconds();
    worst_work = std::max(worst_work, now - std::exchange(worked, now));
  });
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  Sleeper sleeper;
  const double processor = ProcessorSeconds();
  QElapsedTimer wall;
  wall.start();
  since.start();
  beat.start(kBeat);
  loop.exec();
  const double share = (ProcessorSeconds() - processor) / (static_cast<double>(wall.nsecsElapsed()) / 1e9);
  std::ranges::sort(late);
  return {share, late.back(), worst_work, sleeper.Worst(), late[late.size() * 99 / 100]};
}

// Three notches of a wheel in the middle of the plot, which show an eighth of the time and of the viscosity.
void ZoomIn(QWidget& plot) {
  const QPointF middle(plot.width() / 2.0, plot.height() / 2.0);
  for (int notch = 0; notch < 3; ++notch) {
    QWheelEvent turn(middle, plot.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&plot, &turn);
  }
}

// Moves over the plot from left to right and back, as fast as a screen follows.
class Pointer {
 public:
  explicit Pointer(QWidget& plot) : plot_(plot) {
    QObject::connect(&step_, &QTimer::timeout, &step_, [this] { Step(); });
    step_.start(16);
  }

 private:
  void Step() {
    const double phase = 0.01 * ++steps_;
    const QPointF at(plot_.width() * (0.5 + 0.4 * std::sin(phase)), plot_.height() * 0.5);
    QMouseEvent move(QEvent::MouseMove, at, plot_.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&plot_, &move);
  }

  QWidget& plot_;
  QTimer step_;
  int steps_ = 0;
};

void Print(const char* scene, const Load& load, const Load& idle, const char* goal) {
  std::printf(
      "live%s: the window answers, worst, of which at most %.1f ms work|%.1f ms|%.1f ms machine|-|%s\n",
      scene, load.worst_work, load.worst_answer, load.worst_sleep, goal);
  std::printf("live%s: the window answers, 99 of 100|%.1f ms|%.1f ms idle|-|-\n", scene, load.usual_answer,
              idle.usual_answer);
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
  Watch(500);  // the first paintings
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
  const int third = seconds * 1000 / 3;
  const Load live = Watch(third);
  auto* plot = window.findChild<graph::PlotPicture*>(QStringLiteral("Picture2"));
  const Load read_out = [&] {
    const Pointer pointer(*plot);
    return Watch(third);
  }();
  const data::AxisRanges whole = window.Document().Ranges();
  ZoomIn(*plot);
  const Load zoomed = [&] {
    const Pointer pointer(*plot);
    return Watch(third);
  }();
  if (plot->Told().isEmpty() || window.Document().Ranges().ViscoMax >= whole.ViscoMax) {
    std::fputs("no reading is told, or the graph is not zoomed in\n", stderr);
    return 1;
  }
  instrument.stop();
  if (window.Document().Grid1().Rows() != rows_before + sent) {
    std::fputs("readings are missing\n", stderr);
    return 1;
  }
  std::printf(
      "live: %d lines/s onto 1 M readings in 20 runs, share of a core|%.1f %%|%.1f %% idle|-|under 50 %%\n",
      kLinesPerSecond, live.core_share * 100, idle.core_share * 100);
  Print("", live, idle, "within 30 ms");
  Print(", pointer on the plot", read_out, idle, "within 30 ms");
  Print(", pointer and zoomed in", zoomed, idle, "within 30 ms");
  std::fflush(stdout);
  std::_Exit(0);  // the question about unsaved readings has nobody to answer it
}
