// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <ostream>
#include <vector>

#include "graph/axis_ranges.h"

namespace quenlor::graph {

// What tests of the ranges hand in and look at.

struct Ends {
  double min;
  double max;

  bool operator==(const Ends&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Ends& ends) {
    return out << ends.min << " to " << ends.max;
  }
};

inline std::vector<Ends> EndsOf(const data::AxisRanges& ranges) {
  return {{ranges.TimeMin, ranges.TimeMax},
          {ranges.ViscoMin, ranges.ViscoMax},
          {ranges.TempMin, ranges.TempMax},
          {static_cast<double>(ranges.ViscoLogMin), static_cast<double>(ranges.ViscoLogMax)}};
}

inline DataExtremes TimeExtremes(double last_time) {
  DataExtremes extremes;
  extremes.HasReadings = true;
  extremes.LastTime = last_time;
  return extremes;
}

// Two readings with these viscosities.
inline DataExtremes ViscoExtremes(double min, double max) {
  DataExtremes extremes;
  extremes.HasReadings = true;
  extremes.DataViscoMin = min;
  extremes.DataViscoMax = max;
  extremes.PosViscoMin = min > 0 ? min : std::max(max, 0.0);
  extremes.PosViscoMax = std::max(max, 0.0);
  return extremes;
}

inline DataExtremes TempExtremes(double min, double max) {
  DataExtremes extremes;
  extremes.HasReadings = true;
  extremes.DataTempMin = min;
  extremes.DataTempMax = max;
  return extremes;
}

}  // namespace quenlor::graph
