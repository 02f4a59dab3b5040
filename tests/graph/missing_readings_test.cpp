// SPDX-License-Identifier: MIT
#include "graph/missing_readings.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/text_number.h"
#include "graph/missing_ticks.h"

namespace quenlor::graph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Reading {
  std::string run;
  double time;
};

// Readings as they come into the values, one by one or all at once.
class Times {
 public:
  explicit Times(const std::vector<Reading>& readings) {
    table.Reset({"No.", "Time", "Viscosity", "Temp"});
    for (const Reading& reading : readings) {
      const std::string time = data::GeneralText(reading.time);
      const std::string_view row[] = {reading.run, time, "1", "1"};
      table.AppendRow(row);
    }
  }
  MissingReadings AtOnce() {
    values.CopyAll(table, 2, 3);
    MissingReadings missing;
    missing.Follow(values);
    return missing;
  }
  MissingReadings OneByOne() {
    MissingReadings missing;
    for (data::MeasurementTable::Row row = 1; row < table.EntryRow(); ++row) {
      one_by_one.Copy_Time(table, row);
      one_by_one.Copy_Visco(table, row, 2);
      one_by_one.Copy_Temp(table, row, 3);
      missing.Follow(one_by_one);
    }
    return missing;
  }
  std::string Told() { return HolesTold(AtOnce().Holes()); }

  data::MeasurementTable table;
  ValueArrays values;
  ValueArrays one_by_one;
};

std::vector<Reading> Every(double interval, const std::vector<int>& requests) {
  std::vector<Reading> readings;
  for (const int request : requests) readings.push_back({"1", interval * request});
  return readings;
}

std::vector<int> UpTo(int last, const std::vector<int>& without = {}) {
  std::vector<int> requests;
  for (int request = 0; request <= last; ++request) {
    if (std::ranges::find(without, request) == without.end()) requests.push_back(request);
  }
  return requests;
}

std::vector<std::pair<Index, Index>> Found(const MissingReadings& missing) {
  std::vector<std::pair<Index, Index>> found;
  for (const MissingReadings::Hole& hole : missing.Holes()) found.emplace_back(hole.after, hole.missing);
  return found;
}

TEST(MissingReadings, RegularReadingsAreWhole) {
  for (const double interval : {0.0, 0.1, 1.0, 5.0, 30.0, 3600.0})
    EXPECT_THAT(Times(Every(interval, UpTo(300))).AtOnce().Holes(), IsEmpty()) << interval;
}

TEST(MissingReadings, ARequestWithoutAReplyIsSeen) {
  EXPECT_THAT(Found(Times(Every(5, UpTo(200, {50}))).AtOnce()), ElementsAre(std::pair(50, 1)));
  EXPECT_THAT(Found(Times(Every(5, UpTo(10, {4, 5, 7}))).AtOnce()),
              ElementsAre(std::pair(4, 2), std::pair(5, 1)));
}

TEST(MissingReadings, WholeSecondsMayBeOffByOne) {
  std::vector<Reading> readings;
  for (int i = 0; i < 400; ++i) readings.push_back({"1", std::floor(i * 1.37)});
  EXPECT_THAT(Times(readings).AtOnce().Holes(), IsEmpty());
  readings.push_back({"1", readings.back().time + 4});
  EXPECT_THAT(Found(Times(readings).AtOnce()), ElementsAre(std::pair(400, 2)));
}

TEST(MissingReadings, IrregularReadingsHaveAHoleFromThreeIntervalsOn) {
  std::mt19937 random(5);
  std::vector<Reading> readings{{"1", 0}};
  for (int i = 0; i < 640; ++i)
    readings.push_back({"1", readings.back().time + 5.5 + static_cast<double>(random() % 100) / 10});
  EXPECT_THAT(Times(readings).AtOnce().Holes(), IsEmpty());
  for (std::size_t i = 300; i < readings.size(); ++i) readings[i].time += 60;
  const auto found = Found(Times(readings).AtOnce());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].first, 300);
  EXPECT_NEAR(static_cast<double>(found[0].second), 6, 1);
}

TEST(MissingReadings, AClockSetBackOrForwardByMoreThanAMinuteIsSeen) {
  std::vector<Reading> readings = Every(600, UpTo(200));
  for (std::size_t i = 40; i < readings.size(); ++i) readings[i].time += 100;
  for (std::size_t i = 150; i < readings.size(); ++i) readings[i].time -= 2000;
  EXPECT_THAT(Found(Times(readings).AtOnce()), ElementsAre(std::pair(40, 0), std::pair(150, 0)));
  EXPECT_EQ(Times(readings).Told(), "2 clock changes");
  for (std::size_t i = 150; i < readings.size(); ++i) readings[i].time += 2000;
  for (std::size_t i = 40; i < readings.size(); ++i) readings[i].time -= 50;
  EXPECT_THAT(Times(readings).AtOnce().Holes(), IsEmpty()) << "not by less";
}

