// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "data/axis_ranges.h"
#include "graph/axis_labels.h"
#include "graph/axis_limits.h"
#include "graph/plot_axes.h"

namespace quenlor::graph {

// What a hand on the plot wants to see, as limits that it might have typed.

// A place of the plot, in parts of its axes: 0 at the left or lower end, 1 at the other; also beyond them.
struct PlotPlace {
  double across = 0;
  double up = 0;
};

// A part of an axis, in the same measure.
struct AxisPart {
  Axis axis;
  double from = 0;
  double to = 1;
};
using AxisParts = std::vector<AxisPart>;

// Which axes a hand may mean.
enum class Along { Both, Across, Up };

bool RunsAcross(Axis axis, GraphKind kind);
std::vector<Axis> AxesAlong(Along along, GraphKind kind);

// The axes that a wheel at that place zooms: in the plot those of `along`, at an axis's numbers that axis,
// elsewhere none.
std::vector<Axis> AxesAt(PlotPlace place, Along along, GraphKind kind);

// The parts that are in view when the axes show `factor` times as much, and what is at `place` stays there.
AxisParts ZoomedAt(PlotPlace place, const std::vector<Axis>& axes, double factor, GraphKind kind);

// The parts in view when the plot has been shoved so far to the right and up.
AxisParts Shoved(PlotPlace by, GraphKind kind);

// The parts between two corners. A direction in which they are closer than `smallest` stays as it is.
AxisParts Between(PlotPlace one, PlotPlace other, PlotPlace smallest, GraphKind kind);

// The ranges in which those parts are the whole axes, as if their limits had been typed: rounded to what a
// pixel tells, in whole decades on a logarithmic axis, and an axis stays as it is where a limit would be
// refused. `moved` gets the axes that have become others.
enum class Decades { Nearest, Around };  // Around: no part of the wanted stretch is left out
data::AxisRanges Showing(const AxisParts& parts, const data::AxisRanges& ranges, const AxisView& view,
                         Decades decades, std::vector<Axis>& moved);

// A logarithmic viscosity axis with so many decades more, at least one in all, what is at `up` staying there.
data::AxisRanges WithDecadesMore(int more, double up, const data::AxisRanges& ranges, const AxisView& view,
                                 std::vector<Axis>& moved);

}  // namespace quenlor::graph
