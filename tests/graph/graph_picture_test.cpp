// SPDX-License-Identifier: MIT
#include "graph/graph_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/readable_color.h"
#include "platform/memory/recording_surface.h"
#include "tests/graph/opened_file.h"
#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

using platform::memory::RecordingSurface;
using testing::Contains;
using testing::Not;
using Kind = RecordingSurface::Call::Kind;

constexpr const char* kFile =
    "No.,Time,Viscosity,Unit1,Temp,Unit2\n"
    "1,00:00:00,50,mPa.s,25.0,C\n"
    "1,00:01:00,55,mPa.s,25.5,C\n"
    "Date,2026/11/21 09:30:00\n"
    "Memo,first batch\n";

struct Drawn {
  OpenedFile file;
  PlotSettings look;
  RecordingSurface surface;

  explicit Drawn(int width, int height, double pen_scale = 1, GraphKind kind = GraphKind::ViscoTime,
                 const std::string& name = "oil.csv", const PlotSettings& with = {})
      : file(kFile, name), look(with), surface(width, height, pen_scale) {
    file.graph.SetKind(kind);
    look.kind = kind;
    Plot plot(file.graph.Values());
    plot.Set(look, file.document.Ranges());
    DrawGraphPicture(surface, plot, CaptionsOf(file.document, file.graph));
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& call : surface.Calls(Kind::kText)) texts.push_back(call.text);
    return texts;
  }
};

TEST(GraphPicture, HoldsThePlotAndEveryCaptionOfItsKind) {
  const Drawn drawn(1200, 800);
  EXPECT_FALSE(drawn.surface.Calls(Kind::kLine).empty());
  for (const char* text :
       {"oil.csv", "2026/11/21 09:30:00", "Viscosity", "Time", "first batch", "55", "Final"})
    EXPECT_THAT(drawn.Texts(), Contains(text));
  EXPECT_THAT(drawn.Texts(), Not(Contains("Temp")));
  EXPECT_THAT(Drawn(1200, 800, 1, GraphKind::ViscoTempTime).Texts(), Contains("Temp"));
}

TEST(GraphPicture, IsTheSameOnAFinerSurface) {
  const Drawn coarse(600, 400);
  const Drawn fine(6000, 4000, 10);
  EXPECT_EQ(coarse.Texts(), fine.Texts());
  const auto one = coarse.surface.Calls(Kind::kText);
  const auto other = fine.surface.Calls(Kind::kText);
  for (std::size_t i = 0; i < one.size(); ++i) {
    EXPECT_NEAR(one[i].line.from.x, other[i].line.from.x, 1e-6);
    EXPECT_NEAR(one[i].down, other[i].down, 1e-6);
  }
}

TEST(GraphPicture, ALongNameIsCutInsideThePicture) {
  const Drawn drawn(900, 600, 1, GraphKind::ViscoTime, std::string(500, 'm') + ".csv");
  for (const auto& call : drawn.surface.Calls(Kind::kText)) {
    const double width = static_cast<double>(call.text.size()) * call.down / 2;
    EXPECT_LE(width, 900 * 15) << call.text;
  }
}

TEST(GraphPicture, LegendTextsHaveTheColoursOfTheirRuns) {
  const Drawn drawn(1200, 800);
  for (const auto& call : drawn.surface.Calls(Kind::kText)) {
    const bool of_run_1 = call.text == "55" && call.text_across == platform::Across::kCentre &&
                          call.line.from.y > 11.5 * 800 * 15 / 13.5;
    const Color color = of_run_1 ? drawn.look.colors[1] : drawn.look.GridColor;
    if (of_run_1 || call.text == "oil.csv") {
      EXPECT_EQ(call.pen.color, ToRgb(color));
    }
  }
}