TEST(MissingReadings, BetweenRunsNothingIsMissing) {
  std::vector<Reading> readings = Every(5, UpTo(20));
  for (const Reading& reading : Every(1, UpTo(20))) readings.push_back({"2", reading.time + 1000});
  EXPECT_THAT(Times(readings).AtOnce().Holes(), IsEmpty());
}

TEST(MissingReadings, AFewReadingsTellNothing) {
  EXPECT_THAT(Times({{"1", 0}, {"1", 1}, {"1", 2}, {"1", 50}}).AtOnce().Holes(), IsEmpty());
  EXPECT_THAT(Times({{"1", 0}, {"1", 1}, {"1", 2}, {"1", 3}, {"1", 50}}).AtOnce().Holes().size(), 1u);
  EXPECT_THAT(Times({}).AtOnce().Holes(), IsEmpty());
}

TEST(MissingReadings, ARunMayChangeItsPace) {
  for (const int slow : {640, 650, 670, 690, 703}) {
    std::vector<Reading> readings = Every(1, UpTo(slow));
    for (int i = 1; i <= 1000; ++i) readings.push_back({"1", slow + 10.0 * i});
    EXPECT_LE(Times(readings).AtOnce().Holes().size(), 32u) << slow;
    EXPECT_THAT(Times(readings).AtOnce().Within(slow + 64, slow + 1000), IsEmpty()) << slow;
  }
}

TEST(MissingReadings, WhatIsFoundDependsOnTheReadingsAlone) {
  std::mt19937 random(11);
  for (int round = 0; round < 20; ++round) {
    std::vector<Reading> readings;
    double time = 0;
    int run = 1;
    for (int i = 0; i < 400; ++i) {
      if (random() % 97 == 0) ++run;
      const unsigned kind = random() % 40;
      time += kind == 0 ? 40 : kind == 1 ? 400 : kind == 2 ? -100 : 5;
      readings.push_back({std::to_string(run), time});
    }
    Times times(readings);
    const MissingReadings at_once = times.AtOnce();
    const MissingReadings one_by_one = times.OneByOne();
    EXPECT_EQ(Found(at_once), Found(one_by_one));
    EXPECT_EQ(HolesTold(at_once.Holes()), HolesTold(one_by_one.Holes()));
    EXPECT_GT(at_once.Holes().size(), 10u);
  }
}

TEST(MissingReadings, AreToldOfAStretchAndCounted) {
  std::vector<Reading> readings = Every(5, UpTo(100, {10, 11, 50}));
  for (const Reading& reading : Every(5, UpTo(100, {7}))) readings.push_back({"2", reading.time});
  Times times(readings);
  const MissingReadings missing = times.AtOnce();
  EXPECT_EQ(HolesTold(missing.Within(0, 98)), "2 gaps, about 3 readings missing");
  EXPECT_EQ(HolesTold(missing.Within(98, times.values.Size())), "1 gap, about 1 reading missing");
  EXPECT_EQ(HolesTold(missing.Holes()), "3 gaps, about 4 readings missing");
  EXPECT_EQ(HolesTold(missing.Within(0, 5)), "");
}

TEST(MissingReadings, OtherReadingsAreLookedAtAfresh) {
  Times times(Every(5, UpTo(200, {50})));
  MissingReadings missing = times.AtOnce();
  ASSERT_EQ(missing.Holes().size(), 1u);
  times.table.RemoveRows(40, 60);
  times.values.CopyAll(times.table, 2, 3);
  missing.Follow(times.values);
  EXPECT_THAT(Found(missing), ElementsAre(std::pair(39, 22)));
}

TEST(MissingTicks, StandWhereTheReadingWouldHaveStood) {
  Times times(Every(5, UpTo(30, {10, 11, 20})));
  const MissingReadings missing = times.AtOnce();
  data::AxisRanges ranges;
  ranges.TimeMin = 0;
  ranges.TimeMax = 150;
  ranges.ViscoMax = 10;
  PlotAxes axes;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  MissingTicks ticks;
  const auto follow = [&](double width, int only) {
    ticks.Follow(missing, times.values, PlotPixels(axes, width, 100), only);
    return ticks.Places();
  };
  EXPECT_THAT(follow(1530, 0), ElementsAre(515.5, 1015.5));
  EXPECT_THAT(follow(153, 0), ElementsAre(51.5, 101.5));
  EXPECT_THAT(follow(153, 2), IsEmpty()) << "of another run";
  ranges.TimeMin = 60;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(follow(153, 0).size(), 1u);
  axes.SetScales(ranges, GraphKind::ViscoTemp, ViscoAxis::Linear);
  EXPECT_THAT(follow(153, 0), IsEmpty()) << "there is no time axis";
}

}  // namespace
}  // namespace quenlor::graph
