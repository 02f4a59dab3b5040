// SPDX-License-Identifier: MIT
#include "reports/page_layout.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/page_colors.h"
#include "tests/reports/report_desk.h"

namespace quenlor::reports {
namespace {

using graph::Box;
using graph::GraphKind;
using graph::TextSide;
using testing::ElementsAre;

constexpr PageGrid kA4{11906, 16838};
constexpr PageGrid kA4Landscape{16838, 11906};
constexpr PageGrid kLetter{12240, 15840};
constexpr PageGrid kLetterLandscape{15840, 12240};

constexpr std::array kKinds = {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp};

// Letters as wide as six tenths of their height, which is wide for most of them.
double Measure(std::string_view text, double height) {
  const auto characters = std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; });
  return 0.6 * height * static_cast<double>(characters);
}

PageLabels Place(const PageGrid& grid, ReportDesk& desk) {
  desk.look.kind = desk.graph.Kind();
  return PlaceLabels(grid, desk.Captions(), desk.look, Measure);
}

std::vector<PageLabel> Visible(const PageLabels& labels) {
  std::vector<PageLabel> visible;
  labels.ForEach([&](const PageLabel& label) {
    if (label.visible) visible.push_back(label);
  });
  return visible;
}

// Every visible caption on the page, with its letters in its box, and no two on one spot.
void ExpectInOrder(const PageLabels& labels, const PageGrid& grid) {
  constexpr double kRounding = 0.01;
  const std::vector<PageLabel> visible = Visible(labels);
  for (std::size_t i = 0; i < visible.size(); ++i) {
    const PageLabel& label = visible[i];
    const Box& box = label.box;
    EXPECT_GE(box.left, 0) << label.text;
    EXPECT_GE(box.top, 0) << label.text;
    EXPECT_LE(box.left + box.width, grid.width) << label.text;
    EXPECT_LE(box.top + box.height, grid.height) << label.text;
    EXPECT_LE(static_cast<double>(label.lines.size()) * label.text_height, box.height) << label.text;
    for (const std::string& line : label.lines) {
      EXPECT_LE(Measure(line, label.text_height), box.width + kRounding) << line;
    }
    for (std::size_t j = i + 1; j < visible.size(); ++j) {
      const Box& other = visible[j].box;
      const bool apart = box.left + box.width <= other.left + kRounding ||
                         other.left + other.width <= box.left + kRounding ||
                         box.top + box.height <= other.top + kRounding ||
                         other.top + other.height <= box.top + kRounding;
      EXPECT_TRUE(apart) << label.text << " and " << visible[j].text;
    }
  }
  const auto outside_the_plot = [&](const Box& box) {
    return box.left + box.width <= grid.Left() || box.left >= grid.Right() ||
           box.top + box.height <= grid.Top() || box.top >= grid.Bottom();
  };
  for (const PageLabel& label : visible) EXPECT_TRUE(outside_the_plot(label.box)) << label.text;
}

std::string Repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(PageLayout, CaptionsAreCopiedElementByElement) {
  ReportDesk desk;
  desk.Open(Rows(2, 30));
  const graph::Captions captions = desk.Captions();
  const PageLabels labels = Place(kA4, desk);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(labels.Label1[i].text, captions.Label5[i]) << i;
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(labels.Label2[i].text, captions.Label6[i]) << i;
  for (std::size_t i = 1; i < 6; ++i) EXPECT_EQ(labels.Label3[i].text, captions.Label7[i].text) << i;
  for (std::size_t i = 1; i < 10; ++i) EXPECT_EQ(labels.Label4[i].text, captions.Label8[i].text) << i;
  for (std::size_t i = 1; i < 10; ++i) EXPECT_EQ(labels.Label5[i].text, captions.Label9[i].text) << i;
  for (std::size_t i = 0; i < 11; ++i) EXPECT_EQ(labels.Label6[i].text, captions.Label10[i]) << i;
  EXPECT_EQ(labels.Label2[4].text, "polymer.csv");
  EXPECT_EQ(labels.Label6[2].text, "No.2\r21");
}

