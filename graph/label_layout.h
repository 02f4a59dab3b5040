// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <vector>

#include "graph/captions.h"
#include "graph/fit_text.h"
#include "graph/plot_axes.h"

namespace quenlor::graph {

// A rectangle in twips, from the top left corner of the graph area.
struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Box&) const = default;
};

enum class TextSide { kLeft, kCentre, kRight };

// Where a caption stands, to which side of its box its text leans, and what is shown of it.
struct PlacedLabel {
  Box box;
  TextSide side = TextSide::kCentre;
  bool visible = false;
  double text_height = 0;          // in twips
  std::vector<std::string> lines;  // below the bar
  bool whole = true;               // nothing is cut off the text
  double bar = 0;                  // how high the bar in the run's colour is, at the top of the box
  bool operator==(const PlacedLabel&) const = default;
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
  double text_height = 0;               // of most texts, in twips
};

// Letters of a picture that is no part of a window, at most.
inline constexpr double kLargestText = 24 * platform::kTwipsPerPixel;

// The layout of a graph area of that size. Letters are as large as the area allows, up to `largest_text`
// twips, and small enough for the numbers at the axes; the legend is divided as LegendPlan says. A title
// takes what room the file name and the date leave it before it is cut, and a number is never shown in part.
// Legend and remarks that a low graph has no room for are not visible. `text_width` gives a text's width in
// twips as it will be drawn; where the labels of an axis would not fit side by side, only some of them are
// visible.
LabelLayout LayoutLabels(double width, double height, GraphKind kind, const Captions& captions,
                         const TextMeasure& text_width, double largest_text = kLargestText);

}  // namespace quenlor::graph
