// SPDX-License-Identifier: MIT
#include "graph/axis_ranges.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "axis_data.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

constexpr AutoScaling kFine{};
constexpr AutoScaling kStandard{.fine = false};
constexpr AutoScaling kOff{.Check2 = false, .Check3 = false, .Check4 = false};

Ends TimeOf(double last_time) {
  AxisRanges ranges;
  AutoScale_Time(ranges, TimeExtremes(last_time), kFine);
  return {ranges.TimeMin, ranges.TimeMax};
}

Ends ViscoOf(double min, double max, const AutoScaling& scaling, std::string_view text = "10") {
  AxisRanges ranges;
  AutoScale_Visco(ranges, ViscoExtremes(min, max), scaling, text);
  return {ranges.ViscoMin, ranges.ViscoMax};
}

Ends TempOf(double min, double max, std::string_view text) {
  AxisRanges ranges;
  AutoScale_Temp(ranges, TempExtremes(min, max), kFine, text);
  return {ranges.TempMin, ranges.TempMax};
}

Ends LogOf(double min, double max, const AutoScaling& scaling) {
  AxisRanges ranges;
  AutoScale_ViscoLog(ranges, ViscoExtremes(min, max), scaling);
  return {static_cast<double>(ranges.ViscoLogMin), static_cast<double>(ranges.ViscoLogMax)};
}

TEST(AutoScaleTime, EveryRungOfTheLadderHoldsItsOwnTime) {
  for (const double rung :
       {180, 360, 720, 1080, 1800, 3600, 7200, 10800, 21600, 43200, 64800, 86400, 129600, 172800, 259200}) {
    EXPECT_EQ(TimeOf(rung), (Ends{0, rung}));
  }
}

TEST(AutoScaleTime, BeyondARungTheNextOneComes) {
  constexpr double kLadder[] = {180,   360,   720,   1080,  1800,   3600,   7200,   10800,
                                21600, 43200, 64800, 86400, 129600, 172800, 259200, 518400};
  for (std::size_t i = 0; i + 1 < std::size(kLadder); ++i) {
    EXPECT_EQ(TimeOf(kLadder[i] + 0.001), (Ends{0, kLadder[i + 1]}));
  }
}

TEST(AutoScaleTime, BeyondThreeDaysTheRangeGrowsBySixDays) {
  EXPECT_EQ(TimeOf(300000), (Ends{0, 518400}));
  EXPECT_EQ(TimeOf(518400), (Ends{0, 518400}));
  EXPECT_EQ(TimeOf(518400.1), (Ends{0, 1036800}));
  EXPECT_EQ(TimeOf(600000), (Ends{0, 1036800}));
  EXPECT_EQ(TimeOf(518400.0 * 1000), (Ends{0, 518400.0 * 1000}));
  EXPECT_EQ(TimeOf(518400.0 * 1000 + 1), (Ends{0, 518400.0 * 1001}));
}

TEST(AutoScaleTime, TheRangeHoldsTheLastTimeHoweverLateItIs) {
  for (int k = 1; k <= 1000; ++k) {
    const double just_beyond = std::nextafter(518400.0 * k, 1e9);
    ASSERT_EQ(TimeOf(just_beyond), (Ends{0, 518400.0 * (k + 1)}));
  }
  for (int k = 0; k < 6000; ++k) {
    const double time = 518400 * std::pow(1.12, k);
    ASSERT_GE(TimeOf(time).max, time);
  }
}

TEST(AutoScaleTime, TimesAtOrBelowZeroHaveTheShortestRange) {
  for (const double time : {0.0, -1.0, -1e308}) EXPECT_EQ(TimeOf(time), (Ends{0, 180}));
}

TEST(AutoScaleTime, ATypedMinimumGivesWayToZero) {
  AxisRanges ranges;
  ranges.TimeMin = 60;
  EXPECT_TRUE(AutoScale_Time(ranges, TimeExtremes(100), kFine));
  EXPECT_EQ(ranges.TimeMin, 0);
}

