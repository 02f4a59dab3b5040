// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "graph/color_table.h"
#include "graph/plot_axes.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

constexpr platform::Rgb ToRgb(Color color) { return {color.Red(), color.Green(), color.Blue()}; }

// A rectangle in the units of what it lies in.
struct Frame {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

// How the graph area (Picture1, its scale sizes in twips) is divided.
struct PlotLayout {
  float scale_width = 0;
  float scale_height = 0;
  float UnitX = 0;
  float UnitY = 0;

  PlotLayout(float picture1_width, float picture1_height)
      : scale_width(picture1_width),
        scale_height(picture1_height),
        UnitX(picture1_width / 8),
        UnitY(picture1_height / 13.5F) {}

  // Where the plot (Picture2) lies in Picture1.
  Frame Picture2() const { return {0.9 * UnitX, 0.9 * UnitY, 6.2 * UnitX, 10.2 * UnitY}; }
  // The same in device pixels, for a Picture1 that fills `area`.
  platform::PixelRectangle Picture2Pixels(const platform::PixelRectangle& area) const;
  // Picture1's twips laid over its pixels.
  platform::Viewport Picture1Viewport(const platform::PixelRectangle& area) const;
};

// The lines of the grid, and with two curves the ticks of the temperature axis, in plot units. A logarithmic
// axis without a decade has no horizontal lines; one that reaches beyond all numbers has none there.
struct GridLines {
  std::vector<platform::Segment> dotted;
  std::vector<platform::Segment> solid;
  std::vector<platform::Segment> ticks;
};
GridLines GridLinesOf(const PlotAxes& axes);

// All of them, on the viewport of Picture2.
void DrawGrid(platform::DrawingSurface& surface, const PlotAxes& axes, Color grid_color);

// The sample of each of the two curves, on the viewport of Picture1. Nothing for the graphs with one curve.
void DrawLegend(platform::DrawingSurface& surface, const PlotLayout& layout, GraphKind kind,
                const QuantityColors& colors, int line_width);

}  // namespace quenlor::graph
