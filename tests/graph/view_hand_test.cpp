// SPDX-License-Identifier: MIT
#include "graph/view_hand.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/data_file.h"

namespace quenlor::graph {
namespace {

namespace setting = data::setting;

struct Desk : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph graph{document, settings, *this};
  ViewHand hand{graph};
  double now = 1e9;

  explicit Desk(bool log = false, GraphKind kind = GraphKind::ViscoTime) {
    settings.Set(setting::kTimeS, 0);
    settings.Set(setting::kLog, log ? 1 : 0);
    document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp\n1,0,3,mPa.s,20\n1,170,900,mPa.s,30\n"),
                  "x.csv", "");
    graph.SetKind(kind);
    Enter(Limit::TimeMax, "200");
    Enter(Limit::ViscoMini, log ? "1" : "0");
    Enter(Limit::ViscoMax, "1000");
    Enter(Limit::TempMini, "0");
    Enter(Limit::TempMax, "50");
    hand.Begin();
  }
  void Enter(Limit limit, const char* text) { EXPECT_TRUE(graph.EnterLimit(limit, text)) << text; }
  void Read(double seconds, const char* visco) {
    now += seconds;
    const std::vector<std::string_view> fields{visco, "mPa.s", "25"};
    document.AppendReading(fields, {now, 0});
  }
  const data::AxisRanges& Ranges() const { return document.Ranges(); }
};

constexpr PlotPlace kMiddle{0.5, 0.5};
constexpr PlotPlace kNothing{0, 0};

TEST(ViewHand, ANotchLeavesWhatIsAtThePointerThere) {
  Desk desk;
  desk.hand.Zoom({0.25, 0.5}, Along::Both, 1);
  EXPECT_EQ(desk.Ranges().TimeMin, 10);
  EXPECT_EQ(desk.Ranges().TimeMax, 170);
  EXPECT_EQ(desk.Ranges().ViscoMin, 100);
  EXPECT_EQ(desk.Ranges().ViscoMax, 900);
  EXPECT_EQ(desk.Ranges().TempMax, 50) << "is not shown";
  desk.hand.Zoom({0.25, 0.5}, Along::Both, -1);
  EXPECT_EQ(desk.Ranges().TimeMin, 0);
  EXPECT_EQ(desk.Ranges().TimeMax, 200);
}

TEST(ViewHand, FingersThatSpreadMakeWhatIsBetweenThemAsManyTimesAsLarge) {
  Desk desk;
  desk.hand.Spread({0.25, 0.5}, 2);
  EXPECT_EQ(desk.Ranges().TimeMin, 25);
  EXPECT_EQ(desk.Ranges().TimeMax, 125);
  EXPECT_EQ(desk.Ranges().ViscoMin, 250);
  EXPECT_EQ(desk.Ranges().ViscoMax, 750);
  for (const double times : {0.0, -1.0, HUGE_VAL, std::nan("")}) desk.hand.Spread(kMiddle, times);
  EXPECT_EQ(desk.Ranges().TimeMax, 125) << "no spread at all";
}

TEST(ViewHand, OneDirectionLeavesTheOthersBoxTicked) {
  Desk desk;
  desk.graph.ShowWhole();
  desk.hand.Zoom(kMiddle, Along::Across, 1);
  EXPECT_FALSE(desk.graph.Scaling().Check2);
  EXPECT_TRUE(desk.graph.Scaling().Check3);
  EXPECT_TRUE(desk.graph.Scaling().Check4);
  desk.Read(1, "5000");
  EXPECT_GE(desk.Ranges().ViscoMax, 5000) << "goes on following";
}

TEST(ViewHand, EveryKindZoomsTheAxesThatItShows) {
  Desk both(false, GraphKind::ViscoTempTime);
  both.hand.Zoom(kMiddle, Along::Up, 1);
  EXPECT_EQ(both.Ranges().TimeMax, 200);
  EXPECT_EQ(both.Ranges().ViscoMax, 900);
  EXPECT_EQ(both.Ranges().TempMax, 45);
  Desk over_temp(false, GraphKind::ViscoTemp);
  over_temp.hand.Zoom(kMiddle, Along::Across, 1);
  EXPECT_EQ(over_temp.Ranges().TempMax, 45);
  EXPECT_EQ(over_temp.Ranges().ViscoMax, 1000);
  EXPECT_EQ(over_temp.Ranges().TimeMax, 200);
}