TEST(AutoScaleVisco, FineStartsAtMostThreeStepsBelowTheData) {
  EXPECT_EQ(ViscoOf(5, 5, kFine), (Ends{-30, 70}))
      << "ten free steps, half of them are five, three are given";
  EXPECT_EQ(ViscoOf(0, 90, kFine), (Ends{-10, 90})) << "one step is free, its half is rounded upwards";
  EXPECT_EQ(ViscoOf(0, 95, kFine), (Ends{0, 100}));
}

TEST(AutoScaleVisco, FineFollowsDataThatLieFarFromZero) {
  EXPECT_EQ(ViscoOf(995, 1005, kFine), (Ends{920, 1120}));
  EXPECT_EQ(ViscoOf(-1005, -995, kFine), (Ends{-1080, -880}));
}

TEST(AutoScaleVisco, StandardStartsAtZeroWhenTheDataFit) {
  EXPECT_EQ(ViscoOf(5, 5, kStandard), (Ends{0, 100}));
  EXPECT_EQ(ViscoOf(20, 100, kStandard), (Ends{0, 100}));
  EXPECT_EQ(ViscoOf(20, 101, kStandard), (Ends{0, 200}));
  EXPECT_EQ(ViscoOf(0, 0, kStandard), (Ends{0, 100}));
}

TEST(AutoScaleVisco, StandardWidensItsStepsUntilTheDataAreInView) {
  EXPECT_EQ(ViscoOf(995, 1005, kStandard), (Ends{0, 2000})) << "steps of 20 would show 400 to 600";
  EXPECT_EQ(ViscoOf(900, 995, kStandard), (Ends{0, 1000}));
}

TEST(AutoScaleVisco, StandardLeavesReadingsBelowZeroOut) {
  EXPECT_EQ(ViscoOf(-5, 50, kStandard), (Ends{0, 100}));
  EXPECT_EQ(ViscoOf(-50, -5, kStandard), (Ends{0, 100}));
  EXPECT_EQ(ViscoOf(-1005, -995, kStandard), (Ends{0, 200}));
}

TEST(AutoScaleTemp, TheDataSitInTheMiddleOfTenSteps) {
  EXPECT_EQ(TempOf(25.3, 25.3, "25.3"), (Ends{20, 30}));
  EXPECT_EQ(TempOf(20, 29, "20.0"), (Ends{19, 29})) << "one step is free, its half is rounded upwards";
  EXPECT_EQ(TempOf(-5.5, -5.1, "-5.5"), (Ends{-11, -1}));
}

TEST(AutoScaleTemp, HasNeitherTheCapOfThreeStepsNorTheStartAtZero) {
  EXPECT_EQ(TempOf(5, 5, "5"), (Ends{-50, 50}));
  EXPECT_EQ(ViscoOf(5, 5, kFine, "5"), (Ends{-30, 70}));
}

TEST(AutoScaleTemp, FineAndStandardAreTheSame) {
  AxisRanges ranges;
  AutoScale_Temp(ranges, TempExtremes(5, 5), kStandard, "5");
  EXPECT_EQ(ranges.TempMin, -50);
  EXPECT_EQ(ranges.TempMax, 50);
}

TEST(Resolution, IsWhatTheFirstReadingShows) {
  EXPECT_EQ(TempOf(25, 25, "25"), (Ends{-30, 70})) << "whole degrees: steps of 10";
  EXPECT_EQ(TempOf(25, 25, "25."), (Ends{-30, 70}));
  EXPECT_EQ(TempOf(25, 25, "25.0"), (Ends{20, 30}));
  EXPECT_EQ(TempOf(2.5, 2.5, "2.50"), (Ends{2, 3}));
  EXPECT_EQ(TempOf(2.5, 2.5, ""), (Ends{-50, 50}));
}

TEST(Resolution, ACommaMarksTheDecimalsWhereThereIsNoPoint) {
  EXPECT_EQ(TempOf(2.5, 2.5, "2,50"), (Ends{2, 3}));
  EXPECT_EQ(TempOf(25, 25, "1,234.5"), (Ends{20, 30})) << "the point goes first";
}

TEST(Resolution, CountsCharactersAndNotBytes) { EXPECT_EQ(TempOf(0, 0, "0.0\xC2\xB0"), (Ends{-0.5, 0.5})); }

