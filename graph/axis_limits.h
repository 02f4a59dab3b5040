// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "data/axis_ranges.h"
#include "graph/axis_labels.h"

namespace quenlor::graph {

// A limit typed by hand.

enum class Axis { Time, Visco, Temp };

// Takes over a typed limit, read in the unit that the axis shows. On the logarithmic axis the nearest whole
// decade becomes the limit, a half going to the even one.
//
// Returns the axis that is set by hand from now on: its automatic scaling goes off. Nothing, and unchanged
// ranges, for a limit that would leave the minimum not below the maximum, both as the labels show them.
std::optional<Axis> ApplyLimit(Limit limit, std::string_view text, const AxisView& view,
                               data::AxisRanges& ranges);

}  // namespace quenlor::graph
