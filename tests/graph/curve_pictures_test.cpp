// SPDX-License-Identifier: MIT
// What a reader of the page sees: few lines, yet the picture that drawing every reading would give.

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/curve_lines.h"
#include "graph/map_to_position.h"
#include "graph/plot_grid.h"
#include "platform/qt/qt_drawing_surface.h"
#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Point;

// A piece of a page, in dots of 1/1200 inch. It is painted dot by dot, so that lines over each other have no
// thicker edges than one line, and looked at with 300 pixels to the inch.
constexpr PixelRectangle kPage{0, 0, 2800, 2800};
constexpr PixelRectangle kPlot{200, 200, 2400, 2400};
constexpr int kDotsPerPixel = 4;

QImage Picture(const std::function<void(DrawingSurface&)>& draw) {
  QImage image(kPage.width, kPage.height, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  platform::qt::QtDrawingSurface surface(painter, image.size(), 1200 / 96.0);
  draw(surface);
  painter.end();
  return image.scaled(image.size() / kDotsPerPixel, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Reading by reading, the lines of one colour as one shape as long as no other colour comes between.
void DrawNaively(DrawingSurface& surface, const std::vector<TestReading>& readings,
                 const PlotSettings& settings, const data::AxisRanges& ranges) {
  surface.SetViewport({kPage, {-200, -200, 2800, 2800}});
  const ValueArrays values = ValuesOf(readings);
  const bool over_temp = settings.kind == GraphKind::ViscoTemp;
  const MarkerSizes markers = MarkersOn(kPlot.width / (over_temp ? 10000.0 : 6000.0), kPlot.height / 10000.0);
  const auto x = [&](const TestReading& r) {
    return over_temp ? MapToPosition(r.temp, ranges.TempMin, ranges.TempMax, 0, kPlot.width)
                     : MapToPosition(r.time, ranges.TimeMin, ranges.TimeMax, 0, kPlot.width);
  };
  const auto visco = [&](const TestReading& r) {
    const float y = settings.visco_axis == ViscoAxis::Log
                        ? MapToPosition(static_cast<double>(Log10(r.visco)), ranges.ViscoLogMin,
                                        ranges.ViscoLogMax, kPlot.height, 0)
                        : MapToPosition(r.visco, ranges.ViscoMin, ranges.ViscoMax, kPlot.height, 0);
    return Point{std::round(x(r)), std::round(y)};
  };
  const auto temp = [&](const TestReading& r) {
    return Point{std::round(x(r)),
                 std::round(MapToPosition(r.temp, ranges.TempMin, ranges.TempMax, kPlot.height, 0))};
  };
  std::vector<platform::Segment> lines;
  Color lines_color;
  const auto use = [&](Color color) {
    if (color == lines_color) return;
    if (!lines.empty()) surface.DrawLines(lines);
    lines.clear();
    lines_color = color;
    surface.SetPen({ToRgb(color), 1.0 * settings.LineWidth, platform::LineStyle::kSolid, true});
  };
  surface.SetPen({ToRgb(lines_color), 1.0 * settings.LineWidth, platform::LineStyle::kSolid, true});
  for (std::size_t run = 0; run < values.Runs().size(); ++run) {
    const Index begin = values.Runs()[run].first;
    const auto draw = [&](Index i, Color color, const std::function<Point(const TestReading&)>& place,
                          bool circle) {
      use(color);
      const Point here = place(readings[static_cast<std::size_t>(i)]);
      if (i > begin) lines.push_back({place(readings[static_cast<std::size_t>(i) - 1]), here});
      if (!HasMarker(settings.MarkerEvery, i - begin)) return;
      circle ? surface.DrawCircle(here, markers.circle)
             : surface.DrawCross(here, markers.cross_across, markers.cross_down);
    };
    const Color series = RunColor(settings.colors, values.Runs()[run].number);
    for (Index i = begin; i < values.RunEnd(run); ++i) {
      draw(i, series, visco, true);
      if (settings.kind == GraphKind::ViscoTempTime)
        draw(i, values.SeriesCount() >= 2 ? series : settings.colors[3], temp, false);
    }
  }
  if (!lines.empty()) surface.DrawLines(lines);
}

struct Difference {
  int inked = 0;    // pixels of the naive picture that are not white
  int clear = 0;    // pixels that differ so much that it can be seen
  double mean = 0;  // of all inked pixels, of 255
};

// Within the plot; at its edges the page's lines end and the naive ones go on.
Difference Compare(const QImage& one, const QImage& other) {
  constexpr int kSeen = 128;
  const int first = kPlot.left / kDotsPerPixel + 8;
  const int last = (kPlot.left + kPlot.width) / kDotsPerPixel - 8;
  Difference difference;
  for (int y = first; y < last; ++y) {
    for (int x = first; x < last; ++x) {
      const QRgb a = one.pixel(x, y);
      const QRgb b = other.pixel(x, y);
      const int most = std::max(
          {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
      difference.inked += a != QColor(Qt::white).rgb();
      difference.clear += most >= kSeen;
      difference.mean += most;
    }
  }
  difference.mean /= std::max(difference.inked, 1);
  return difference;
}

struct Case {
  const char* name;
  PlotSettings settings;
  std::vector<TestReading> readings;
  // Where two colours lie in shreds over each other, a fringe of one remains beside the other.
  int shreds = 1;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.name; }

std::vector<TestReading> Readings(int runs, int count,
                                  const std::function<TestReading(int run, double part)>& reading) {
  std::vector<TestReading> readings;
  for (int run = 1; run <= runs; ++run) {
    for (int i = 0; i < count; ++i) {
      TestReading one = reading(run, 1.0 * i / count);
      one.run = run;
      one.time = 180.0 * i / count;
      readings.push_back(one);
    }
  }
  return readings;
}

PlotSettings Settings(GraphKind kind, int line_width, int marker_every = 0,
                      ViscoAxis axis = ViscoAxis::Linear) {
  PlotSettings settings;
  settings.kind = kind;
  settings.LineWidth = line_width;
  settings.MarkerEvery = marker_every;
  settings.visco_axis = axis;
  return settings;
}

std::vector<Case> Cases() {
  Dice dice(21);
  const auto noise = [&](double size) { return dice.Real(-size, size) + dice.Real(-size, size); };
  constexpr GraphKind kOver = GraphKind::ViscoTime;
  constexpr GraphKind kBoth = GraphKind::ViscoTempTime;
  constexpr GraphKind kTemp = GraphKind::ViscoTemp;
  return {
      {"few", Settings(kOver, 2, 1),
       Readings(3, 20,
                [&](int run, double part) {
                  return TestReading{0, 0, 20.0 * run + 10 * part, 25};
                })},
      {"ramp with noise", Settings(kOver, 1),
       Readings(1, 20000,
                [&](int, double part) {
                  return TestReading{0, 0, 10 + 80 * part + noise(2), 25};
                })},
      {"smooth", Settings(kOver, 1),
       Readings(2, 20000,
                [&](int run, double part) {
                  return TestReading{0, 0, 50 + 20 * run * std::sin(20 * part), 25};
                })},
      {"steps", Settings(kOver, 2),
       Readings(1, 20000,
                [&](int, double part) {
                  return TestReading{0, 0, 10 + 10 * std::floor(part * 8), 25};
                })},
      {"spikes", Settings(kOver, 1),
       Readings(2, 20000,
                [&](int, double) {
                  return TestReading{0, 0, dice.Once(300) ? dice.Real(-100, 200) : 50, 25};
                })},
      {"runs close together", Settings(kOver, 2),
       Readings(6, 4000,
                [&](int run, double part) {
                  return TestReading{0, 0, 30 + run + 40 * part + noise(1), 25};
                })},
      {"logarithmic", Settings(kOver, 1, 0, ViscoAxis::Log),
       Readings(
           2, 8000,
           [&](int run, double part) {
             return TestReading{0, 0, dice.Once(500) ? -1 : std::pow(10, 2 * part) * run + noise(0.3), 25};
           })},
      {"both curves", Settings(kBoth, 2, 4),
       Readings(1, 300,
                [&](int, double part) {
                  return TestReading{0, 0, 20 + 60 * part + noise(1), 80 - 60 * part + noise(1)};
                })},
      {"both curves in one noise", Settings(kBoth, 1),
       Readings(1, 30000,
                [&](int, double part) {
                  return TestReading{0, 0, 30 + 30 * part + noise(8), 60 - 20 * part + noise(8)};
                }),
       5},
      {"both curves of runs", Settings(kBoth, 1),
       Readings(
           3, 5000,
           [&](int run, double part) {
             return TestReading{0, 0, 20.0 * run + 20 * part + noise(1), 80 - 10.0 * run * part + noise(1)};
           })},
      {"markers in noise", Settings(kOver, 1, 2),
       Readings(1, 10000,
                [&](int, double part) {
                  return TestReading{0, 0, 20 + 60 * part + noise(6), 25};
                })},
      {"against temperature", Settings(kTemp, 1),
       Readings(2, 10000,
                [&](int run, double part) {
                  return TestReading{0, 0, 20.0 * run + 40 * part + noise(1), 10 + 80 * part + noise(0.5)};
                })},
      {"noise against noise", Settings(kTemp, 2),
       Readings(2, 1500,
                [&](int run, double) {
                  return TestReading{0, 0, 30.0 * run + noise(10), 50 + noise(15)};
                })},
  };
}

class CurvePictures : public testing::TestWithParam<Case> {};

TEST_P(CurvePictures, LookLikeThoseOfEveryReading) {
  const PlotSettings& settings = GetParam().settings;
  const std::vector<TestReading>& readings = GetParam().readings;
  const int shreds = GetParam().shreds;
  const data::AxisRanges ranges;
  const ValueArrays values = ValuesOf(readings);
  const QImage naive =
      Picture([&](DrawingSurface& surface) { DrawNaively(surface, readings, settings, ranges); });
  PlotAxes axes;
  axes.SetScales(ranges, settings.kind, settings.visco_axis);
  const QImage page = Picture([&](DrawingSurface& surface) {
    DrawCurveLines(surface, {kPlot, {0, 0, axes.XExtent(), 10000}}, 1, values, values.Runs(), settings, axes);
  });
  const Difference difference = Compare(naive, page);
  EXPECT_GT(difference.inked, 1000);
  EXPECT_LE(difference.clear, difference.inked * shreds / 200);
  // Lines may lie a dot and a half aside, a third of a pixel.
  EXPECT_LE(difference.mean, shreds == 1 ? 16 : 24);
}

std::string NameOf(const testing::TestParamInfo<Case>& tested) {
  std::string name = tested.param.name;
  std::ranges::replace(name, ' ', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Of, CurvePictures, testing::ValuesIn(Cases()), NameOf);

}  // namespace
}  // namespace quenlor::graph
