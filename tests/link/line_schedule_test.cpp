// SPDX-License-Identifier: MIT
// Every event of the line, and a device that vanishes, at every moment of a measurement: between its steps,
// in the midst of a line, and wherever the measurement hands over to somebody else.

#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "platform/serial_port.h"
#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

constexpr int kVanish = -1;
constexpr int kEvents[] = {1,    2,    3,    4,    5,    6,    7,    1001, 1002, 1003,   1004,
                           1005, 1006, 1007, 1008, 1009, 1010, 1011, 1012, 1013, kVanish};

// A measurement on whose line something happens at the n-th moment.
class Interrupted {
 public:
  Interrupted(int event, int at) : event_(event), at_(at) {
    bench.while_painting = bench.while_writing_the_raw_log = bench.on_state_change = bench.on_line =
        bench.loop.during_wait = [this] { Moment(); };
  }

  void Moment() {
    if (++moments_ != at_ || !bench.port.PortOpen()) return;
    reached = true;
    if (event_ == kVanish || event_ == platform::comm_event::kPortGone) {
      vanished_ = true;
      bench.port.VanishDevice();
    } else {
      bench.port.Raise(event_);
    }
  }
  bool Over() const { return moments_ < at_; }

  void Start() {
    if (bench.measurement.Start()) return;
    ++started;
    Moment();
  }
  // The instrument sends it in two pieces.
  void Line(const std::string& reading) {
    bench.port.Feed(reading.substr(0, 2));
    Moment();
    if (bench.port.PortOpen() && !vanished_) received.push_back(reading);
    bench.port.Feed(reading.substr(2) + "\r");
    Moment();
  }
  void Advance(double seconds) {
    bench.Advance(seconds);
    Moment();
  }

  Bench bench;
  Texts received;
  int started = 0;
  bool reached = false;

 private:
  int event_;
  int at_;
  int moments_ = 0;
  bool vanished_ = false;
};

void ByHand(Interrupted& run) {
  run.bench.Visco();
  run.Start();
  run.Line("7001");
  run.Advance(1);
  run.Line("7002");
  run.bench.measurement.Stop();
  run.Moment();
}

void WithoutVisco(Interrupted& run) {
  run.Start();
  run.Line("7001");
  run.bench.measurement.StopWithoutWait();
  run.Moment();
}

void UntilAutoStop(Interrupted& run) {
  run.bench.Repeat("20", "QM");
  run.bench.AutoStop("1");
  run.Start();
  run.Line("7001");
  for (const char* reading : {"7002", "7003"}) {
    run.Advance(20);
    run.Line(reading);
  }
  for (int second = 0; second < 30; ++second) run.Advance(1);
}

void WithoutReply(Interrupted& run) {
  run.bench.Repeat("5", "QM");
  run.Start();
  run.Line("7001");
  for (int second = 0; second < 12; ++second) run.Advance(1);
}

struct Script {
  const char* name;
  void (*play)(Interrupted&);
};

constexpr Script kScripts[] = {{"stopped by hand", ByHand},
                               {"without Visco, ended with the program", WithoutVisco},
                               {"stopped by Auto Stop", UntilAutoStop},
                               {"without a reply", WithoutReply}};

void ExpectNothingLost(Interrupted& run) {
  Bench& bench = run.bench;
  const auto expect_in = [&](const Texts& column, const char* where) {
    for (const std::string& reading : run.received)
      EXPECT_EQ(std::ranges::count(column, reading), 1) << reading << " in " << where;
  };
  expect_in(Column(bench.document.Grid1(), 2), "the table");
  if (!run.received.empty())
    expect_in(Column(data::ParseDataFile(bench.RawLogText()).table, 2), "the raw log");
}

TEST(LineSchedule, NoEventAtAnyMomentLosesAReadingOrLeavesHalfAMeasurement) {
  int points = 0;
  for (const Script& script : kScripts) {
    for (const int event : kEvents) {
      for (int at = 1;; ++at) {
        Interrupted run(event, at);
        SCOPED_TRACE(std::string(script.name) + ", event " + std::to_string(event) + " at moment " +
                     std::to_string(at));
        script.play(run);
        if (run.Over()) break;
        points += run.reached ? 1 : 0;

        ExpectNothingLost(run);
        if (run.bench.measurement.Running()) run.bench.measurement.Stop();
        EXPECT_TRUE(run.bench.Stopped());
        EXPECT_EQ(run.bench.endings.size(), static_cast<std::size_t>(run.started)) << "each end is told once";
        if (run.reached && (event >= 1001 || event == kVanish)) {
          EXPECT_EQ(run.bench.errors.size(), 1U) << "the operator is told";
        }
        run.bench.settings.Set(setting::kRepeat, 0);
        ASSERT_FALSE(run.bench.measurement.Start()) << "it can be measured again";
        run.bench.Line("7009");
        run.bench.measurement.Stop();
        EXPECT_EQ(Column(run.bench.document.Grid1(), 2).back(), "7009");
      }
    }
  }
  std::cout << points << " points visited\n";
  EXPECT_GT(points, 300);
}

}  // namespace
}  // namespace quenlor::link
