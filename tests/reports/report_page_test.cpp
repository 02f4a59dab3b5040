// SPDX-License-Identifier: MIT
#include "reports/report_page.h"

#include <QImage>
#include <QPainter>
#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/plot_grid.h"
#include "graph/readable_color.h"
#include "platform/memory/recording_surface.h"
#include "platform/qt/qt_drawing_surface.h"
#include "reports/page_colors.h"
#include "tests/reports/report_desk.h"

namespace quenlor::reports {
namespace {

using graph::GraphKind;
using platform::LineStyle;
using platform::PixelRectangle;
using platform::Point;
using platform::memory::RecordingSurface;
using testing::Contains;
using Call = RecordingSurface::Call;
using Kind = Call::Kind;

constexpr std::array kKinds = {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp};

const platform::Rgb kBlackInk = graph::ToRgb(graph::kBlack);

// A4 in dots of 1/1200 inch; its units in twips.
constexpr int kDotsAcross = 9921;
constexpr int kDotsDown = 14031;
constexpr double kUnitX = kDotsAcross * 1.2 / 8;
constexpr double kUnitY = kDotsDown * 1.2 / 13.5;

std::vector<Call> Page(ReportDesk& desk, int width = kDotsAcross, int height = kDotsDown,
                       double pen_scale = 12.5) {
  RecordingSurface surface(width, height, pen_scale);
  const ReportContent content = desk.Content();
  Draw(surface, content);
  return surface.Calls();
}

std::vector<Call> Of(Kind kind, const std::vector<Call>& calls) {
  std::vector<Call> wanted;
  std::ranges::copy_if(calls, std::back_inserter(wanted),
                       [&](const Call& call) { return call.kind == kind; });
  return wanted;
}

std::vector<std::string> Texts(const std::vector<Call>& calls) {
  std::vector<std::string> texts;
  for (const Call& call : Of(Kind::kText, calls)) texts.push_back(call.text);
  return texts;
}

bool IsPage(const Call& call) { return call.viewport.Area() == PixelRectangle{0, 0, kDotsAcross, kDotsDown}; }

// Where lines of the grid stand that are wholly upright (or lie), in units.
std::vector<double> Uprights(const std::vector<Call>& calls, LineStyle style) {
  std::vector<double> places;
  for (const Call& call : Of(Kind::kLine, calls)) {
    if (!IsPage(call) || call.pen.style != style || call.line.from.x != call.line.to.x) continue;
    EXPECT_NEAR(call.line.from.y / kUnitY, 1, 1e-6);
    EXPECT_NEAR(call.line.to.y / kUnitY, 11, 1e-6);
    places.push_back(std::round(call.line.from.x / kUnitX * 1000) / 1000);
  }
  return places;
}

std::vector<double> Lying(const std::vector<Call>& calls, LineStyle style) {
  std::vector<double> places;
  for (const Call& call : Of(Kind::kLine, calls)) {
    if (!IsPage(call) || call.pen.style != style || call.line.from.y != call.line.to.y) continue;
    if (call.line.to.x - call.line.from.x < 5.9 * kUnitX) continue;  // ticks and samples
    EXPECT_NEAR(call.line.from.x / kUnitX, 1, 1e-6);
    EXPECT_NEAR(call.line.to.x / kUnitX, 7, 1e-6);
    places.push_back(std::round(call.line.from.y / kUnitY * 1000) / 1000);
  }
  return places;
}

TEST(ReportPage, ThePaperIsClearedFirst) {
  ReportDesk desk;
  desk.look.BackColor = graph::kBlack;
  const Call first = Page(desk).at(0);
  EXPECT_EQ(first.kind, Kind::kClear);
  EXPECT_EQ(first.pen.color, graph::ToRgb(graph::kWhite));
  EXPECT_TRUE(IsPage(first));
}

TEST(ReportPage, OverTimeUprightLinesStandAtWholeUnits) {
  ReportDesk desk;
  for (const GraphKind kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime}) {
    desk.SetKind(kind);
    const auto calls = Page(desk);
    EXPECT_THAT(Uprights(calls, LineStyle::kDotted), testing::ElementsAre(2, 3, 5, 6));
    const auto solid = Uprights(calls, LineStyle::kSolid);
    EXPECT_THAT(solid, testing::IsSupersetOf({1, 4, 7}));
    EXPECT_THAT(solid, testing::Each(testing::AnyOf(1, 4, 7)));
  }
}

TEST(ReportPage, OverTemperatureThereAreTenDivisions) {
  ReportDesk desk;
  desk.SetKind(GraphKind::ViscoTemp);
  const auto calls = Page(desk);
  EXPECT_THAT(Uprights(calls, LineStyle::kDotted),
              testing::ElementsAre(1.6, 2.2, 2.8, 3.4, 4.6, 5.2, 5.8, 6.4));
  EXPECT_THAT(Uprights(calls, LineStyle::kSolid), testing::Each(testing::AnyOf(1, 4, 7)));
}

TEST(ReportPage, LyingLinesAreTenthsOrDecades) {
  ReportDesk desk;
  EXPECT_THAT(Lying(Page(desk), LineStyle::kDotted), testing::ElementsAre(2, 3, 4, 5, 7, 8, 9, 10));
  EXPECT_THAT(Lying(Page(desk), LineStyle::kSolid), testing::IsSupersetOf({1, 6, 11}));

  desk.SetLogAxis();  // two decades
  const auto dotted = Lying(Page(desk), LineStyle::kDotted);
  ASSERT_EQ(dotted.size(), 16U);
  EXPECT_DOUBLE_EQ(dotted[0], std::round((6 - 5 * std::log10(2)) * 1000) / 1000);
  EXPECT_THAT(Lying(Page(desk), LineStyle::kSolid), testing::IsSupersetOf({1, 6, 11}));
}

TEST(ReportPage, WithoutADecadeThePlotStillHasItsFrame) {
  ReportDesk desk;
  desk.SetLogAxis();
  data::AxisRanges ranges = desk.document.Ranges();
  ranges.ViscoLogMax = ranges.ViscoLogMin;
  desk.document.SetRanges(ranges);
  EXPECT_THAT(Lying(Page(desk), LineStyle::kSolid), testing::UnorderedElementsAre(1, 11));
  EXPECT_THAT(Lying(Page(desk), LineStyle::kDotted), testing::IsEmpty());
}

TEST(ReportPage, TheTemperatureAxisHasTicksAndBothCurvesASample) {
  ReportDesk desk;
  desk.Open(Rows(1, 5));
  desk.SetKind(GraphKind::ViscoTempTime);
  const auto ticks = [&] {
    int count = 0;
    for (const Call& call : Of(Kind::kLine, Page(desk))) {
      const auto& [from, to] = call.line;
      count +=
          IsPage(call) && from.y == to.y && std::abs(to.x - 7 * kUnitX) < 1 && to.x - from.x < 0.1 * kUnitX;
    }
    return count;
  };
  EXPECT_EQ(ticks(), 9);
  const auto sample = [&](Kind kind) {
    std::vector<Call> samples;
    for (const Call& call : Of(kind, Page(desk))) {
      if (IsPage(call)) samples.push_back(call);
    }
    return samples;
  };
  ASSERT_EQ(sample(Kind::kCircle).size(), 1U);
  EXPECT_NEAR(sample(Kind::kCircle)[0].line.from.x, kUnitX, 0.1);
  EXPECT_EQ(sample(Kind::kCircle)[0].pen.color, graph::ToRgb(desk.look.colors[1]));
  ASSERT_EQ(sample(Kind::kCross).size(), 1U);
  EXPECT_NEAR(sample(Kind::kCross)[0].line.from.x, 7 * kUnitX, 0.1);
  EXPECT_EQ(sample(Kind::kCross)[0].pen.color, graph::ToRgb(desk.look.colors[3]));

  desk.Open(Rows(2, 5));
  EXPECT_EQ(sample(Kind::kCircle).at(0).pen.color, kBlackInk);
  EXPECT_EQ(sample(Kind::kCross).at(0).pen.color, kBlackInk);
  desk.SetKind(GraphKind::ViscoTime);
  EXPECT_EQ(ticks(), 0);
  EXPECT_TRUE(sample(Kind::kCircle).empty());
}

TEST(ReportPage, EveryCaptionIsOnIt) {
  ReportDesk desk;
  desk.Open(Rows(2, 5));
  desk.document.SetRemarks("Remarks: 試料は二十五度 взята");
  desk.SetKind(GraphKind::ViscoTempTime);
  const auto texts = Texts(Page(desk));
  for (const char* text : {"polymer.csv", "2026/11/21 09:30:00", "Viscosity", "Temp", "Time", "(min)",
                           "Final", "Value", "No.1", "No.2", "14", "24", "Remarks: 試料は二十五度 взята"}) {
    EXPECT_THAT(texts, Contains(text));
  }
  for (const std::string& end : desk.Captions().Label5) EXPECT_THAT(texts, Contains(end));
}

TEST(ReportPage, WhateverIsNoCurveOrRunIsBlackAlsoWithABlackScreen) {
  ReportDesk desk;
  desk.Open(Rows(2, 5));
  desk.SetKind(GraphKind::ViscoTempTime);
  desk.look.BackColor = graph::kBlack;
  desk.look.GridColor = graph::kWhite;
  for (const Call& call : Page(desk)) {
    if (!IsPage(call) || call.kind == Kind::kClear) continue;
    const bool of_a_run = call.kind == Kind::kText && call.line.from.y > 11.5 * kUnitY &&
                          (call.text.starts_with("No.") || call.text == "14" || call.text == "24");
    const bool dotted = call.kind == Kind::kLine && call.pen.style == LineStyle::kDotted;
    EXPECT_TRUE(of_a_run || dotted || call.pen.color == kBlackInk) << testing::PrintToString(call);
  }
}

TEST(ReportPage, ACurveThatWouldNotShowOnPaperIsBlack) {
  ReportDesk desk;
  desk.Open(Rows(2, 5));
  desk.look.colors[1] = graph::kWhite;
  std::vector<platform::Rgb> inks;
  for (const Call& call : Of(Kind::kCircle, Page(desk))) inks.push_back(call.pen.color);
  EXPECT_THAT(inks, testing::UnorderedElementsAre(kBlackInk, graph::ToRgb(desk.look.colors[2])));
}

TEST(ReportPage, ARunsNameHasItsColourAndAPaleOneAnOutline) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  desk.look.colors[4] = graph::kWhite;
  const auto calls = Page(desk);
  for (int run = 1; run <= 10; ++run) {
    const graph::Color color = graph::RunColor(desk.look.colors, run);
    const auto name = std::ranges::find(calls, "No." + std::to_string(run), &Call::text);
    ASSERT_NE(name, calls.end()) << run;
    EXPECT_EQ(name->pen.color, graph::ToRgb(color)) << run;
    EXPECT_EQ(name->pen.outline.has_value(), !graph::CanBeRead(color, graph::kWhite)) << run;
  }
}