TEST(Resolution, StepsAreNeverFinerThanAHundredthOfTheData) {
  EXPECT_EQ(TempOf(25, 25, "25.0000000000000000000000000000000000000000"), (Ends{22.5, 27.5}));
  EXPECT_EQ(TempOf(25, 25, "25." + std::string(1000, '0')), (Ends{22.5, 27.5}));
  EXPECT_EQ(TempOf(0, 0, "0.000"), (Ends{-0.05, 0.05}));
}

TEST(AutoScaleViscoLog, FitsWholeDecades) {
  EXPECT_EQ(LogOf(0.35, 0.35, kFine), (Ends{-1, 0}));
  EXPECT_EQ(LogOf(3, 4000, kFine), (Ends{0, 4}));
  EXPECT_EQ(LogOf(300, 4000, kFine), (Ends{2, 4}));
  EXPECT_EQ(LogOf(0.002, 0.03, kFine), (Ends{-3, -1}));
}

TEST(AutoScaleViscoLog, EqualExponentsAreSeparated) {
  EXPECT_EQ(LogOf(1, 1, kFine), (Ends{0, 1}));
  EXPECT_EQ(LogOf(1000, 1000, kFine), (Ends{3, 4}));
  EXPECT_EQ(LogOf(0.01, 0.01, kFine), (Ends{-2, -1}));
}

TEST(AutoScaleViscoLog, DataAtWholeDecadesNeedNoFurtherOne) {
  EXPECT_EQ(LogOf(1, 1000, kFine), (Ends{0, 3}));
  EXPECT_EQ(LogOf(0.001, 0.1, kFine), (Ends{-3, -1}));
  EXPECT_EQ(LogOf(10, 100, kFine), (Ends{1, 2}));
}

TEST(AutoScaleViscoLog, WithoutAPositiveReadingTheDefaultStays) {
  EXPECT_EQ(LogOf(-5, 0, kFine), (Ends{0, 2}));
  EXPECT_EQ(LogOf(-5, 0, kStandard), (Ends{-1, 2}));
}

TEST(AutoScaleViscoLog, StandardAlwaysStartsAtATenth) {
  EXPECT_EQ(LogOf(300, 4000, kStandard), (Ends{-1, 4}));
  EXPECT_EQ(LogOf(0.35, 0.35, kStandard), (Ends{-1, 0}));
  EXPECT_EQ(LogOf(1, 1, kStandard), (Ends{-1, 1}));
  EXPECT_EQ(LogOf(0.001, 50, kStandard), (Ends{-1, 2}));
}

TEST(AutoScaleViscoLog, StandardKeepsOneDecadeAboveATenth) {
  EXPECT_EQ(LogOf(0.001, 0.02, kStandard), (Ends{-1, 0}));
  EXPECT_EQ(LogOf(0.0001, 0.0001, kStandard), (Ends{-1, 0}));
}

TEST(AutoScaleViscoLog, TheEndsOfTheDoublesAreDecadesToo) {
  EXPECT_EQ(LogOf(5e-324, 1e308, kFine), (Ends{-324, 308}));
  EXPECT_EQ(LogOf(1, std::numeric_limits<double>::infinity(), kFine), (Ends{0, 309}));
}

TEST(AutoScale, WithoutReadingsTheRangesAreThoseAtStart) {
  AxisRanges ranges{60, 90, 5, 6, 7, 8, 3, 4};
  AutoScale_Time(ranges, DataExtremes{}, kFine);
  AutoScale_Visco(ranges, DataExtremes{}, kFine, "");
  AutoScale_ViscoLog(ranges, DataExtremes{}, kFine);
  AutoScale_Temp(ranges, DataExtremes{}, kFine, "");

  EXPECT_EQ(EndsOf(ranges), EndsOf(AxisRanges{}));
}

TEST(AutoScale, NumbersLeftFromDeletedReadingsDoNotCount) {
  DataExtremes extremes = ViscoExtremes(5000, 9000);
  extremes.LastTime = 7000;
  extremes.HasReadings = false;
  AxisRanges ranges;

  EXPECT_FALSE(AutoScale_Time(ranges, extremes, kFine));
  EXPECT_FALSE(AutoScale_Visco(ranges, extremes, kStandard, "5000"));
  EXPECT_FALSE(AutoScale_ViscoLog(ranges, extremes, kFine));
}