TEST(GraphPicture, ABarOfTheVeryColourStandsOverARunAndPaleLettersHaveAnOutline) {
  for (const Color ground : {kWhite, kBlack}) {
    for (const Color color : {kWhite, kBlack, Color{0x0000FF}}) {
      PlotSettings look;
      look.BackColor = ground;
      look.GridColor = ReadableOn(ground);
      look.colors[1] = color;
      const Drawn drawn(1200, 800, 1, GraphKind::ViscoTime, "oil.csv", look);
      const auto clears = drawn.surface.Calls(Kind::kClear);
      ASSERT_GE(clears.size(), 5U);
      const auto bar = clears.end() - 5;
      EXPECT_EQ(bar->pen.color, ToRgb(color));
      for (auto edge = bar + 1; edge != clears.end(); ++edge) {
        EXPECT_EQ(edge->pen.color, ToRgb(EdgeOf(color, ground)));
        EXPECT_EQ(std::min(edge->viewport.Area().width, edge->viewport.Area().height), 1) << "a hairline";
      }
      for (const auto& call : drawn.surface.Calls(Kind::kText)) {
        EXPECT_EQ(call.pen.outline.has_value(), !CanBeRead(color, ground) && call.pen.color == ToRgb(color))
            << call.text;
      }
    }
  }
}

// A graph of that many pixels on a surface that keeps lines, ten dots to a pixel.
RecordingSurface Kept(const OpenedFile& file, const PlotSettings& look, data::AxisRanges ranges) {
  RecordingSurface surface(12000, 8000, 10);
  surface.SetKeepsLines();
  Plot plot(file.graph.Values());
  plot.Set(look, ranges);
  DrawGraphPicture(surface, plot, CaptionsOf(file.document, file.graph));
  return surface;
}

TEST(GraphPicture, WhereLinesAreKeptTheirNumberFollowsThePictureAndNotTheReadings) {
  Dice dice(3);
  std::string text = "No.,Time,Viscosity,Unit1,Temp\n";
  for (int i = 0; i < 200'000; ++i) {
    text += "1," + std::to_string(i) + "," + std::to_string(dice.Int(20, 80)) + ",mPa.s," +
            std::to_string(dice.Int(20, 80)) + "\n";
  }
  const OpenedFile file(text, "noise.csv");
  for (const GraphKind kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
    PlotSettings look;
    look.kind = kind;
    const auto kept = Kept(file, look, file.document.Ranges());
    EXPECT_LT(kept.Calls(Kind::kLine).size(), 50'000U);
    EXPECT_GT(kept.Calls(Kind::kLine).size(), 2'000U);
  }
}

TEST(GraphPicture, WhereLinesAreKeptNoneOfThemLeavesThePlot) {
  const OpenedFile file(kFile, "oil.csv");
  data::AxisRanges ranges = file.document.Ranges();
  ranges.TimeMin = 20;  // both readings lie outside
  ranges.TimeMax = 40;
  ranges.ViscoMax = 52;
  const RecordingSurface kept = Kept(file, {}, ranges);
  const platform::PixelRectangle plot =
      PlotLayout(1200 * 15, 800 * 15).Picture2Pixels(platform::PixelRectangle{0, 0, 12000, 8000});
  int lines = 0;
  for (const auto& call : kept.Calls(Kind::kLine)) {
    for (const platform::Point& end : {call.line.from, call.line.to}) {
      EXPECT_TRUE(call.viewport.DeviceX(end.x) >= plot.left &&
                  call.viewport.DeviceX(end.x) <= plot.left + plot.width &&
                  call.viewport.DeviceY(end.y) >= plot.top &&
                  call.viewport.DeviceY(end.y) <= plot.top + plot.height)
          << testing::PrintToString(call);
    }
    lines += call.pen.color == ToRgb(kDefaultColors[1]);
  }
  EXPECT_EQ(lines, 1);
  EXPECT_TRUE(kept.Calls(Kind::kCircle).empty());
}

TEST(GraphPicture, APictureWithoutAPixelGetsNothing) {
  EXPECT_TRUE(Drawn(0, 800).surface.Calls().empty());
  EXPECT_TRUE(Drawn(1, 1).Texts().size() < 100);
}

}  // namespace
}  // namespace quenlor::graph