TEST(ReportPage, ABarOfTheVeryColourWithAHairlineStandsOverEveryRun) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  const auto calls = Page(desk);
  for (int run = 1; run <= 10; ++run) {
    const graph::Color color = graph::RunColor(desk.look.colors, run);
    const auto name = std::ranges::find(calls, "No." + std::to_string(run), &Call::text);
    ASSERT_NE(name, calls.end()) << run;
    ASSERT_GE(name - calls.begin(), 5) << run;
    const Call& bar = *(name - 5);
    EXPECT_EQ(bar.kind, Kind::kClear) << run;
    EXPECT_EQ(bar.pen.color, graph::ToRgb(color)) << run;
    EXPECT_LT(bar.viewport.Area().top + bar.viewport.Area().height, name->viewport.Row(name->line.from.y));
    for (auto edge = name - 4; edge != name; ++edge) {
      const PixelRectangle& area = edge->viewport.Area();
      EXPECT_EQ(edge->pen.color, graph::ToRgb(graph::EdgeOf(color, graph::kWhite))) << run;
      EXPECT_EQ(std::min(area.width, area.height), 6) << "half a pen of 12.5 dots";
    }
  }
}

TEST(ReportPage, NothingOnItIsBlackButLinesAndLetters) {
  ReportDesk desk;
  desk.Open(Rows(10, 3));
  for (const Call& call : Of(Kind::kClear, Page(desk))) EXPECT_NE(call.pen.color, kBlackInk);
}