TEST(AutoScale, WithoutATickNothingHappens) {
  const AxisRanges typed{60, 90, 5, 6, 7, 8, 3, 4};
  AxisRanges ranges = typed;
  const DataExtremes extremes = ViscoExtremes(1000, 2000);

  EXPECT_FALSE(AutoScale_Time(ranges, extremes, kOff));
  EXPECT_FALSE(AutoScale_Visco(ranges, extremes, kOff, "1000"));
  EXPECT_FALSE(AutoScale_ViscoLog(ranges, extremes, kOff));
  EXPECT_FALSE(AutoScale_Temp(ranges, extremes, kOff, "25.0"));
  EXPECT_EQ(EndsOf(ranges), EndsOf(typed));
}

TEST(AutoScale, EachBoxScalesItsOwnAxis) {
  const AxisRanges typed{60, 90, 5, 6, 7, 8, 3, 4};
  const DataExtremes extremes{true, 1000, 1000, 2000, 1000, 2000, 20, 30};
  const auto scale = [&](const AutoScaling& scaling) {
    AxisRanges ranges = typed;
    AutoScale_Time(ranges, extremes, scaling);
    AutoScale_Visco(ranges, extremes, scaling, "1000");
    AutoScale_Temp(ranges, extremes, scaling, "20");
    return ranges;
  };

  const AxisRanges time = scale({.Check2 = true, .Check3 = false, .Check4 = false});
  EXPECT_EQ(time.TimeMax, 1080);
  EXPECT_EQ(time.ViscoMax, typed.ViscoMax);
  EXPECT_EQ(time.TempMax, typed.TempMax);
  const AxisRanges visco = scale({.Check2 = false, .Check3 = true, .Check4 = false});
  EXPECT_EQ(visco.TimeMax, typed.TimeMax);
  EXPECT_NE(visco.ViscoMax, typed.ViscoMax);
  EXPECT_EQ(visco.TempMax, typed.TempMax);
  const AxisRanges temp = scale({.Check2 = false, .Check3 = false, .Check4 = true});
  EXPECT_EQ(temp.TimeMax, typed.TimeMax);
  EXPECT_EQ(temp.ViscoMax, typed.ViscoMax);
  EXPECT_NE(temp.TempMax, typed.TempMax);
}

TEST(AutoScale, TheLinearAndTheLogarithmicRangeDoNotTouchEachOther) {
  AxisRanges ranges;
  AutoScale_Visco(ranges, ViscoExtremes(1000, 2000), kFine, "1000");
  EXPECT_EQ(ranges.ViscoLogMax, 2);
  ranges = {};
  AutoScale_ViscoLog(ranges, ViscoExtremes(1000, 2000), kFine);
  EXPECT_EQ(ranges.ViscoMax, 100);
  EXPECT_EQ(ranges.ViscoLogMin, 3);
}

TEST(AutoScale, SaysWhetherTheRangeBecameAnother) {
  AxisRanges ranges;
  EXPECT_TRUE(AutoScale_Time(ranges, TimeExtremes(400), kFine));
  EXPECT_FALSE(AutoScale_Time(ranges, TimeExtremes(500), kFine));
  EXPECT_TRUE(AutoScale_Visco(ranges, ViscoExtremes(1, 5), kFine, "5"));
  EXPECT_FALSE(AutoScale_Visco(ranges, ViscoExtremes(1, 6), kFine, "5"));
  EXPECT_TRUE(AutoScale_ViscoLog(ranges, ViscoExtremes(1, 5), kFine));
  EXPECT_FALSE(AutoScale_ViscoLog(ranges, ViscoExtremes(1, 6), kFine));
  EXPECT_TRUE(AutoScale_Temp(ranges, TempExtremes(1, 5), kFine, "5"));
  EXPECT_FALSE(AutoScale_Temp(ranges, TempExtremes(1, 6), kFine, "5"));
}

}  // namespace
}  // namespace quenlor::graph
