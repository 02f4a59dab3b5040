// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "axis_data.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

// A measurement whose readings come one after another.
class ArrivingReadings : public testing::Test {
 protected:
  bool Arrive(const Reading& reading) {
    const bool first = !extremes.HasReadings;
    extremes.HasReadings = true;
    extremes.LastTime = reading.time;
    extremes.DataViscoMin = first ? reading.visco : std::min(extremes.DataViscoMin, reading.visco);
    extremes.DataViscoMax = first ? reading.visco : std::max(extremes.DataViscoMax, reading.visco);
    extremes.DataTempMin = first ? reading.temp : std::min(extremes.DataTempMin, reading.temp);
    extremes.DataTempMax = first ? reading.temp : std::max(extremes.DataTempMax, reading.temp);
    if (reading.visco > 0) {
      const bool first_positive = extremes.PosViscoMin <= 0;
      extremes.PosViscoMin = first_positive ? reading.visco : std::min(extremes.PosViscoMin, reading.visco);
      extremes.PosViscoMax = std::max(extremes.PosViscoMax, reading.visco);
    }
    return AutoScale_Reading(ranges, reading, extremes, scaling, {"12.5", "25.0"}, axis);
  }

  AxisRanges ranges;
  DataExtremes extremes;
  AutoScaling scaling;
  ViscoAxis axis = ViscoAxis::Linear;
};

TEST_F(ArrivingReadings, AReadingInViewLeavesEveryRange) {
  EXPECT_FALSE(Arrive({0, 12.5, 25}));
  EXPECT_FALSE(Arrive({180, 100, 0})) << "an end belongs to its range";
  EXPECT_EQ(EndsOf(ranges), EndsOf(AxisRanges{}));
}

TEST_F(ArrivingReadings, OnlyTheRangeThatIsLeftIsChosenAfresh) {
  EXPECT_TRUE(Arrive({180.001, 12.5, 25}));
  EXPECT_EQ(ranges.TimeMax, 360);
  EXPECT_EQ(ranges.ViscoMax, 100);
  EXPECT_EQ(ranges.TempMax, 100);

  EXPECT_TRUE(Arrive({181, 100.1, 25}));
  EXPECT_EQ((Ends{ranges.ViscoMin, ranges.ViscoMax}), (Ends{10, 110}));
  EXPECT_EQ(ranges.TempMax, 100);

  EXPECT_TRUE(Arrive({182, 50, -0.1}));
  EXPECT_EQ((Ends{ranges.TempMin, ranges.TempMax}), (Ends{-15, 35}));
}

TEST_F(ArrivingReadings, ARangeSetByHandIsNotLeftBehind) {
  scaling = {.Check2 = false, .Check3 = false, .Check4 = false};
  EXPECT_FALSE(Arrive({1e6, 1e6, 1e6}));
  EXPECT_EQ(EndsOf(ranges), EndsOf(AxisRanges{}));
}

TEST_F(ArrivingReadings, ASecondRunStartsInTheRangeOfTheFirst) {
  EXPECT_TRUE(Arrive({400, 12.5, 25}));
  EXPECT_FALSE(Arrive({0, 12.5, 25}));
  EXPECT_EQ(ranges.TimeMax, 720);
}

TEST_F(ArrivingReadings, OnTheLogAxisTheDecadesDecide) {
  axis = ViscoAxis::Log;
  EXPECT_FALSE(Arrive({0, 100, 25}));
  EXPECT_TRUE(Arrive({1, 100.1, 25}));
  EXPECT_EQ((Ends{static_cast<double>(ranges.ViscoLogMin), static_cast<double>(ranges.ViscoLogMax)}),
            (Ends{2, 3}));
  EXPECT_TRUE(Arrive({2, 0.5, 25}));
  EXPECT_EQ(ranges.ViscoLogMin, -1);
  EXPECT_EQ(ranges.ViscoMax, 100) << "the linear range is not in use";
}

TEST_F(ArrivingReadings, OnTheLogAxisReadingsAtOrBelowZeroLeaveNoRange) {
  axis = ViscoAxis::Log;
  ranges.ViscoLogMin = 1;
  EXPECT_FALSE(Arrive({0, 0, 25}));
  EXPECT_FALSE(Arrive({1, -5, 25}));
  EXPECT_EQ(ranges.ViscoLogMin, 1);
}

TEST_F(ArrivingReadings, ReadingsThatStandardLeavesOutDoNotKeepRedrawing) {
  scaling.fine = false;
  EXPECT_TRUE(Arrive({0, -5, 25})) << "alone in the table it gives the axis its steps";
  EXPECT_FALSE(Arrive({1, -6, 25}));
  EXPECT_FALSE(Arrive({2, -5.5, 25}));
  EXPECT_EQ((Ends{ranges.ViscoMin, ranges.ViscoMax}), (Ends{0, 10}));
}

TEST_F(ArrivingReadings, EveryReadingIsInViewAfterItCame) {
  std::mt19937 random(3);
  std::normal_distribution<double> walk(0, 30);
  for (const bool fine : {true, false}) {
    for (const ViscoAxis each : {ViscoAxis::Linear, ViscoAxis::Log}) {
      ranges = {};
      extremes = {};
      axis = each;
      scaling.fine = fine;
      Reading reading{0, 500, 25};
      for (int i = 0; i < 20000; ++i) {
        reading.time += 7.5;
        reading.visco = std::fabs(reading.visco + std::round(walk(random) * 10) / 10);
        reading.temp += std::round(walk(random)) / 10;
        Arrive(reading);
        ASSERT_LE(reading.time, ranges.TimeMax);
        ASSERT_GE(StepsIn(reading.temp, 0.1), StepsIn(ranges.TempMin, 0.1));
        ASSERT_LE(StepsIn(reading.temp, 0.1), StepsIn(ranges.TempMax, 0.1));
        if (axis == ViscoAxis::Linear) {
          ASSERT_GE(StepsIn(reading.visco, 0.1), StepsIn(ranges.ViscoMin, 0.1));
          ASSERT_LE(StepsIn(reading.visco, 0.1), StepsIn(ranges.ViscoMax, 0.1));
        } else if (fine && reading.visco > 0) {
          ASSERT_GE(Log10(reading.visco), ranges.ViscoLogMin);
          ASSERT_LE(Log10(reading.visco), ranges.ViscoLogMax);
        }
      }
    }
  }
}

}  // namespace
}  // namespace quenlor::graph
