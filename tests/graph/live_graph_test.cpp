// SPDX-License-Identifier: MIT
#include "graph/live_graph.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

namespace setting = data::setting;

struct Desk : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph graph{document, settings, *this};
  int figs = 0;
  int captions = 0;
  std::vector<data::Document::Row> plotted;
  double now = 1e9;

  Desk() {
    settings.Set(setting::kTimeS, 0);
    Open("No.,Time,Viscosity,Unit1,Temp,Unit2\n");
  }
  void Fig() override { ++figs; }
  void PlotRow(data::Document::Row row) override { plotted.push_back(row); }
  void CaptionsChanged() override { ++captions; }

  void Open(const std::string& file) {
    document.Load(data::ParseDataFile(file), "x.csv", "");
    Forget();
  }
  void Read(std::string_view visco, std::string_view temp = "25", double seconds = 1) {
    const std::vector<std::string_view> fields{visco, "mPa.s", temp, "C"};
    document.AppendReading(fields, {now, 0});
    now += seconds;
  }
  void Forget() {
    figs = 0;
    captions = 0;
    plotted.clear();
  }
  const data::AxisRanges& Ranges() const { return document.Ranges(); }
};

TEST(LiveGraph, AnEmptyDocumentHasTheStartRanges) {
  Desk desk;
  EXPECT_EQ(desk.Ranges().TimeMax, 180);
  EXPECT_EQ(desk.Ranges().ViscoMax, 100);
  EXPECT_EQ(desk.Ranges().TempMax, 100);
}

TEST(LiveGraph, AReadingWithinTheRangesIsDrawnUponWhatIsThere) {
  Desk desk;
  desk.Read("50");
  desk.Forget();
  desk.Read("50");
  EXPECT_EQ(desk.figs, 0);
  EXPECT_EQ(desk.plotted, std::vector<data::Document::Row>{2});
}

TEST(LiveGraph, AReadingBeyondARangeScalesItAndDrawsEverythingAlsoInTheFirstRun) {
  Desk desk;
  desk.Read("50");
  desk.Forget();
  desk.Read("5000");
  EXPECT_EQ(desk.figs, 1);
  EXPECT_GE(desk.Ranges().ViscoMax, 5000);
}

TEST(LiveGraph, WithoutItsBoxARangeStays) {
  Desk desk;
  desk.graph.SetAutoScaling(Axis::Visco, false);
  desk.Read("50");
  desk.Forget();
  desk.Read("5000");
  EXPECT_EQ(desk.Ranges().ViscoMax, 100);
  EXPECT_EQ(desk.figs, 0);
}

TEST(LiveGraph, TheSecondSeriesDrawsEverythingForItsColours) {
  Desk desk;
  desk.Read("50");
  desk.document.BeginMeasurement();
  desk.Forget();
  desk.Read("50");
  EXPECT_EQ(desk.figs, 1);
}

TEST(LiveGraph, TimeGrowsAlongTheLadder) {
  Desk desk;
  desk.Read("50", "25", 181);
  desk.Read("50");
  EXPECT_EQ(desk.Ranges().TimeMax, 360);
}

TEST(LiveGraph, AnEditedCellReadsAllThreeQuantitiesAgain) {
  Desk desk;
  desk.Read("50");
  desk.Read("60");
  desk.Forget();
  desk.document.SetCell(1, 2, "7000");
  EXPECT_GE(desk.figs, 1);
  EXPECT_EQ(desk.graph.Values().Visco()[0], 7000);
  EXPECT_GE(desk.Ranges().ViscoMax, 7000);
  desk.document.SetCell(2, 1, "500");
  EXPECT_EQ(desk.graph.Values().Time()[1], 500);
  EXPECT_EQ(desk.Ranges().TimeMax, 720);
  desk.document.SetCell(2, 4, "99");
  EXPECT_EQ(desk.graph.Values().Temp()[1], 99);
}

TEST(LiveGraph, AfterADeletionTheLargestTimeStaysInView) {
  Desk desk;
  desk.Open("No.,Time,Viscosity\n1,300,1\n1,10,1\n2,20,1\n");
  desk.document.RemoveRows(2, 2);
  EXPECT_EQ(desk.graph.Values().Size(), 2);
  EXPECT_EQ(desk.Ranges().TimeMax, 360);
}

TEST(LiveGraph, AnotherViscosityColumnIsAnotherSeries) {
  Desk desk;
  desk.Read("50", "777");
  desk.Forget();
  desk.document.SetViscoColumn(4);
  EXPECT_EQ(desk.graph.Values().Visco()[0], 777);
  EXPECT_GE(desk.figs, 1);
}

TEST(LiveGraph, AnotherTemperatureColumnIsAnotherSeries) {
  Desk desk;
  desk.Read("777", "25");
  desk.Forget();
  desk.document.SetTempColumn(2);
  EXPECT_EQ(desk.graph.Values().Temp()[0], 777);
  EXPECT_GE(desk.Ranges().TempMax, 777);
  EXPECT_GE(desk.figs, 1);
}

