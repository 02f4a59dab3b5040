// SPDX-License-Identifier: MIT
#include "graph/view_moves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "data/text_number.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

constexpr double kMargin = 0.01;        // of the plot, around its axes
constexpr double kNumbersBelow = 0.12;  // how far below the plot the numbers of an axis reach

bool Within(double part, double margin = 0) { return part >= -margin && part <= 1 + margin; }

std::pair<double, double> EndsOf(Axis axis, const AxisRanges& ranges) {
  if (axis == Axis::Time) return {ranges.TimeMin, ranges.TimeMax};
  if (axis == Axis::Temp) return {ranges.TempMin, ranges.TempMax};
  return {ranges.ViscoMin, ranges.ViscoMax};
}

// Types both limits of an axis, first the one that makes room for the other; false, and nothing has changed,
// when one is refused or both are there already.
bool Type(Axis axis, double min, double max, const AxisView& view, AxisRanges& ranges) {
  if (!std::isfinite(min) || !std::isfinite(max)) return false;
  const auto lower = static_cast<Limit>(2 * static_cast<int>(axis));
  const auto upper = static_cast<Limit>(2 * static_cast<int>(axis) + 1);
  std::array typed = {std::pair{lower, data::GeneralText(min)}, std::pair{upper, data::GeneralText(max)}};
  const bool lower_first = min < data::C_Val(LimitText(upper, ranges, view));
  if (!lower_first) std::swap(typed[0], typed[1]);
  AxisRanges taken = ranges;
  for (const auto& [limit, text] : typed) {
    if (!ApplyLimit(limit, text, view, taken)) return false;
  }
  // Numbers that look the same say nothing about what lies between them.
  if (data::C_Val(LimitText(lower, taken, view)) >= data::C_Val(LimitText(upper, taken, view))) return false;
  const bool log = axis == Axis::Visco && view.visco_axis == ViscoAxis::Log;
  const bool same = log ? taken.ViscoLogMin == ranges.ViscoLogMin && taken.ViscoLogMax == ranges.ViscoLogMax
                        : EndsOf(axis, taken) == EndsOf(axis, ranges);
  ranges = taken;
  return !same;
}

// Numbers that differ by less than a thousandth of the range stand on one pixel.
bool TypeRounded(Axis axis, double min, double max, const AxisView& view, AxisRanges& ranges) {
  const double decade = std::floor(std::log10(max - min));
  if (!std::isfinite(decade)) return false;
  const int digits = static_cast<int>(decade) - 3;
  const double unit = std::pow(10.0, std::abs(digits));
  if (!std::isfinite(unit)) return false;
  const auto rounded = [&](double value) {
    return digits < 0 ? std::nearbyint(value * unit) / unit : std::nearbyint(value / unit) * unit;
  };
  return Type(axis, rounded(min), rounded(max), view, ranges);
}

bool TypeDecades(int min, int max, const AxisView& view, AxisRanges& ranges) {
  const auto value = [](int decade) { return std::pow(10.0, decade); };
  if (min < kLowestDecade || max > kHighestDecade) return false;
  return Type(Axis::Visco, value(min), value(max), view, ranges);
}

bool ShowPart(const AxisPart& part, const AxisView& view, Decades decades, AxisRanges& ranges) {
  if (part.axis == Axis::Visco && view.visco_axis == ViscoAxis::Log) {
    constexpr double kSlack = 1e-9;  // of a decade: an end that is meant is met
    const double count = ranges.ViscoLogMax - ranges.ViscoLogMin;
    const double from = part.from * count;
    const double to = part.to * count;
    const bool around = decades == Decades::Around;
    const double lower = around ? std::floor(from + kSlack) : std::nearbyint(from);
    // What is shoved stays as long as it is.
    const double upper = around ? std::ceil(to - kSlack) : lower + std::nearbyint(to - from);
    if (std::max(std::fabs(lower), std::fabs(upper)) > INT16_MAX) return false;
    return TypeDecades(ranges.ViscoLogMin + static_cast<int>(lower),
                       ranges.ViscoLogMin + static_cast<int>(upper), view, ranges);
  }
  const auto [min, max] = EndsOf(part.axis, ranges);
  const double unit = part.axis == Axis::Time ? SecondsOf(view.time_unit) : 1;
  const double length = max - min;
  return TypeRounded(part.axis, (min + part.from * length) / unit, (min + part.to * length) / unit, view,
                     ranges);
}

}  // namespace

