// SPDX-License-Identifier: MIT
//
// The program on a line that an instrument fills: three runs one after the other, while another thread asks
// the window's thread for an answer again and again. Tells once a minute, and at the end, what memory,
// handles and answers have come to.
//
// Usage: quenlor-bench-soak FOLDER DEVICE MINUTES

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTest>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

#include "app/program.h"
#include "data/text_number.h"

namespace quenlor {
namespace {

using std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int kRuns = 3;
constexpr double kGoalBytes = 110;        // of a reading
constexpr double kGoalMilliseconds = 50;  // to any answer
// Before that many readings, what the program takes for itself says nothing about one reading.
constexpr data::Document::Row kEnoughReadings = 100'000;

double Milliseconds(steady_clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

// Asks the thread of the window, as an event that the desktop sends does, and waits for the answer. A third
// thread, which only sleeps, tells how long the machine itself keeps a thread from running.
class Answers {
 public:
  Answers() : asker_([this] { Ask(); }), sleeper_([this] { Sleep(); }) {}
  ~Answers() {
    over_ = true;
    asker_.join();
    sleeper_.join();
  }
  Answers(const Answers&) = delete;
  Answers& operator=(const Answers&) = delete;

  // What is asked meanwhile does not count: Start writes the raw log anew, under a bar that tells how far it
  // is.
  void Pause(bool pause) {
    paused_ = pause;
    ++pauses_;
  }

  double Worst() const { return worst_; }
  double WorstOfTheMachine() const { return worst_sleep_; }
  long Count() const { return count_; }
  long TooLate() const { return too_late_; }

 private:
  void Ask() {
    while (!over_) {
      const int pauses = pauses_;
      const auto asked = steady_clock::now();
      const auto answer = std::make_shared<std::binary_semaphore>(0);
      QMetaObject::invokeMethod(
          qApp, [answer] { answer->release(); }, Qt::QueuedConnection);
      while (!answer->try_acquire_for(10ms)) {
        if (over_) return;  // nobody is left to answer
      }
      if (paused_ || pauses != pauses_) continue;
      const double waited = Milliseconds(steady_clock::now() - asked);
      worst_ = std::max<double>(worst_, waited);
      too_late_ += waited > kGoalMilliseconds ? 1 : 0;
      ++count_;
      std::this_thread::sleep_for(3ms);
    }
  }
  void Sleep() {
    while (!over_) {
      const auto began = steady_clock::now();
      std::this_thread::sleep_for(3ms);
      worst_sleep_ = std::max<double>(worst_sleep_, Milliseconds(steady_clock::now() - began) - 3);
    }
  }

  std::atomic<bool> over_ = false;
  std::atomic<bool> paused_ = false;
  std::atomic<int> pauses_ = 0;
  std::atomic<double> worst_ = 0;
  std::atomic<double> worst_sleep_ = 0;
  std::atomic<long> count_ = 0;
  std::atomic<long> too_late_ = 0;
  std::thread asker_;
  std::thread sleeper_;
};

double ResidentBytes() {
  double pages = 0;
  double resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

int OpenHandles() {
  int count = 0;
  for ([[maybe_unused]] const auto& handle : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

// The instrument numbers its readings from 1 in each run.
bool NothingIsMissing(const data::MeasurementTable& table) {
  double last = 0;
  std::string_view run;
  for (data::Document::Row row = 1; row < table.EntryRow(); ++row) {
    if (table.TextMatrix(row, 0) != run) last = data::C_Val(table.TextMatrix(row, 2)) - 1;
    run = table.TextMatrix(row, 0);
    const double number = data::C_Val(table.TextMatrix(row, 2));
    if (number != last + 1) {
      std::printf("row %lld follows number %.0f with %.0f\n", static_cast<long long>(row), last, number);
      return false;
    }
    last = number;
  }
  return true;
}

class Soak {
 public:
  Soak(app::MainWindow& window, double minutes) : window_(window), minutes_(minutes) {}

  bool Run() {
    Check("Check1", false);  // no requests: the lines come by themselves
    auto* visco = window_.findChild<QAction*>(QStringLiteral("mVisco"));
    if (!visco->isChecked()) visco->trigger();
    QTest::qWait(2000);
    before_ = ResidentBytes();
    const int handles = OpenHandles();
    std::printf(
        "minute  readings  MB resident  bytes/reading  handles  worst answer ms (the machine's own)\n");
    {
      Answers answers;
      for (int run = 0; run < kRuns; ++run) {
        answers.Pause(true);
        const auto pressed = steady_clock::now();
        Press();
        starts_.push_back(Milliseconds(steady_clock::now() - pressed));
        answers.Pause(false);
        for (double minute = 0; minute < minutes_ / kRuns; minute += 1) {
          QTest::qWait(static_cast<int>(60'000 * std::min(1.0, minutes_ / kRuns - minute)));
          passed_ += std::min(1.0, minutes_ / kRuns - minute);
          Tell(answers);
        }
        handles_ = std::max(handles_, OpenHandles());
        Press();
      }
      QTest::qWait(1000);
      Tell(answers);
      worst_ = answers.Worst();
      std::printf("%ld answers, %ld of them later than %.0f ms\n", answers.Count(), answers.TooLate(),
                  kGoalMilliseconds);
    }
    std::printf("Start took");
    for (const double start : starts_) std::printf(" %.0f ms", start);
    const int left = OpenHandles();
    std::printf("\nhandles: %d before, %d while measuring, %d after\n", handles, handles_, left);
    const bool whole = NothingIsMissing(window_.Document().Grid1());
    std::printf("%s\n", whole ? "no reading is missing" : "READINGS ARE MISSING");
    const bool small = most_bytes_ <= kGoalBytes;
    if (!small) std::printf("MEMORY: %.0f bytes a reading\n", most_bytes_);
    if (left > handles) std::printf("HANDLES ARE LEFT OPEN\n");
    if (worst_ > kGoalMilliseconds) std::printf("AN ANSWER TOOK %.0f ms\n", worst_);
    return whole && small && left <= handles && worst_ <= kGoalMilliseconds;
  }

 private:
  void Press() { window_.findChild<QAbstractButton*>(QStringLiteral("Command1"))->click(); }
  void Check(const char* name, bool on) {
    window_.findChild<QAbstractButton*>(QString::fromLatin1(name))->setChecked(on);
  }
  void Tell(const Answers& answers) {
    const auto readings = window_.Document().Grid1().EntryRow() - 1;
    const double bytes = ResidentBytes();
    const double each = (bytes - before_) / static_cast<double>(std::max<data::Document::Row>(readings, 1));
    if (readings >= kEnoughReadings) most_bytes_ = std::max(most_bytes_, each);
    std::printf("%6.1f %9lld %12.1f %14.1f %8d %8.1f (%.1f)\n", passed_, static_cast<long long>(readings),
                bytes / 1e6, each, OpenHandles(), answers.Worst(), answers.WorstOfTheMachine());
    std::fflush(stdout);
  }

  app::MainWindow& window_;
  double minutes_;
  double passed_ = 0;
  double before_ = 0;
  double most_bytes_ = 0;
  double worst_ = 0;
  std::vector<double> starts_;
  int handles_ = 0;
};

}  // namespace
}  // namespace quenlor

int main(int argc, char** argv) {
  using namespace quenlor;
  QApplication application(argc, argv);
  const double minutes = argc == 4 ? std::atof(argv[3]) : 0;
  if (minutes <= 0) {
    std::fputs("usage: quenlor-bench-soak FOLDER DEVICE MINUTES\n", stderr);
    return 2;
  }
  app::CommandLine line;
  line.folder = argv[1];
  line.ports = {{1, argv[2]}};
  app::Program program(line, {});
  program.Window().show();
  const bool well = Soak(program.Window(), minutes).Run();
  program.Window().grab().save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/soak.png"));
  std::fflush(stdout);
  std::_Exit(well ? 0 : 1);  // the question about unsaved readings has nobody to answer it
}
