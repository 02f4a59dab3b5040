// SPDX-License-Identifier: MIT
// A week that nobody watches, and clocks that are set while a measurement runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/text_number.h"
#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using platform::memory::MomentAt;
using testing::ElementsAre;
using testing::SizeIs;

constexpr double kHour = 3600;
constexpr double kYear = 365 * 24 * kHour;
constexpr double kTick = 0.05;

// An instrument that answers each request a fifth of a second later, and the requests that it has seen.
class AnsweredBench : public Bench {
 public:
  void Go(double seconds) {
    port.TakeSent();
    const int ticks = static_cast<int>(std::lround(seconds / kTick));
    for (int tick = 0; tick < ticks; ++tick) {
      clock.Advance(kTick);
      passed += kTick;
      if (const std::string sent = TakeSent(); !sent.empty()) {
        (sent.starts_with("STOP") ? stop_words : requests).push_back(passed);
        if (answers) due_ = passed + 0.2;
      }
      if (due_ > 0 && passed >= due_ - kTick / 2) {
        due_ = 0;
        Line(std::to_string(7000 + Readings()));
      }
    }
  }
  // As an operator does, or daylight saving.
  void SetClock(double by) {
    data::Moment now = clock.Now();
    now.seconds += by;
    now.local_second += static_cast<std::int64_t>(by);
    clock.SetNow(now);
  }
  void SetWallClock(double by) {
    data::Moment now = clock.Now();
    now.local_second += static_cast<std::int64_t>(by);
    clock.SetNow(now);
  }
  data::Document::Row Readings() const { return document.Grid1().EntryRow() - 1; }
  std::string Time(data::Document::Row row) const { return std::string(document.Grid1().TextMatrix(row, 1)); }
  double Elapsed(data::Document::Row row) const { return data::C_Val(Time(row)); }

  double passed = 0;  // what a clock that nobody sets would show
  bool answers = true;
  std::vector<double> requests;
  std::vector<double> stop_words;

 private:
  double due_ = 0;
};

struct Week {
  data::Moment begin;
  double until_saving_changes;
  double change;
  const char* end;  // as a clock on the wall shows it
};

TEST(MeasurementWeek, EveryReadingHasItsTimeOverMidnightsAMonthsEndAndDaylightSaving) {
  const Week weeks[] = {{MomentAt(2026, 3, 26, 18), 56 * kHour, kHour, "2026/04/02 18:59"},
                        {MomentAt(2026, 10, 25), 3 * kHour, -kHour, "2026/10/31 22:59"}};
  for (const Week& week : weeks) {
    AnsweredBench bench;
    bench.clock.SetNow(week.begin);
    bench.Repeat("60", "QM");
    bench.AutoStop("10080");
    bench.Start();
    bench.Line("7000");
    bench.Go(week.until_saving_changes);
    bench.SetWallClock(week.change);
    bench.Go(7 * 24 * kHour - week.until_saving_changes - 1);
    bench.answers = false;
    bench.Go(5.5);
    EXPECT_TRUE(bench.measurement.Running()) << "an answer to the word is awaited";
    bench.Go(1);
    EXPECT_THAT(bench.stop_words, ElementsAre(testing::DoubleNear(7 * 24 * kHour, 0.1)));
    EXPECT_TRUE(bench.Stopped());
    EXPECT_THAT(bench.endings, ElementsAre(Ending::kAutoStop));

    ASSERT_EQ(bench.Readings(), 7 * 24 * 60);
    for (data::Document::Row row = 2; row <= bench.Readings(); ++row)
      ASSERT_NEAR(bench.Elapsed(row), 60.0 * static_cast<double>(row - 1) + 0.2, 0.1) << row;
    const data::RunTable& runs = bench.document.Grid4();
    EXPECT_EQ(std::string(runs.TextMatrix(1, 3)) + " " + std::string(runs.TextMatrix(1, 4)).substr(0, 5),
              week.end);
    EXPECT_EQ(TableLines(data::ParseDataFile(bench.RawLogText()).table), TableLines(bench.document.Grid1()));
  }
}

