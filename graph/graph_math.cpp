// SPDX-License-Identifier: MIT
#include "graph/graph_math.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "data/text_number.h"

namespace quenlor::graph {
namespace {

using Double = std::numeric_limits<double>;

constexpr std::array kMultipliers = {1.0, 2.0, 5.0};

bool Covers(double step, double max, double min) {
  const double highest = StepsIn(max, step);
  const double lowest = StepsIn(min, step);
  return highest <= 100 && lowest >= -100 && std::floor(lowest) + 10 >= highest;
}

}  // namespace

double Round(double x, std::int16_t n) {
  // From here on a double has no digits behind its point.
  constexpr double kAllWhole = 4503599627370496.0;
  if (!std::isfinite(x)) return x;
  const double scale = std::pow(10.0, std::abs(n));
  if (n < 0) return Bounded(std::isinf(scale) ? 0.0 : std::floor(x / scale + 0.5) * scale);
  const double scaled = x * scale;
  return std::fabs(scaled) < kAllWhole ? std::floor(scaled + 0.5) / scale : x;
}

float Log10(double x) { return x > 0 ? static_cast<float>(std::log10(Bounded(x))) : 0.0F; }

float C_XY(double x) {
  constexpr double kLimit = 100000;
  return static_cast<float>(std::clamp(Bounded(x), -kLimit, kLimit));
}

double StepsIn(double value, double step) {
  // Three roundings, in the value, the step and the quotient, and one to spare.
  constexpr double kSlack = 4 * Double::epsilon();
  const double quotient = value / step;
  const double whole = std::nearbyint(quotient);
  return std::fabs(quotient - whole) <= kSlack * std::fabs(whole) ? whole : quotient;
}

StepCycle::StepCycle(double unit) : decade_(unit > 0 && std::isfinite(unit) ? unit : 1.0) {}

double StepCycle::Step() const { return Bounded(decade_ * kMultipliers[multiplier_]); }

void StepCycle::Next() {
  if (++multiplier_ < kMultipliers.size()) return;
  multiplier_ = 0;
  // Through the text, so that six hundred decades gather no rounding.
  decade_ = data::C_Val(data::GeneralText(Bounded(decade_ * 10)));
}

StepCycle NiceSteps(double max, double min, double unit) {
  const double highest = Bounded(max);
  const double lowest = Bounded(min);
  StepCycle steps(unit);
  // Ends: the cycle grows, and one step of the largest double covers everything.
  while (!Covers(steps.Step(), highest, lowest)) steps.Next();
  return steps;
}

double NiceStep(double max, double min, double unit) { return NiceSteps(max, min, unit).Step(); }

}  // namespace quenlor::graph