TEST(ReportPage, DottedLinesAreLighterThanTheCurves) {
  ReportDesk desk;
  desk.Open(Rows(2, 3));
  for (const Call& call : Of(Kind::kLine, Page(desk))) {
    if (!IsPage(call)) continue;
    const platform::Rgb grey{128, 128, 128};
    EXPECT_EQ(call.pen.color, call.pen.style == LineStyle::kDotted ? grey : kBlackInk);
  }
}

TEST(ReportPage, AnEmptyDocumentHasGridAndCaptionsAlone) {
  ReportDesk desk;
  for (const GraphKind kind : kKinds) {
    desk.SetKind(kind);
    const auto calls = Page(desk);
    for (const Call& call : calls) EXPECT_TRUE(IsPage(call)) << testing::PrintToString(call);
    EXPECT_THAT(Texts(calls), Contains("0"));
    EXPECT_THAT(Texts(calls), testing::Not(Contains("Final")));
  }
}

TEST(ReportPage, FiveHundredRunsAreDrawnAndTheFirstTenNamed) {
  ReportDesk desk;
  std::string rows;
  for (int run = 1; run <= 500; ++run) {
    for (int i = 0; i < 4; ++i)
      rows += std::to_string(run) + "," + std::to_string(i) + "," + std::to_string(run) + ",25\n";
  }
  desk.Open(rows);
  const auto calls = Page(desk);
  EXPECT_EQ(std::ranges::count_if(Of(Kind::kLine, calls), [](const Call& call) { return !IsPage(call); }),
            500);
  EXPECT_THAT(Texts(calls), Contains("No.10"));
  EXPECT_THAT(Texts(calls), testing::Not(Contains("No.11")));
}