TEST(PageLayout, TheLegendHasTheColoursOfTheRunsAndTheTenthTakesColourZero) {
  graph::ColorTable colors;
  for (std::size_t i = 0; i < colors.size(); ++i) colors[i] = {static_cast<std::uint32_t>(1000 + i)};
  const PageLabels labels(colors);
  for (std::size_t run = 1; run <= 9; ++run) EXPECT_EQ(labels.Label6[run].color, colors[run]) << run;
  EXPECT_EQ(labels.Label6[10].color, colors[0]);
  EXPECT_EQ(labels.Label6[0].color, graph::kBlack);
}

TEST(PageLayout, WhateverIsNoRunIsBlackAlsoWithABlackScreen) {
  ReportDesk desk;
  desk.Open(Rows(1, 30));
  desk.look.BackColor = graph::kBlack;
  desk.look.GridColor = graph::kWhite;
  desk.SetKind(GraphKind::ViscoTempTime);
  for (const PageLabel& label : Visible(Place(kA4, desk))) {
    const bool of_a_run = label.text.starts_with("No.");
    EXPECT_TRUE(of_a_run || label.color == graph::kBlack) << label.text;
  }
}

TEST(PageLayout, NothingOverlapsOrLeavesThePage) {
  for (const bool long_texts : {false, true}) {
    ReportDesk desk;
    desk.Open(Rows(10, 30));
    if (long_texts) {
      desk.document.SetFileName(Repeated("a long file name ", 30));
      desk.document.SetTitle(desk.document.ViscoColumn(), Repeated("apparent viscosity ", 10));
      desk.document.SetTitle(desk.document.TempColumn(), Repeated("outer bath ", 10));
      desk.document.SetRemarks(Repeated("Taken from the left drum. ", 200));
      for (int run = 1; run <= 10; ++run) desk.document.SetSampleName(run, Repeated("sample ", run));
    }
    for (int decades = 0; decades <= 7; ++decades) {
      if (decades == 1) desk.SetLogAxis();
      data::AxisRanges ranges = desk.document.Ranges();
      ranges.ViscoLogMin = -2;
      ranges.ViscoLogMax = static_cast<std::int16_t>(decades - 2);
      desk.document.SetRanges(ranges);
      for (const GraphKind kind : kKinds) {
        desk.SetKind(kind);
        for (const PageGrid& grid : {kA4, kA4Landscape, kLetter, kLetterLandscape, PageGrid{5953, 8391},
                                     PageGrid{40000, 12000}, PageGrid{6000, 20000}, PageGrid{240, 240}}) {
          SCOPED_TRACE(testing::Message()
                       << grid.width << " x " << grid.height << ", kind " << static_cast<int>(kind)
                       << ", decades " << decades << (long_texts ? ", long" : ""));
          ExpectInOrder(Place(grid, desk), grid);
        }
      }
    }
  }
}

TEST(PageLayout, EachKindHasItsScales) {
  ReportDesk desk;
  desk.Open(Rows(1, 30));
  const auto shown = [&](GraphKind kind) {
    desk.SetKind(kind);
    const PageLabels labels = Place(kA4, desk);
    return std::array{labels.Label1[0].visible, labels.Label3[3].visible, labels.Label2[5].visible,
                      labels.Label4[5].visible, labels.Label5[5].visible, labels.Label1[5].visible};
  };
  // Time end, time, unit, viscosity, temperature, temperature end.
  EXPECT_THAT(shown(GraphKind::ViscoTime), ElementsAre(true, true, true, true, false, false));
  EXPECT_THAT(shown(GraphKind::ViscoTempTime), ElementsAre(true, true, true, true, true, true));
  EXPECT_THAT(shown(GraphKind::ViscoTemp), ElementsAre(false, false, false, true, true, true));
}

TEST(PageLayout, TemperatureStandsOnTheRightBesideTimeAndBelowWithoutIt) {
  ReportDesk desk;
  desk.Open(Rows(1, 30));
  desk.SetKind(GraphKind::ViscoTempTime);
  EXPECT_GT(Place(kA4, desk).Label5[5].box.left, kA4.Right());
  EXPECT_LT(Place(kA4, desk).Label2[2].box.top, kA4.Top());
  desk.SetKind(GraphKind::ViscoTemp);
  EXPECT_GT(Place(kA4, desk).Label5[5].box.top, kA4.Bottom());
  EXPECT_GT(Place(kA4, desk).Label2[2].box.top, kA4.Bottom());
}

