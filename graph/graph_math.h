// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "data/text_number.h"

namespace quenlor::graph {

// The arithmetic that the ranges, the labels and the drawing of the graph share.
//
// Every function takes every double, also infinities and NaN, and gives a finite number for a finite one.

using data::Bounded;

// x to n decimals (n < 0: to tens, hundreds …); halves go towards plus infinity, so -2.5 becomes -2.
// A number that has no digits left to round, and one that is not finite, comes back as it is.
double Round(double x, std::int16_t n);

// The common logarithm, exact at whole decades; 0 where there is none (zero, negative numbers, NaN).
float Log10(double x);

// The powers of ten that a double holds: 10 to the power of kLowestDecade, and so on.
inline constexpr int kLowestDecade = -323;
inline constexpr int kHighestDecade = 308;

// A plot coordinate held within what drawing surfaces bear: -100000 to 100000, NaN as 0.
float C_XY(double x);

// value / step. A quotient that misses a whole number only by the rounding of its two decimal numbers is that
// number: 0.3 is three steps of 0.1, which a plain division puts just below.
double StepsIn(double value, double step);

// The steps an axis may have: unit times 1, 2, 5, 10, 20, 50 and so on. It ends at the largest double and
// stays there. A unit that is not a positive finite number counts as 1.
class StepCycle {
 public:
  explicit StepCycle(double unit);

  double Step() const;
  void Next();

 private:
  double decade_;
  std::size_t multiplier_ = 0;
};

// The cycle from `unit` on, standing at the first step such that no value is farther than 100 steps from zero
// and ten steps from the multiple at or below `min` reach `max`.
StepCycle NiceSteps(double max, double min, double unit);

// That step itself.
double NiceStep(double max, double min, double unit);

}  // namespace quenlor::graph
