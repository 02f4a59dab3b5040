// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "graph/plot_axes.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Draws the curves of all runs for a device that keeps lines. As in a picture of pixels a newer reading lies
// over an older one, and of one reading the temperature over the viscosity. `plot` lays plot units over a
// rectangle of the device, where lines end; a marker is whole or, where its reading lies outside, not there.
//
// `runs` says where the curves of `values` begin and end. Readings stand on whole dots, each of them `dot`
// device pixels wide. Everything that can be told apart on these is drawn, and hardly anything else, so that
// ten million readings make a page of some ten thousand lines: see where it is left out.
void DrawCurveLines(platform::DrawingSurface& surface, const platform::Viewport& plot, int dot,
                    const ValueArrays& values, const std::vector<ValueArrays::Run>& runs,
                    const PlotSettings& settings, const PlotAxes& axes);

}  // namespace quenlor::graph
