// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "graph/captions.h"
#include "graph/color_table.h"
#include "graph/fit_text.h"
#include "graph/label_layout.h"
#include "graph/plot_settings.h"

namespace quenlor::reports {

// The page divided like the graph on screen: 8 by 13.5 units, the plot from 1 to 7 of them across and from 1
// to 11 down. All in twips.
struct PageGrid {
  double width = 0;
  double height = 0;

  double UnitX() const { return width / 8; }
  double UnitY() const { return height / 13.5; }
  double Left() const { return UnitX(); }
  double Right() const { return 7 * UnitX(); }
  double Top() const { return UnitY(); }
  double Bottom() const { return 11 * UnitY(); }

  // Letters of 10.5 points on A4, larger and smaller with the page, whichever way it is turned; four lines
  // stand above the plot.
  double TextHeight() const;
  double Line() const;      // a line of them with the room around it
  double TitleRow() const;  // the middle of the axis titles above the plot, and of the curves' samples
};

// One caption of the page.
struct PageLabel {
  std::string text;  // as the window has it
  graph::Box box;
  graph::TextSide side = graph::TextSide::kCentre;
  graph::Color color = graph::kBlack;
  bool visible = false;
  double text_height = 0;
  std::vector<std::string> lines;  // what is set of the text, each line in an equal part of the box
  double bar = 0;                  // how much of its top a bar in the colour takes

  void Move(const graph::Box& to) { box = to; }
};

// The captions by the page's own names; the elements have the indices of the window's captions.
struct PageLabels {
  std::array<PageLabel, 6> Label1;   // range ends
  std::array<PageLabel, 7> Label2;   // titles, date, file name, time unit, remarks
  std::array<PageLabel, 6> Label3;   // time scale, from 1
  std::array<PageLabel, 10> Label4;  // left scale, viscosity, from 1
  std::array<PageLabel, 10> Label5;  // right scale, temperature, from 1
  std::array<PageLabel, 11> Label6;  // legend: heading, then runs 1 to 10

  // In the colours of the runs: entries 1 to 9, and 0 for run 10.
  explicit PageLabels(const graph::ColorTable& colors);

  void ForEach(const std::function<void(const PageLabel&)>& visit) const;
};

using graph::TextMeasure;

// Every caption at its place, for that kind of graph. No visible one leaves the page or touches another. A
// text that is too long for its place is set in smaller letters, down to two thirds of the others; what is
// still too long ends with "…". Scale numbers that would not stand clear of each other are not shown.
// `measure` tells how wide a text is, in twips, in letters of a height.
PageLabels PlaceLabels(const PageGrid& grid, const graph::Captions& captions,
                       const graph::PlotSettings& settings, const TextMeasure& measure);

}  // namespace quenlor::reports