TEST(LiveGraph, LegendShowsSampleNameAndNewestViscosityOfTheFirstTenRuns) {
  Desk desk;
  EXPECT_EQ(desk.graph.LegendText(1), std::nullopt);
  desk.Read("50");
  desk.Read("51");
  EXPECT_EQ(desk.graph.LegendText(1), "No.1\r51");
  desk.document.SetSampleName(1, "glycerol");
  EXPECT_EQ(desk.graph.LegendText(1), "glycerol\r51");
  EXPECT_EQ(desk.graph.LegendText(2), std::nullopt);
  desk.document.SetViscoColumn(4);
  EXPECT_EQ(desk.graph.LegendText(1), "glycerol\r25");
}

TEST(LiveGraph, ATypedLimitIsTakenInTheShownUnitAndEndsAutomaticScaling) {
  Desk desk;
  desk.settings.Set(setting::kTimeS, 1);
  EXPECT_TRUE(desk.graph.EnterLimit(Limit::TimeMax, "2"));
  EXPECT_EQ(desk.Ranges().TimeMax, 120);
  EXPECT_FALSE(desk.graph.Scaling().Check2);
  EXPECT_TRUE(desk.graph.Scaling().Check3);
  EXPECT_EQ(desk.figs, 1);
}

TEST(LiveGraph, AnInvertingLimitChangesNothing) {
  Desk desk;
  EXPECT_FALSE(desk.graph.EnterLimit(Limit::TempMini, "100"));
  EXPECT_FALSE(desk.graph.EnterLimit(Limit::TempMax, "-1"));
  EXPECT_TRUE(desk.graph.Scaling().Check4);
  EXPECT_EQ(desk.figs, 0);
}

TEST(LiveGraph, TickingABoxScalesAtOnce) {
  Desk desk;
  desk.graph.SetAutoScaling(Axis::Visco, false);
  desk.Read("5000");
  EXPECT_EQ(desk.Ranges().ViscoMax, 100);
  desk.graph.SetAutoScaling(Axis::Visco, true);
  EXPECT_GE(desk.Ranges().ViscoMax, 5000);
}

TEST(LiveGraph, TickingTimeInASecondRunFitsTheWholeTable) {
  Desk desk;
  desk.Read("50", "25", 1000);
  desk.Read("50");
  desk.document.BeginMeasurement();
  desk.Read("50");
  desk.graph.SetAutoScaling(Axis::Time, true);
  EXPECT_EQ(desk.Ranges().TimeMax, 1080);
}

TEST(LiveGraph, AClockSetBackShrinksNoAxis) {
  Desk desk;
  desk.Read("50", "25", 1000);
  desk.Read("50", "25", -4000);
  desk.Read("50");
  EXPECT_LT(desk.graph.Values().Time()[2], 0);
  EXPECT_EQ(desk.Ranges().TimeMax, 1080);
}

TEST(LiveGraph, TheFirstReadingOfAnEmptyDocumentFitsTheAxesWhoseBoxesAreTicked) {
  Desk desk;
  desk.graph.SetAutoScaling(Axis::Visco, false);
  desk.Read("2.5", "25.0");
  EXPECT_EQ(desk.Ranges().TempMin, 20);
  EXPECT_EQ(desk.Ranges().TempMax, 30);
  EXPECT_EQ(desk.Ranges().ViscoMax, 100) << "its box is not ticked";
  EXPECT_EQ(desk.figs, 2) << "the box, the reading";
}

TEST(LiveGraph, LaterReadingsInViewLeaveTheAxesThatTheFirstOneFitted) {
  Desk desk;
  desk.Read("50.0", "25.0");
  const double min = desk.Ranges().TempMin;
  desk.Forget();
  desk.Read("50.1", "29.9");
  EXPECT_EQ(desk.figs, 0);
  desk.Read("50.1", "30.1");
  EXPECT_EQ(desk.figs, 1);
  EXPECT_GE(desk.Ranges().TempMax, 30.1);
  EXPECT_LE(desk.Ranges().TempMin, 25);
  EXPECT_NE(desk.Ranges().TempMin, min);
}

TEST(LiveGraph, OnTheLogAxisTheFirstReadingFitsTheDecades) {
  Desk desk;
  desk.settings.Set(setting::kLog, 1);
  desk.Read("20");
  EXPECT_EQ(desk.Ranges().ViscoLogMin, 1);
  EXPECT_EQ(desk.Ranges().ViscoLogMax, 2);
}

TEST(LiveGraph, StandardBeginsTheViscosityAxisAtZero) {
  Desk desk;
  desk.Read("4000.5");
  desk.Read("5000.5");
  desk.graph.SetFine(false);
  EXPECT_EQ(desk.Ranges().ViscoMin, 0);
  desk.graph.SetFine(true);
  EXPECT_GT(desk.Ranges().ViscoMin, 0);
}

TEST(LiveGraph, RangesOfAFileStayWhereTheAxisIsNotScaledByItself) {
  Desk desk;
  const std::string file = "No.,Time,Viscosity,A,Temp\n1,10,5,x,20\nAxis,2,4,0,77,1,2,3,4,0,2,0,0,2,0\n";
  desk.graph.SetAutoScaling(Axis::Time, false);
  desk.Open(file);
  EXPECT_EQ(desk.Ranges().TimeMax, 77);
  EXPECT_NE(desk.Ranges().ViscoMax, 2) << "chosen afresh from the data";
}

}  // namespace
}  // namespace quenlor::graph