TEST(ViewHand, AtTheNumbersOfAnAxisThatAxisAlone) {
  const auto axes = [](PlotPlace at, GraphKind kind) { return AxesAt(at, Along::Both, kind); };
  using Axes = std::vector<Axis>;
  EXPECT_EQ(axes({-0.1, 0.5}, GraphKind::ViscoTempTime), Axes{Axis::Visco});
  EXPECT_EQ(axes({1.1, 0.5}, GraphKind::ViscoTempTime), Axes{Axis::Temp});
  EXPECT_EQ(axes({1.1, 0.5}, GraphKind::ViscoTime), Axes{});
  EXPECT_EQ(axes({0.5, -0.05}, GraphKind::ViscoTime), Axes{Axis::Time});
  EXPECT_EQ(axes({0.5, -0.05}, GraphKind::ViscoTemp), Axes{Axis::Temp});
  EXPECT_EQ(axes({0.5, -0.5}, GraphKind::ViscoTime), Axes{}) << "remarks";
  EXPECT_EQ(axes({0.5, 1.2}, GraphKind::ViscoTime), Axes{}) << "titles";
  EXPECT_EQ(axes({-0.1, -0.05}, GraphKind::ViscoTime), Axes{}) << "a corner";
}

TEST(ViewHand, OnALogAxisEveryNotchIsADecade) {
  Desk desk(true);
  desk.hand.Zoom({0.5, 1}, Along::Up, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 3);
  desk.hand.Zoom({0.5, 0}, Along::Up, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 2);
  desk.hand.Zoom(kMiddle, Along::Up, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax - desk.Ranges().ViscoLogMin, 1) << "one is the least";
  for (int i = 0; i < 4; ++i) desk.hand.Zoom({0.5, 0}, Along::Up, -0.5);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 4);
}

TEST(ViewHand, ABoxFillsThePlotAndTakesWholeDecades) {
  Desk desk(true);
  desk.hand.ZoomTo({0.1, 0.4}, {0.6, 0.5}, {0.01, 0.01});
  EXPECT_EQ(desk.Ranges().TimeMin, 20);
  EXPECT_EQ(desk.Ranges().TimeMax, 120);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 2);
}

TEST(ViewHand, ABoxAsFlatAsALineZoomsAlongItAlone) {
  Desk desk;
  desk.graph.ShowWhole();
  const data::AxisRanges before = desk.Ranges();
  desk.hand.ZoomTo({0.5, 0.5}, {0.25, 0.501}, {0.01, 0.01});
  EXPECT_EQ(desk.Ranges().TimeMin, 45);
  EXPECT_EQ(desk.Ranges().TimeMax, 90);
  EXPECT_EQ(desk.Ranges().ViscoMin, before.ViscoMin);
  EXPECT_TRUE(desk.graph.Scaling().Check3);
}

TEST(ViewHand, AShoveKeepsTheLengthsAndComesBack) {
  Desk desk;
  desk.hand.Shove({0.1, -0.2}, kNothing);
  EXPECT_EQ(desk.Ranges().TimeMin, -20);
  EXPECT_EQ(desk.Ranges().TimeMax, 180);
  EXPECT_EQ(desk.Ranges().ViscoMin, 200);
  EXPECT_EQ(desk.Ranges().ViscoMax, 1200);
  desk.hand.Shove(kNothing, kNothing);
  EXPECT_EQ(desk.Ranges().TimeMin, 0);
  EXPECT_EQ(desk.Ranges().ViscoMax, 1000);
}

TEST(ViewHand, AnUnsteadyHandShovesOneWayOnly) {
  Desk desk;
  desk.graph.ShowWhole();
  desk.hand.Begin();
  desk.hand.Shove({0.1, 0.004}, {0.01, 0.01});
  EXPECT_FALSE(desk.graph.Scaling().Check2);
  EXPECT_TRUE(desk.graph.Scaling().Check3);
  desk.Read(1, "5000");
  const double followed = desk.Ranges().ViscoMax;
  desk.hand.Shove({0.2, 0.004}, {0.01, 0.01});
  EXPECT_EQ(desk.Ranges().ViscoMax, followed) << "what has come while the button is down stays in view";
}

