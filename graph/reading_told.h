// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "data/document.h"
#include "graph/axis_labels.h"
#include "graph/plot_axes.h"
#include "graph/value_arrays.h"

namespace quenlor::graph {

// Readings and runs in words, line by line, for the plates and tips of the window.

// What is told of a reading, line by line: run and sample name, time, viscosity and temperature as the table
// shows them with their units, and the run's date.
std::vector<std::string> ReadingTold(const data::Document& document, const ValueArrays& values, Index index);

// What is told of the runs of that number: the whole sample name, how many readings they have, and the first
// and the last of them, one a line. Empty where there is no reading.
std::string RunTold(const data::Document& document, const ValueArrays& values, int number);

// What lies between two readings: time, viscosity, temperature, and how fast the viscosity changes in the
// unit of the lower axis. `a` and `b` are told in the order of marking.
std::vector<std::string> BetweenTold(const ValueArrays& values, Index a, Index b, const AxisView& view,
                                     GraphKind kind);

}  // namespace quenlor::graph
