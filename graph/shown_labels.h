// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "graph/axis_labels.h"

namespace quenlor::graph {

// Which inner labels of an axis are shown where not all of them have room, on the screen and on paper. The
// labels at its ends always are.

// Of an axis of equal divisions: every how manyth. A label needs a length of `needed`, a division has one of
// `division`. As many as the divisions mean none.
int LabelStride(double needed, double division, int divisions);

// Of an axis with labels at any places, from the lower end up: those that stand at least so far from the last
// one shown and from both ends. The distance is a part of the axis's length.
std::array<bool, 10> LabelsApart(const std::array<TickLabel, 10>& labels, double least_distance);

}  // namespace quenlor::graph
