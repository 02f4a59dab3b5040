// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "data/document.h"
#include "graph/axis_labels.h"
#include "graph/live_graph.h"

namespace quenlor::graph {

// The texts around the plot, by the names and indices of the window's captions. The same texts stand on the
// screen, in a picture of the graph, and on the printed page.
struct Captions : AxisLabels {  // Label5, Label7, Label8, Label9
  // 0 time axis title, 1 left axis title, 2 temperature axis title, 3 date, 4 file name, 5 time unit,
  // 6 remarks.
  std::array<std::string, 7> Label6;
  // The legend: 0 its heading, 1 to 10 the runs of these numbers, two lines each, divided by a carriage
  // return. Empty where there are no such runs.
  std::array<std::string, 11> Label10;
};

Captions CaptionsOf(const data::Document& document, const LiveGraph& graph);

}  // namespace quenlor::graph
