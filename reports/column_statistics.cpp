// SPDX-License-Identifier: MIT
#include "reports/column_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quenlor::reports {
namespace {

// The power of two that the largest value lies below, so that squares of values divided by it are no larger
// than 1. Dividing by it loses nothing.
int ScaleOf(double minimum, double maximum) {
  int exponent = 0;
  std::frexp(std::max(std::fabs(minimum), std::fabs(maximum)), &exponent);
  return exponent;
}

double Bounded(double value) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  return std::clamp(value, -kLargest, kLargest);
}

}  // namespace

std::optional<double> StandardDeviation(WideNumber quotient, RootOf root_of) {
  if (quotient.high < 0) {
    if (root_of == RootOf::kAsItStands) return std::nullopt;
    quotient = -quotient;
  }
  return quotient.high == 0 ? 0 : SquareRoot(quotient);
}

ColumnStatistics StatisticsOf(std::span<const double> values, RootOf root_of) {
  const auto [minimum, maximum] = std::ranges::minmax(values);
  const int scale = ScaleOf(minimum, maximum);
  const auto scaled = [&](double value) { return std::ldexp(value, -scale); };

  // The formula for the standard deviation gives the same for values that are all moved alike. Counted from
  // the first value, little is left to cancel.
  const double origin = scaled(values.front());
  WideNumber sum;
  WideNumber sum_of_squares;
  for (const double value : values) {
    const WideNumber moved = WideDifference(scaled(value), origin);
    sum = sum + moved;
    sum_of_squares = sum_of_squares + moved * moved;
  }

  const WideNumber n{static_cast<double>(values.size())};
  const WideNumber average = WideNumber{origin} + sum / n;
  ColumnStatistics statistics{maximum, minimum, Bounded(std::ldexp(average.high, scale)), std::nullopt};
  if (values.size() > 1) {
    const WideNumber quotient = ((n * sum_of_squares - sum * sum) / n) / (n - WideNumber{1});
    if (const auto deviation = StandardDeviation(quotient, root_of))
      statistics.standard_deviation = Bounded(std::ldexp(*deviation, scale));
  }
  return statistics;
}

}  // namespace quenlor::reports