TEST(PageLayout, ScaleNumbersStandAtTheirGridLines) {
  ReportDesk desk;
  desk.Open(Rows(1, 30));
  const PageLabels labels = Place(kA4, desk);
  for (int i = 1; i <= 9; ++i) {
    const Box& box = labels.Label4[static_cast<std::size_t>(i)].box;
    EXPECT_NEAR(box.top + box.height / 2, (11 - i) * kA4.UnitY(), 0.1);
    EXPECT_LE(box.left + box.width, 0.9 * kA4.UnitX() + 0.1);
  }
  for (int i = 1; i <= 5; ++i) {
    const Box& box = labels.Label3[static_cast<std::size_t>(i)].box;
    EXPECT_NEAR(box.left + box.width / 2, (1 + i) * kA4.UnitX(), 0.1);
    EXPECT_GE(box.top, 11.1 * kA4.UnitY());
  }
  EXPECT_NEAR(labels.Label1[3].box.top + labels.Label1[3].box.height / 2, kA4.UnitY(), 0.1);
}

TEST(PageLayout, DecadesStandAtTheirLogarithms) {
  ReportDesk desk;
  desk.Open(Rows(1, 30));
  desk.SetLogAxis();
  data::AxisRanges ranges = desk.document.Ranges();
  ranges.ViscoLogMin = 0;
  ranges.ViscoLogMax = 2;
  desk.document.SetRanges(ranges);
  const PageLabels labels = Place(kA4, desk);
  ASSERT_EQ(labels.Label4[5].text, "10");
  EXPECT_NEAR(labels.Label4[5].box.top + labels.Label4[5].box.height / 2, 6 * kA4.UnitY(), 0.1);
  EXPECT_TRUE(labels.Label4[5].visible);
}

TEST(PageLayout, WithALittleMoreThanTheUsualTextsNothingIsCut) {
  ReportDesk desk;
  desk.Open(Rows(10, 30));
  desk.document.SetFileName("Polymer solution 12 at 25 degrees.csv");
  desk.document.SetRemarks(Repeated("Taken from the left drum. ", 12));
  for (int run = 1; run <= 10; ++run)
    desk.document.SetSampleName(run, "Lot 26-" + std::to_string(1100 + run));
  for (const GraphKind kind : kKinds) {
    desk.SetKind(kind);
    for (const PageGrid& grid : {kA4, kA4Landscape, kLetter, kLetterLandscape}) {
      for (const PageLabel& label : Visible(Place(grid, desk))) {
        for (const std::string& line : label.lines) EXPECT_EQ(line.find("…"), std::string::npos) << line;
      }
    }
  }
}

TEST(PageLayout, LongNamesTakeASecondRowBeforeTheyAreCut) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  const PageLabels one_row = Place(kA4, desk);
  EXPECT_EQ(one_row.Label6[1].box.top, one_row.Label6[10].box.top);
  for (int run = 1; run <= 10; ++run)
    desk.document.SetSampleName(run, "Suspension 11 no. " + std::to_string(run));
  const PageLabels labels = Place(kA4, desk);
  EXPECT_GT(labels.Label6[10].box.top, labels.Label6[1].box.top);
  EXPECT_EQ(labels.Label6[10].lines.front(), "Suspension 11 no. 10");
}

TEST(PageLayout, NamesThatAreCutStillDiffer) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  for (int run = 1; run <= 10; ++run)
    desk.document.SetSampleName(run, "Suspension of resin in vessel no. " + std::to_string(run));
  std::set<std::string> names;
  const PageLabels labels = Place(kA4, desk);
  for (std::size_t run = 1; run <= 10; ++run) names.insert(labels.Label6[run].lines.front());
  EXPECT_EQ(names.size(), 10U) << testing::PrintToString(names);
  EXPECT_TRUE(names.begin()->starts_with("Susp"));
}

TEST(PageLayout, ALegendOfLongNamesLeavesRoomForRemarks) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  for (int run = 1; run <= 10; ++run) desk.document.SetSampleName(run, Repeated("a long name ", 5));
  desk.document.SetRemarks(Repeated("Taken from the left drum. ", 200));
  for (const PageGrid& grid : {kA4, kA4Landscape, kLetter, kLetterLandscape}) {
    EXPECT_GE(Place(grid, desk).Label2[6].lines.size(), 2U);
  }
}

