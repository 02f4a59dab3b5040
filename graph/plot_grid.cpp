// SPDX-License-Identifier: MIT
#include "graph/plot_grid.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::LineStyle;
using platform::Pen;
using platform::Segment;

class GridPen {
 public:
  GridPen(DrawingSurface& surface, Color color) : surface_(surface), pen_{ToRgb(color)} {}

  void Draw(const std::vector<Segment>& lines, LineStyle style) {
    pen_.style = style;
    surface_.SetPen(pen_);
    surface_.DrawLines(lines);
  }

 private:
  DrawingSurface& surface_;
  Pen pen_;
};

Segment Vertical(double x) { return {{x, 0}, {x, PlotAxes::kHeight}}; }

void DrawVerticalLines(GridPen& pen, const PlotAxes& axes) {
  constexpr double kDistance = 1000;
  std::vector<Segment> solid;
  std::vector<Segment> dotted;
  const int last = static_cast<int>(axes.XExtent() / kDistance);
  for (int i = 0; i <= last; ++i) {
    const double x = i * kDistance;
    const bool end_or_middle = i == 0 || i == last || i * 2 == last;
    (end_or_middle ? solid : dotted).push_back(Vertical(x));
  }
  pen.Draw(dotted, LineStyle::kDotted);
  pen.Draw(solid, LineStyle::kSolid);
}

void DrawHorizontalLines(GridPen& pen, const PlotAxes& axes) {
  const auto horizontal = [&](double y) { return Segment{{0, y}, {axes.XExtent(), y}}; };
  std::vector<Segment> solid;
  std::vector<Segment> dotted;
  if (axes.Visco() == ViscoAxis::Log) {
    const int decades = axes.Decades();
    for (int decade = 1; decade <= decades; ++decade) {
      for (int multiple = 2; multiple <= 9; ++multiple) {
        const double from_top = decade - static_cast<double>(Log10(multiple));
        dotted.push_back(horizontal(from_top * PlotAxes::kHeight / decades));
      }
    }
    for (int decade = 0; decades > 0 && decade <= decades; ++decade) {
      solid.push_back(horizontal(decade * PlotAxes::kHeight / decades));
    }
  } else {
    for (int tenth = 0; tenth <= 10; ++tenth) {
      (tenth % 5 == 0 ? solid : dotted).push_back(horizontal(tenth * 1000));
    }
  }
  pen.Draw(dotted, LineStyle::kDotted);
  pen.Draw(solid, LineStyle::kSolid);
}

void DrawTempTicks(GridPen& pen, const PlotAxes& axes) {
  std::vector<Segment> ticks;
  for (int tenth = 1; tenth <= 9; ++tenth) {
    const double y = tenth * 1000;
    ticks.push_back({{axes.XExtent() - 50, y}, {axes.XExtent(), y}});
  }
  pen.Draw(ticks, LineStyle::kSolid);
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

void DrawGrid(DrawingSurface& surface, const PlotAxes& axes, Color grid_color) {
  GridPen pen(surface, grid_color);
  DrawVerticalLines(pen, axes);
  DrawHorizontalLines(pen, axes);
  if (axes.Kind() == GraphKind::ViscoTempTime) DrawTempTicks(pen, axes);
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
