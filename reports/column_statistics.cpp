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

// A sum that keeps what each addition drops.
class Sum {
 public:
  void Add(double value) {
    const double sum = sum_ + value;
    const double taken = sum - sum_;
    dropped_ += (sum_ - (sum - taken)) + (value - taken);
    sum_ = sum;
  }
  void AddSquareOf(double value) {
    const double square = value * value;
    Add(square);
    dropped_ += std::fma(value, value, -square);
  }

  double Total() const { return sum_ + dropped_; }
  double DividedBy(double n) const {
    const double quotient = sum_ / n;
    const double rest = std::fma(-quotient, n, sum_) + dropped_;
    return quotient + rest / n;
  }

 private:
  double sum_ = 0;
  double dropped_ = 0;
};

}  // namespace

std::optional<double> StandardDeviation(double quotient, RootOf root_of) {
  if (quotient < 0 && root_of == RootOf::kAsItStands) return std::nullopt;
  return std::sqrt(std::fabs(quotient));
}

ColumnStatistics StatisticsOf(std::span<const double> values, RootOf root_of) {
  const auto [minimum, maximum] = std::ranges::minmax(values);
  const int scale = ScaleOf(minimum, maximum);
  const auto scaled = [&](double value) { return std::ldexp(value, -scale); };

  const auto n = static_cast<double>(values.size());
  Sum sum;
  for (const double value : values) sum.Add(scaled(value));
  const double average = sum.DividedBy(n);
  ColumnStatistics statistics{maximum, minimum, Bounded(std::ldexp(average, scale)), std::nullopt};
  if (values.size() < 2) return statistics;

  // The formula gives the same for values that are all moved alike. Counted from the average, nothing is left
  // to cancel but what the average lost when it was rounded.
  Sum moved;
  Sum squares;
  for (const double value : values) {
    moved.Add(scaled(value) - average);
    squares.AddSquareOf(scaled(value) - average);
  }
  const double quotient = (squares.Total() - moved.Total() * moved.Total() / n) / (n - 1);
  if (const auto deviation = StandardDeviation(quotient, root_of))
    statistics.standard_deviation = Bounded(std::ldexp(*deviation, scale));
  return statistics;
}

}  // namespace quenlor::reports
