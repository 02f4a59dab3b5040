// SPDX-License-Identifier: MIT
#include "graph/reading_told.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/graph/plotted.h"

namespace quenlor::graph {
namespace {

using testing::ElementsAre;

TEST(ReadingTold, SaysWhatTheTableDoes) {
  Plotted plotted("1,00:00:05,12.50,mPa.s,25.3,C\n2,7,9,,,\n");
  plotted.document.SetSampleName(1, "Lot 7");
  const auto told = [&](Index index) { return ReadingTold(plotted.document, plotted.graph.Values(), index); };
  EXPECT_THAT(told(0),
              ElementsAre("No.1  Lot 7", "Time  00:00:05", "Viscosity  12.50 mPa.s", "Temp  25.3 C"));
  EXPECT_THAT(told(1), ElementsAre("No.2", "Time  7", "Viscosity  9"));
}

TEST(ReadingTold, BetweenTwoReadingsStandDifferencesAndTheSlope) {
  const Plotted plotted("1,60,1000.1,mPa.s,20.1,C\n1,180,1000.3,mPa.s,20.2,C\n");
  const auto between = [&](TimeUnit unit, GraphKind kind) {
    return BetweenTold(plotted.graph.Values(), 0, 1, {unit, ViscoAxis::Linear}, kind);
  };
  EXPECT_THAT(between(TimeUnit::Minute, GraphKind::ViscoTime),
              ElementsAre("A to B", "Time  +2 min", "Viscosity  +0.2", "Temp  +0.1", "Slope  +0.1 / min"));
  EXPECT_EQ(between(TimeUnit::Second, GraphKind::ViscoTime)[4], "Slope  +0.001667 / s");
  EXPECT_EQ(between(TimeUnit::Second, GraphKind::ViscoTemp)[4], "Slope  +2 / degree");
  EXPECT_EQ(BetweenTold(plotted.graph.Values(), 1, 1, {}, GraphKind::ViscoTime).size(), 4u) << "no slope";
}

TEST(ReadingTold, ARunIsToldByItsFirstAndLastReadingHoweverItIsDivided) {
  Plotted plotted("1,0,10,mPa.s,20,C\n2,0,30,mPa.s,20,C\n1,5,11,mPa.s,21,C\n");
  plotted.document.SetSampleName(1, "Lot 7");
  const auto told = [&](int run) { return RunTold(plotted.document, plotted.graph.Values(), run); };
  EXPECT_EQ(told(1), "Lot 7\nFirst: 0, 10 mPa.s, 20 C\nLast: 5, 11 mPa.s, 21 C\n2 readings");
  EXPECT_EQ(told(2), "No.2\nFirst: 0, 30 mPa.s, 20 C\nLast: 0, 30 mPa.s, 20 C\n1 reading");
  EXPECT_EQ(told(3), "");
}

}  // namespace
}  // namespace quenlor::graph
