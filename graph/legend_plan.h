// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "graph/fit_text.h"

namespace quenlor::graph {

// How a legend is divided, on the screen, in pictures and on paper.

// A run of the legend: its name, and below it the newest value.
struct LegendEntry {
  std::string name;
  std::string value;

  explicit LegendEntry(std::string_view caption);  // two lines, divided by a carriage return
};

// What a legend has room for. All lengths have the unit that texts are measured in.
struct LegendRoom {
  double width = 0;
  double gap = 0;            // between two entries, as a part of the letters' height
  double usual_column = 0;   // of short texts, where there is room for it
  double text_height = 0;    // letters as they are to be, if they fit
  double smallest_name = 0;  // letters in which a name that is still too long is rather cut
  double smallest = 0;       // and those for values
};

// The heading, and beside it the runs row by row in columns, all with half of the gap on either side.
struct LegendPlan {
  int rows = 1;
  double heading = 0;           // how wide its place is
  std::vector<double> columns;  // how wide they are
  double gap = 0;
  double text_height = 0;
  bool complete = true;  // no text is cut

  double Width() const;
};

// A divided legend rests while digits change: it depends on how long values are, not on what they say.
// Columns are equal while all have room so; a longer text takes first what shorter ones beside it leave free,
// then letters shrink. A name gives way to the values.
LegendPlan PlanLegend(const LegendEntry& heading, std::span<const LegendEntry> runs, int rows,
                      const LegendRoom& room, const TextMeasure& text_width);

}  // namespace quenlor::graph