class MeasurementClock : public testing::TestWithParam<double>, protected AnsweredBench {
 protected:
  // Two minutes of a run with a request every five seconds.
  void Begin(const char* auto_stop = "0") {
    Repeat("5", "QM");
    if (std::string(auto_stop) != "0") AutoStop(auto_stop);
    Start();
    Line("7000");
    Go(121);
    requests.clear();
  }
  // At their usual distance, and each once.
  void ExpectGrid(std::size_t count) {
    ASSERT_THAT(requests, SizeIs(count));
    for (std::size_t i = 0; i < count; ++i)
      EXPECT_NEAR(requests[i], 125 + 5 * static_cast<double>(i), 2.1 * kTick);
  }
};

TEST_P(MeasurementClock, RequestsGoOnAndTimesAreThoseOfTheClock) {
  Begin();
  const auto before = Readings();
  SetClock(GetParam());
  Go(60);
  ExpectGrid(12);
  ASSERT_EQ(Readings(), before + 12);
  EXPECT_NEAR(Elapsed(before), 120.2, 0.1);
  EXPECT_EQ(Time(before + 1), data::TenthsText(Elapsed(before + 1)));
  EXPECT_NEAR(Elapsed(before + 1), 125.2 + GetParam(), 0.2);
  EXPECT_NEAR(Elapsed(before + 12), 180.2 + GetParam(), 0.2);
  ASSERT_TRUE(measurement.NextRequestAt());
  EXPECT_LE(*measurement.NextRequestAt() - clock.Now().seconds, 5);
}

TEST_P(MeasurementClock, AMissingAnswerStillEndsItAfterFiveSeconds) {
  Begin();
  SetClock(GetParam());
  answers = false;
  Go(10);
  EXPECT_TRUE(Stopped());
  EXPECT_THAT(endings, ElementsAre(Ending::kNoReply));
}

TEST_P(MeasurementClock, TheRawLogHoldsWhatTheTableHolds) {
  Begin();
  SetClock(GetParam());
  Go(60);
  measurement.Stop();
  EXPECT_EQ(TableLines(data::ParseDataFile(RawLogText()).table), TableLines(document.Grid1()));
}

TEST_P(MeasurementClock, SetAndSetRightAgainTheAutoStopComesAtItsTime) {
  Begin("5");
  SetClock(GetParam());
  Go(GetParam() > 0 ? 1 : 60);
  ASSERT_TRUE(stop_words.empty());
  SetClock(-GetParam());
  Go(GetParam() > 0 ? 178.5 : 119.5);
  EXPECT_THAT(stop_words, ElementsAre(testing::DoubleNear(300, 2.1 * kTick)));
}

INSTANTIATE_TEST_SUITE_P(Set, MeasurementClock, testing::Values(-kYear, -kHour, -120, kHour, kYear));

class MeasurementClockBack : public MeasurementClock {};

TEST_P(MeasurementClockBack, TheAutoStopDoesNotWaitForATimeThatWentAway) {
  Begin("5");
  SetClock(GetParam());
  Go(179.5);
  EXPECT_THAT(stop_words, ElementsAre(testing::DoubleNear(300, 2.1 * kTick)));
}

INSTANTIATE_TEST_SUITE_P(Set, MeasurementClockBack, testing::Values(-kYear, -kHour, -120, -0.5));

class MeasurementClockAhead : public MeasurementClock {};

TEST_P(MeasurementClockAhead, TheAutoStopComesWithTheNextRequest) {
  Begin("5");
  SetClock(GetParam());
  Go(5);
  EXPECT_THAT(stop_words, ElementsAre(testing::DoubleNear(125, 2.1 * kTick)));
}

TEST_P(MeasurementClockAhead, ATickSendsOneRequestAtMost) {
  Begin();
  SetClock(GetParam() - 100);  // as long as a stall may be: made up for, but never faster than the tick
  Go(60);
  for (std::size_t i = 1; i < requests.size(); ++i) EXPECT_GE(requests[i] - requests[i - 1], kTick * 0.99);
}

INSTANTIATE_TEST_SUITE_P(Set, MeasurementClockAhead, testing::Values(kHour, kYear));

}  // namespace
}  // namespace quenlor::link