TEST(ReportPage, ARunEndsWhereItsNumberIsWrittenInAnotherWay) {
  ReportDesk desk;
  desk.Open("1,0,10,25\n1,60,40,25\n01,120,20,25\n01,180,50,25\n");
  const auto calls = Page(desk);
  EXPECT_EQ(std::ranges::count_if(Of(Kind::kLine, calls), [](const Call& call) { return !IsPage(call); }), 2);
  EXPECT_EQ(Of(Kind::kCircle, calls).size(), 2U);
}

TEST(ReportPage, NothingIsDrawnBesideAPageHoweverSmall) {
  ReportDesk desk;
  desk.Open(Rows(10, 20));
  for (const GraphKind kind : kKinds) {
    desk.SetKind(kind);
    for (const auto& [width, height] : {std::pair{0, 0},
                                        {0, 100},
                                        {1, 1},
                                        {7, 3},
                                        {20, 20},
                                        {200, 200},
                                        {3000, 20},
                                        {20, 3000},
                                        {14031, 9921},
                                        {10200, 13200}}) {
      for (const double pen_scale : {12.5, 1.0, 0.0}) {
        for (const Call& call : Page(desk, width, height, pen_scale)) {
          const PixelRectangle& area = call.viewport.Area();
          EXPECT_TRUE(area.left >= 0 && area.top >= 0 && area.left + area.width <= width &&
                      area.top + area.height <= height)
              << testing::PrintToString(call) << " on " << width << " x " << height;
          if (call.kind != Kind::kText) continue;
          const double x = call.viewport.DeviceX(call.line.from.x);
          const double y = call.viewport.DeviceY(call.line.from.y);
          EXPECT_TRUE(x >= -1e-6 && x <= width + 1e-6 && y >= 0 && y <= height) << call.text;
        }
      }
    }
  }
}

TEST(ReportPage, APageWithoutADotGetsNothing) {
  ReportDesk desk;
  EXPECT_TRUE(Page(desk, 0, 0).empty());
  EXPECT_TRUE(Page(desk, 100, 0).empty());
}

TEST(ReportPage, CanBePaintedOnPicturesOfAnySize) {
  ReportDesk desk;
  desk.Open(Rows(10, 20));
  desk.SetKind(GraphKind::ViscoTempTime);
  for (const QSize size : {QSize(1, 1), QSize(16, 9), QSize(200, 200), QSize(827, 1169)}) {
    QImage image(size, QImage::Format_RGB32);
    const QColor desk_top(1, 2, 3);
    image.fill(desk_top);
    {
      QPainter painter(&image);
      platform::qt::QtDrawingSurface surface(painter, size);
      const ReportContent content = desk.Content();
      Draw(surface, content);
    }
    EXPECT_NE(image.pixelColor(0, 0), desk_top) << size.width();
    EXPECT_NE(image.pixelColor(size.width() - 1, size.height() - 1), desk_top) << size.width();
  }
}

}  // namespace
}  // namespace quenlor::reports
