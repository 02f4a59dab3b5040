// SPDX-License-Identifier: MIT
#pragma once

#include "data/axis_ranges.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "platform/drawing_surface.h"

namespace quenlor::reports {

// Half sizes of the markers on a plot of that size, in its unit of length: the same parts of it as on the
// screen. The cross is tall and narrow, to tell it from the circle.
struct MarkerSizes {
  double circle = 0;
  double cross_across = 0;
  double cross_down = 0;
};
MarkerSizes MarkersOn(double plot_width, double plot_height, graph::GraphKind kind);

// Draws the curves of all runs on the plot, a rectangle of the device's dots: each run's viscosity and, with
// both curves, its temperature over it, a later run over an earlier one. Lines end at the plot's edges; a
// marker is whole or, where its reading lies outside, not there.
//
// Everything that can be told apart on the device is drawn, and hardly anything else, so that ten million
// readings make a page of some ten thousand lines: see where it is left out.
void DrawCurves(platform::DrawingSurface& surface, const platform::PixelRectangle& plot,
                const graph::ValueArrays& values, const graph::PlotSettings& settings,
                const data::AxisRanges& ranges);

}  // namespace quenlor::reports
