// SPDX-License-Identifier: MIT
#pragma once

#include "data/axis_ranges.h"
#include "graph/captions.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "platform/drawing_surface.h"

namespace quenlor::reports {

// What the report shows, as the window has it at that moment.
struct ReportContent {
  const graph::Captions& captions;
  const graph::ValueArrays& values;
  graph::PlotSettings settings;
  data::AxisRanges ranges;
};

// Lays the report out and draws it on the whole surface: the graph with its axes, the header and the legend,
// on white paper. The surface is fine (1200 dots an inch on paper); the page carries what can be told apart
// there, however many readings there are.
void Draw(platform::DrawingSurface& surface, const ReportContent& content);

}  // namespace quenlor::reports
