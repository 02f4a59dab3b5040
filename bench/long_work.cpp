// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "bench/pair.h"
#include "bench/readings.h"
#include "bench/window_of_bench.h"

// What the bar costs that shows how long work goes, and how long it stands still: the program's window opens
// ten million readings and begins a measurement on them, shown, and beside it hidden, where no bar is
// painted.
namespace {

using namespace quenlor;

constexpr const char* kAim = "within 100 ms";

// Notes when the bar is painted.
class Watch : public QObject {
 public:
  explicit Watch(QWidget* bar) { bar->installEventFilter(this); }

  // The longest time from one painting to the next, or to the end of `work`, in ms; 0 without a painting.
  template <class Work>
  double LongestStill(const Work& work) {
    paintings_.clear();
    work();
    if (paintings_.empty()) return 0;
    paintings_.push_back(Clock::now());
    double longest = 0;
    for (std::size_t i = 1; i < paintings_.size(); ++i)
      longest = std::max(longest, std::chrono::duration<double>(paintings_[i] - paintings_[i - 1]).count());
    return longest * 1e3;
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) paintings_.push_back(Clock::now());
    return false;
  }

 private:
  using Clock = std::chrono::steady_clock;
  std::vector<Clock::time_point> paintings_;
};

double Median(std::vector<double> numbers) {
  std::ranges::nth_element(numbers, numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2));
  return numbers[numbers.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  constexpr int kRounds = 5;
  bench::WindowOfBench bench;
  app::MainWindow& window = bench.window;
  const std::string path = bench.Put(bench::DataFileText(10'000'000, 10));
  Watch watch(window.findChild<QWidget*>(QStringLiteral("Progress")));
  std::vector<double> shown;
  std::vector<double> hidden;
  std::vector<double> ratios;
  double still = 0;
  for (int round = 0; round < kRounds; ++round) {
    window.hide();
    hidden.push_back(bench::Seconds([&] { window.OpenFile(path); }));
    window.show();
    QCoreApplication::processEvents();
    still = std::max(
        still, watch.LongestStill([&] { shown.push_back(bench::Seconds([&] { window.OpenFile(path); })); }));
    ratios.push_back(shown.back() / hidden.back());
  }
  std::printf("open: 10 M readings in the window with its bar, to without|%.2f s|%.2f s|%.2f|at most 1.05\n",
              Median(shown), Median(hidden), Median(ratios));
  std::printf("open: 10 M readings, the bar stands still, longest|%.0f ms|-|-|%s\n", still, kAim);
  double start = 0;
  still = watch.LongestStill([&] {
    start = bench::Seconds([&] { window.findChild<QPushButton*>(QStringLiteral("Command1"))->click(); });
  });
  std::printf("start: on 10 M readings, %.2f s, the bar stands still, longest|%.0f ms|-|-|%s\n", start, still,
              kAim);
  std::fflush(stdout);
  std::_Exit(0);  // a measurement runs
}