TEST(PageLayout, OnAHighPageTheTitlesMayBeAsLongAsTheWayToTheMiddle) {
  ReportDesk desk;
  desk.document.SetTitle(desk.document.ViscoColumn(), "Apparent viscosity of it");
  desk.SetKind(GraphKind::ViscoTempTime);
  EXPECT_EQ(Place(kA4, desk).Label2[1].lines.front(), "Apparent viscosity of it");
}

TEST(PageLayout, TheLegendShowsTheRunsThatHaveReadings) {
  ReportDesk desk;
  desk.Open(Rows(3, 3));
  const PageLabels labels = Place(kA4, desk);
  EXPECT_THAT(labels.Label6[0].lines, ElementsAre("Final", "Value"));
  EXPECT_THAT(labels.Label6[3].lines, ElementsAre("No.3", "32"));
  EXPECT_FALSE(labels.Label6[4].visible);
}

TEST(PageLayout, RemarksShrinkBeforeTheyAreCut) {
  ReportDesk desk;
  const double usual = Place(kA4, desk).Label2[6].text_height;

  desk.document.SetRemarks(Repeated("Taken from the left drum. ", 25));
  const PageLabel shrunk = Place(kA4, desk).Label2[6];
  EXPECT_LT(shrunk.text_height, usual);
  EXPECT_TRUE(shrunk.lines.back().ends_with("drum."));

  desk.document.SetRemarks(Repeated("Taken from the left drum. ", 200));
  const PageLabel cut = Place(kA4, desk).Label2[6];
  EXPECT_TRUE(cut.lines.back().ends_with("…"));
  EXPECT_GE(cut.text_height, 0.65 * usual);
}

TEST(PageLayout, AnEmptyDocumentHasItsScalesAndNoLegend) {
  ReportDesk desk;
  const PageLabels labels = Place(kA4, desk);
  EXPECT_TRUE(labels.Label1[0].visible);
  EXPECT_TRUE(labels.Label4[5].visible);
  for (const PageLabel& label : labels.Label6) EXPECT_FALSE(label.visible);
}

TEST(PageLayout, LettersGrowAndShrinkWithThePageWhicheverWayItIsTurned) {
  constexpr double kTwipsPerPoint = 20;
  EXPECT_NEAR(kA4.TextHeight() / kTwipsPerPoint, 10.5, 0.5);
  EXPECT_NEAR(kA4Landscape.TextHeight(), kA4.TextHeight(), 0.1);
  EXPECT_NEAR(PageGrid({2 * 11906, 2 * 16838}).TextHeight(), 2 * kA4.TextHeight(), 0.1);
}

TEST(PageLayout, APageOfNothingIsNoTrouble) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  for (const double size : {0.0, 1.0, 15.0}) ExpectInOrder(Place({size, size}, desk), {size, size});
}

TEST(PageLayout, NoNumberIsShownInPart) {
  ReportDesk desk;
  desk.Open("1,0,123456789012345,25\n1,60,123456789012999,26\n");
  desk.SetKind(GraphKind::ViscoTempTime);
  for (const PageGrid& grid : {kA4, kLetterLandscape, PageGrid{3000, 20000}}) {
    const PageLabels labels = Place(grid, desk);
    EXPECT_EQ(labels.Label6[1].lines.back(), "123456789012999");
    for (const auto* scale : {&labels.Label4, &labels.Label5}) {
      for (const PageLabel& label : *scale)
        EXPECT_TRUE(!label.visible || label.lines.front() == label.text || label.lines.front() == "…")
            << label.lines.front();
    }
  }
}

TEST(PageLayout, ABarStandsOverEveryRunOfTheLegendAndNowhereElse) {
  ReportDesk desk;
  desk.Open(Rows(3, 3));
  const PageLabels labels = Place(kA4, desk);
  for (const PageLabel& label : Visible(labels))
    EXPECT_EQ(label.bar > 0, label.text.starts_with("No.")) << label.text;
  const PageLabel& run = labels.Label6[1];
  EXPECT_GT(run.box.height - run.bar, 2 * run.text_height) << "below it the lines have their room";
}

TEST(PageColors, OnlyAllButWhiteCurvesBecomeBlack) {
  EXPECT_EQ(InkOf(graph::kWhite), graph::kBlack);
  EXPECT_EQ(InkOf({0xF8FFFF}), graph::kBlack);
  for (const graph::Color color : graph::kDefaultColors) EXPECT_EQ(InkOf(color), color);
}

}  // namespace
}  // namespace quenlor::reports
