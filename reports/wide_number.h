// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace quenlor::reports {

// A number of some 32 digits: the sum of two doubles, `high` being the double next to it.
//
// For sums whose digits cancel: what a double drops is kept in `low`. Products are exact but for the last
// digits as long as they stay within the range of a double.
struct WideNumber {
  double high = 0;
  double low = 0;
};

// a + b and a - b without any loss.
inline WideNumber WideSum(double a, double b) {
  const double sum = a + b;
  const double b_taken = sum - a;
  return {sum, (a - (sum - b_taken)) + (b - b_taken)};
}
inline WideNumber WideDifference(double a, double b) { return WideSum(a, -b); }

inline WideNumber operator+(WideNumber a, WideNumber b) {
  const WideNumber high = WideSum(a.high, b.high);
  const WideNumber low = WideSum(a.low, b.low);
  const WideNumber sum = WideSum(high.high, high.low + low.high);
  return WideSum(sum.high, sum.low + low.low);
}

inline WideNumber operator-(WideNumber a) { return {-a.high, -a.low}; }
inline WideNumber operator-(WideNumber a, WideNumber b) { return a + -b; }

inline WideNumber operator*(WideNumber a, WideNumber b) {
  const double product = a.high * b.high;
  return WideSum(product, std::fma(a.high, b.high, -product) + (a.high * b.low + a.low * b.high));
}

inline WideNumber operator/(WideNumber a, WideNumber b) {
  const double first = a.high / b.high;
  const WideNumber rest = a - b * WideNumber{first};
  const double second = rest.high / b.high;
  const double third = (rest - b * WideNumber{second}).high / b.high;
  return WideSum(first, second) + WideNumber{third};
}

// The square root of a positive number, as a double.
inline double SquareRoot(WideNumber square) {
  const double root = std::sqrt(square.high);
  const double rest = std::fma(-root, root, square.high) + square.low;
  return root + rest / (2 * root);
}

}  // namespace quenlor::reports