TEST(ViewHand, ALogAxisIsShovedByWholeDecades) {
  Desk desk(true);
  desk.hand.Shove({0, 0.1}, kNothing);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 0);
  desk.hand.Shove({0, 0.4}, kNothing);
  EXPECT_EQ(desk.Ranges().ViscoLogMin, -1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 2);
}

TEST(ViewHand, LimitsAreShortNumbers) {
  Desk desk;
  desk.hand.Zoom({1.0 / 3, 1.0 / 7}, Along::Both, 1);
  for (const std::string& limit : desk.graph.Labels().Label5) EXPECT_LE(limit.size(), 7u) << limit;
}

TEST(ViewHand, WithoutEndItEndsWhereATypedLimitIsRefused) {
  for (const double notches : {1.0, -1.0}) {
    for (const bool log : {false, true}) {
      Desk desk(log);
      for (int i = 0; i < 4000; ++i) desk.hand.Zoom({0.3, 0.3}, Along::Both, notches);
      const data::AxisRanges& ranges = desk.Ranges();
      EXPECT_LT(ranges.TimeMin, ranges.TimeMax);
      EXPECT_LT(ranges.ViscoMin, ranges.ViscoMax);
      EXPECT_LT(ranges.ViscoLogMin, ranges.ViscoLogMax);
      EXPECT_TRUE(std::isfinite(ranges.TimeMax - ranges.TimeMin));
      EXPECT_TRUE(std::isfinite(ranges.ViscoMax - ranges.ViscoMin));
      const auto& limits = desk.graph.Labels().Label5;
      EXPECT_NE(limits[0], limits[1]);
      EXPECT_NE(limits[2], limits[3]);
    }
  }
}

TEST(ViewHand, EarlierAndLaterWalkThroughGestures) {
  Desk desk;
  desk.hand.Begin();
  for (int i = 0; i < 3; ++i) desk.hand.Zoom(kMiddle, Along::Across, 1);
  const double zoomed = desk.Ranges().TimeMax;
  desk.hand.ZoomTo({0.2, 0.2}, {0.4, 0.4}, kNothing);
  const double boxed = desk.Ranges().TimeMax;
  EXPECT_TRUE(desk.graph.ShowEarlier());
  EXPECT_EQ(desk.Ranges().TimeMax, zoomed);
  EXPECT_TRUE(desk.graph.ShowEarlier());
  EXPECT_EQ(desk.Ranges().TimeMax, 200) << "three notches are one gesture";
  EXPECT_TRUE(desk.graph.ShowLater());
  EXPECT_TRUE(desk.graph.ShowLater());
  EXPECT_EQ(desk.Ranges().TimeMax, boxed);
  EXPECT_FALSE(desk.graph.ShowLater());
}

TEST(ViewHand, TheWholeIsAViewLikeOthersAndItsBoxesComeBack) {
  Desk desk;
  desk.graph.ShowWhole();
  EXPECT_EQ(desk.Ranges().TimeMax, 180);
  desk.hand.Zoom(kMiddle, Along::Both, 1);
  desk.Read(400, "5000");
  EXPECT_TRUE(desk.graph.ShowEarlier());
  EXPECT_TRUE(desk.graph.Scaling().Check2);
  EXPECT_TRUE(desk.graph.Scaling().Check3);
  EXPECT_GE(desk.Ranges().ViscoMax, 5000) << "whole means all readings that there are now";
}

TEST(ViewHand, TypedLimitsAndBoxesAreEarlierViewsToo) {
  Desk desk;
  desk.Enter(Limit::TimeMax, "90");
  desk.graph.SetAutoScaling(Axis::Time, true);
  EXPECT_EQ(desk.Ranges().TimeMax, 180);
  desk.graph.ShowEarlier();
  EXPECT_EQ(desk.Ranges().TimeMax, 90);
  EXPECT_FALSE(desk.graph.Scaling().Check2);
  desk.graph.ShowEarlier();
  EXPECT_EQ(desk.Ranges().TimeMax, 200);
}

TEST(ViewHand, AnotherDocumentHasNoEarlierViews) {
  Desk desk;
  desk.document.Load(data::ParseDataFile("No.,Time,Viscosity\n1,0,3\n"), "y.csv", "");
  EXPECT_FALSE(desk.graph.ShowEarlier());
}

}  // namespace
}  // namespace quenlor::graph
