// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "graph/axis_labels.h"
#include "graph/plot_axes.h"

namespace quenlor::graph {

// A rectangle in twips, from the top left corner of the graph area.
struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

enum class TextSide { kLeft, kCentre, kRight };

// Where a caption stands and to which side of its box its text leans.
struct PlacedLabel {
  Box box;
  TextSide side = TextSide::kCentre;
  bool visible = false;
};

// Where every caption around the plot stands, on the grid of 8 by 13.5 units that the graph area is divided
// into. Arrays are indexed as the captions are; captions that a kind of graph does not have are not visible.
struct LabelLayout {
  std::array<PlacedLabel, 6> Label5;    // range ends
  std::array<PlacedLabel, 7> Label6;    // titles, date, file name, unit, remarks
  std::array<PlacedLabel, 6> Label7;    // time, from 1
  std::array<PlacedLabel, 10> Label8;   // viscosity, from 1
  std::array<PlacedLabel, 10> Label9;   // temperature, from 1
  std::array<PlacedLabel, 11> Label10;  // legend: heading, then runs 1 to 10
  double text_height = 0;               // of all but the legend, in twips
  double legend_text_height = 0;
};

// The layout of a graph area of that size. Letters are as large as the area allows: no text at the axes is
// cut as long as letters of seven pixels fit. Those of the legend depend on the area alone, so that it rests
// while its values change. `text_width` gives a text's width in twips in letters of a given height; where the
// labels of an axis would not fit side by side, only some of them are visible.
LabelLayout LayoutLabels(double width, double height, GraphKind kind, const AxisLabels& labels,
                         const std::function<double(std::string_view text, double text_height)>& text_width);

}  // namespace quenlor::graph
