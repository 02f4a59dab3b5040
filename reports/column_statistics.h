// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

namespace quenlor::reports {

struct ColumnStatistics {
  double maximum = 0;
  double minimum = 0;
  double average = 0;
  std::optional<double> standard_deviation;  // of the sample; nothing for less than two values
};

// What the root of a standard deviation is taken of. The quotient below it is never negative in exact
// numbers; if it ever were, kAsItStands gives no standard deviation.
enum class RootOf { kAsItStands, kAbsolute };

std::optional<double> StandardDeviation(double quotient, RootOf root_of);

// Statistics of at least one value.
//
//   average            = sum / n
//   standard deviation = sqrt(((n * sum of squares - sum^2) / n) / (n - 1))
//
// The average is what the formula gives in exact numbers, rounded to a double once; the standard deviation is
// two steps of a double from that at most: no digits are lost to an offset that all values share, nor to
// squares that are too large for a double.
ColumnStatistics StatisticsOf(std::span<const double> values, RootOf root_of);

}  // namespace quenlor::reports
