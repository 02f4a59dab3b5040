// SPDX-License-Identifier: MIT
#include "graph/plot_grid.h"

#include <algorithm>
#include <cmath>

#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::LineStyle;
using platform::Segment;

void AddVerticalLines(const PlotAxes& axes, GridLines& lines) {
  constexpr double kDistance = 1000;
  const int last = static_cast<int>(axes.XExtent() / kDistance);
  for (int i = 0; i <= last; ++i) {
    const double x = i * kDistance;
    const bool end_or_middle = i == 0 || i == last || i * 2 == last;
    (end_or_middle ? lines.solid : lines.dotted).push_back({{x, 0}, {x, PlotAxes::kHeight}});
  }
}

void AddHorizontalLines(const PlotAxes& axes, GridLines& lines) {
  const auto horizontal = [&](double y) { return Segment{{0, y}, {axes.XExtent(), y}}; };
  if (axes.Visco() == ViscoAxis::Linear) {
    for (int tenth = 0; tenth <= 10; ++tenth)
      (tenth % 5 == 0 ? lines.solid : lines.dotted).push_back(horizontal(tenth * 1000));
    return;
  }
  const int decades = axes.Decades();
  if (decades <= 0) return;
  // Counted from the top. An axis may have a hundred times as many decades as there are numbers for; beyond
  // these it has no lines but those at its ends.
  const int first = std::max(axes.HighestDecade() - kHighestDecade, 0);
  const int last = std::min(axes.HighestDecade() - kLowestDecade, decades);
  for (int decade = first + 1; decade <= last; ++decade) {
    for (int multiple = 2; multiple <= 9; ++multiple) {
      const double from_top = decade - static_cast<double>(Log10(multiple));
      lines.dotted.push_back(horizontal(from_top * PlotAxes::kHeight / decades));
    }
  }
  const auto add_solid = [&](int decade) {
    lines.solid.push_back(horizontal(decade * PlotAxes::kHeight / decades));
  };
  add_solid(0);
  for (int decade = std::max(first, 1); decade <= std::min(last, decades - 1); ++decade) add_solid(decade);
  add_solid(decades);
}

void AddTempTicks(const PlotAxes& axes, GridLines& lines) {
  for (int tenth = 1; tenth <= 9; ++tenth) {
    const double y = tenth * 1000;
    lines.ticks.push_back({{axes.XExtent() - 50, y}, {axes.XExtent(), y}});
  }
}

}  // namespace

platform::Viewport PlotLayout::Picture1Viewport(const platform::PixelRectangle& area) const {
  return {area, {0, 0, std::max(1.0F, scale_width), std::max(1.0F, scale_height)}};
}

platform::PixelRectangle PlotLayout::Picture2Pixels(const platform::PixelRectangle& area) const {
  const platform::Viewport picture1 = Picture1Viewport(area);
  const Frame frame = Picture2();
  const int left = picture1.Column(frame.left);
  const int top = picture1.Row(frame.top);
  return {left, top, picture1.Column(frame.left + frame.width) - left,
          picture1.Row(frame.top + frame.height) - top};
}

GridLines GridLinesOf(const PlotAxes& axes) {
  GridLines lines;
  AddVerticalLines(axes, lines);
  AddHorizontalLines(axes, lines);
  if (axes.Kind() == GraphKind::ViscoTempTime) AddTempTicks(axes, lines);
  return lines;
}

void DrawGrid(DrawingSurface& surface, const PlotAxes& axes, Color grid_color) {
  const GridLines lines = GridLinesOf(axes);
  surface.SetPen({ToRgb(grid_color), 1, LineStyle::kDotted});
  surface.DrawLines(lines.dotted);
  surface.SetPen({ToRgb(grid_color)});
  surface.DrawLines(lines.solid);
  if (!lines.ticks.empty()) surface.DrawLines(lines.ticks);
}

void DrawLegend(DrawingSurface& surface, const PlotLayout& layout, GraphKind kind,
                const QuantityColors& colors, int line_width) {
  if (kind != GraphKind::ViscoTempTime) return;
  const double unit = layout.UnitX;
  const double y = 0.3 * layout.UnitY;
  constexpr double kWidest = 1e6;
  const int scale_width =
      static_cast<int>(std::clamp(std::nearbyint(Bounded(layout.scale_width)), 0.0, kWidest));

  surface.SetPen({ToRgb(colors.visco), 1.0 * line_width});
  surface.DrawLine({0.8 * unit, y}, {1.2 * unit, y});
  const int radius = scale_width / 200;
  surface.DrawCircle({unit, y}, radius);

  const int half = scale_width / 150;
  // A thin pen ends earlier on the device, so its cross is drawn a little longer at one end.
  const double longer = line_width == 2 ? half : std::nearbyint(half * 1.1 + 10);
  surface.SetPen({ToRgb(colors.temp), 1.0 * line_width});
  surface.DrawLine({6.8 * unit, y}, {7.2 * unit, y});
  surface.DrawLine({7 * unit - half, y + half}, {7 * unit + half, y - longer});
  surface.DrawLine({7 * unit - half, y - half}, {7 * unit + half, y + longer});
}

}  // namespace quenlor::graph
