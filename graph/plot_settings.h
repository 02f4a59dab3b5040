// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>

#include "graph/color_table.h"
#include "graph/plot_axes.h"
#include "graph/value_column.h"

namespace quenlor::graph {

// How the graph is to look, beside the ranges of its axes.
struct PlotSettings {
  GraphKind kind = GraphKind::ViscoTime;
  ViscoAxis visco_axis = ViscoAxis::Linear;
  int LineWidth = 2;    // 1 or 2, of series lines and markers
  int MarkerEvery = 0;  // the item of the "Marker" menu, 0 to 4
  ColorTable colors = kDefaultColors;
  Color BackColor = kWhite;
  Color GridColor = kBlack;
  bool smooth_sparse_runs = false;  // antialiased lines for runs with fewer readings than pixel columns

  bool operator==(const PlotSettings&) const = default;
};

// Half sizes of the markers, in plot units. The cross is tall and narrow, to tell it from the circle.
struct MarkerSizes {
  double circle = 50;  // looks round, whatever the units are
  double cross_across = 40;
  double cross_down = 80;
};

// The same where a plot unit is so long across and down.
inline MarkerSizes MarkersOn(double unit_across, double unit_down) {
  const MarkerSizes sizes;
  return {sizes.circle * std::sqrt(unit_across * unit_down), sizes.cross_across * unit_across,
          sizes.cross_down * unit_down};
}

// From one marker of a series to the next: 1, 2, 5 or 10 points for the items of that name. 0, for the first
// item and whatever is no item: only the first point of a series has a marker.
inline Index MarkerStep(int marker_every) {
  constexpr std::array<Index, 5> kSteps = {0, 1, 2, 5, 10};
  return marker_every >= 0 && marker_every < 5 ? kSteps[static_cast<std::size_t>(marker_every)] : 0;
}

// Whether the point so far from its series' first one, which is 0, has a marker. The place stands for
// MarkerCounter, which counts from marker to marker: it is known without walking there.
inline bool HasMarker(int marker_every, Index place) {
  const Index step = MarkerStep(marker_every);
  return step == 0 ? place == 0 : place % step == 0;
}

// Whether one of the points from that place up to, not including, `end` has a marker.
inline bool AnyMarker(int marker_every, Index place, Index end) {
  const Index step = MarkerStep(marker_every);
  if (step == 0) return place <= 0;
  return place + (step - place % step) % step < end;
}

}  // namespace quenlor::graph
