// SPDX-License-Identifier: MIT
#include "graph/axis_limits.h"

#include <cmath>
#include <cstdint>

#include "data/text_number.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

struct Ends {
  Limit min;
  Limit max;
};

Axis AxisOf(Limit limit) { return static_cast<Axis>(static_cast<int>(limit) / 2); }

Ends EndsOf(Axis axis) {
  const int min = static_cast<int>(axis) * 2;
  return {static_cast<Limit>(min), static_cast<Limit>(min + 1)};
}

bool IsMinimum(Limit limit) { return EndsOf(AxisOf(limit)).min == limit; }

// Whether the typed value lies on its side of the opposite limit as that is shown.
bool FitsTheShownOpposite(Limit limit, double value, const AxisView& view, const AxisRanges& ranges) {
  const auto [min, max] = EndsOf(AxisOf(limit));
  if (limit == min) return value < data::C_Val(LimitText(max, ranges, view));
  return data::C_Val(LimitText(min, ranges, view)) < value;
}

// Stores one end unless the range would then span nothing: limits are shown rounded, and what differs in the
// labels may still meet in the ranges.
template <class Number>
bool Store(bool minimum, Number value, Number& min, Number& max) {
  if (minimum ? value >= max : value <= min) return false;
  (minimum ? min : max) = value;
  return true;
}

bool StoreLimit(Limit limit, double value, const AxisView& view, AxisRanges& ranges) {
  const bool minimum = IsMinimum(limit);
  switch (AxisOf(limit)) {
    case Axis::Time:
      return Store(minimum, Bounded(value * SecondsOf(view.time_unit)), ranges.TimeMin, ranges.TimeMax);
    case Axis::Visco:
      if (view.visco_axis == ViscoAxis::Linear)
        return Store(minimum, value, ranges.ViscoMin, ranges.ViscoMax);
      return Store(minimum, static_cast<std::int16_t>(std::nearbyint(Log10(value))), ranges.ViscoLogMin,
                   ranges.ViscoLogMax);
    case Axis::Temp:
      return Store(minimum, value, ranges.TempMin, ranges.TempMax);
  }
  return false;
}

}  // namespace

std::optional<Axis> ApplyLimit(Limit limit, std::string_view text, const AxisView& view, AxisRanges& ranges) {
  const double value = data::C_Val(text);
  if (!FitsTheShownOpposite(limit, value, view, ranges)) return std::nullopt;
  if (!StoreLimit(limit, value, view, ranges)) return std::nullopt;
  return AxisOf(limit);
}

}  // namespace quenlor::graph