bool RunsAcross(Axis axis, GraphKind kind) {
  return axis == (kind == GraphKind::ViscoTemp ? Axis::Temp : Axis::Time);
}

std::vector<Axis> AxesAlong(Along along, GraphKind kind) {
  std::vector<Axis> axes;
  if (along != Along::Up) axes.push_back(kind == GraphKind::ViscoTemp ? Axis::Temp : Axis::Time);
  if (along == Along::Across) return axes;
  axes.push_back(Axis::Visco);
  if (kind == GraphKind::ViscoTempTime) axes.push_back(Axis::Temp);
  return axes;
}

std::vector<Axis> AxesAt(PlotPlace place, Along along, GraphKind kind) {
  if (Within(place.across, kMargin) && Within(place.up, kMargin)) return AxesAlong(along, kind);
  if (Within(place.across)) {
    return place.up < 0 && place.up > -kNumbersBelow ? AxesAlong(Along::Across, kind) : std::vector<Axis>{};
  }
  if (!Within(place.up)) return {};
  if (place.across < 0) return {Axis::Visco};
  return kind == GraphKind::ViscoTempTime ? std::vector{Axis::Temp} : std::vector<Axis>{};
}

AxisParts ZoomedAt(PlotPlace place, const std::vector<Axis>& axes, double factor, GraphKind kind) {
  AxisParts parts;
  for (const Axis axis : axes) {
    const double at = RunsAcross(axis, kind) ? place.across : place.up;
    parts.push_back({axis, at - at * factor, at + (1 - at) * factor});
  }
  return parts;
}

AxisParts Shoved(PlotPlace by, GraphKind kind) {
  AxisParts parts;
  for (const Axis axis : AxesAlong(Along::Both, kind)) {
    const double way = RunsAcross(axis, kind) ? by.across : by.up;
    if (way != 0) parts.push_back({axis, -way, 1 - way});
  }
  return parts;
}

AxisParts Between(PlotPlace one, PlotPlace other, PlotPlace smallest, GraphKind kind) {
  AxisParts parts;
  for (const Axis axis : AxesAlong(Along::Both, kind)) {
    const bool across = RunsAcross(axis, kind);
    const auto [from, to] =
        across ? std::minmax({one.across, other.across}) : std::minmax({one.up, other.up});
    if (to - from >= (across ? smallest.across : smallest.up))
      parts.push_back({axis, std::clamp(from, 0.0, 1.0), std::clamp(to, 0.0, 1.0)});
  }
  return parts;
}

AxisRanges Showing(const AxisParts& parts, const AxisRanges& ranges, const AxisView& view, Decades decades,
                   std::vector<Axis>& moved) {
  AxisRanges shown = ranges;
  for (const AxisPart& part : parts) {
    if (ShowPart(part, view, decades, shown)) moved.push_back(part.axis);
  }
  return shown;
}

AxisRanges WithDecadesMore(int more, double up, const AxisRanges& ranges, const AxisView& view,
                           std::vector<Axis>& moved) {
  const int before = ranges.ViscoLogMax - ranges.ViscoLogMin;
  const int count = std::max(1, before + more);
  const int lower =
      ranges.ViscoLogMin - static_cast<int>(std::lround(std::clamp(up, 0.0, 1.0) * (count - before)));
  AxisRanges shown = ranges;
  if (TypeDecades(lower, lower + count, view, shown)) moved.push_back(Axis::Visco);
  return shown;
}

}  // namespace quenlor::graph
