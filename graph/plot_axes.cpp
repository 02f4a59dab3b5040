// SPDX-License-Identifier: MIT
#include "graph/plot_axes.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

// Plot units per unit of a range, `scale` itself where the range spans nothing. Halves keep a range from one
// end of the numbers to the other finite; Bounded does it for one that is almost nothing.
double ScaleOf(double extent, double min, double max, double scale) {
  const double half = max / 2 - min / 2;
  return half < 0 || half > 0 ? Bounded(extent / 2 / half) : scale;
}

// In plot units from the origin. Two numbers so far apart that no double holds their distance are scaled one
// by one.
double Position(double value, double origin, double scale) {
  const double distance = value - origin;
  return std::isinf(distance) ? value * scale - origin * scale : distance * scale;
}

double Height(double position) { return PlotAxes::kHeight - C_XY(position); }

}  // namespace

void PlotAxes::SetScales(const data::AxisRanges& ranges, GraphKind kind, ViscoAxis visco_axis) {
  ranges_ = ranges;
  kind_ = kind;
  visco_axis_ = visco_axis;
  const bool over_temp = kind == GraphKind::ViscoTemp;
  XOrigin_ = over_temp ? ranges.TempMin : ranges.TimeMin;
  XScale_ = ScaleOf(XExtent(), XOrigin_, over_temp ? ranges.TempMax : ranges.TimeMax, XScale_);
  ViscoScale_ = ScaleOf(kHeight, ranges.ViscoMin, ranges.ViscoMax, ViscoScale_);
  TempScale_ = ScaleOf(kHeight, ranges.TempMin, ranges.TempMax, TempScale_);
  LogScale_ = ScaleOf(kHeight, ranges.ViscoLogMin, ranges.ViscoLogMax, LogScale_);
}

platform::Units PlotAxes::PlotUnits() const {
  const double margin = XExtent() / 100;
  return {-margin, -kHeight / 100, XExtent() + 2 * margin, kHeight * 1.02};
}

bool PlotAxes::ShowsVisco() const {
  return visco_axis_ == ViscoAxis::Log ? ranges_.ViscoLogMin < ranges_.ViscoLogMax
                                       : ranges_.ViscoMin < ranges_.ViscoMax;
}

bool PlotAxes::ShowsTemp() const {
  return kind_ == GraphKind::ViscoTempTime && ranges_.TempMin != ranges_.TempMax;
}

double PlotAxes::ViscoY(double value) const {
  if (visco_axis_ == ViscoAxis::Log) return LogY(Log10(value));
  return Height(Position(value, ranges_.ViscoMin, ViscoScale_));
}

double PlotAxes::TempY(double value) const { return Height(Position(value, ranges_.TempMin, TempScale_)); }

double PlotAxes::FarX(double value) const { return C_XY(Position(value, XOrigin_, XScale_)); }

PlotAxes::Span PlotAxes::ViscoSpan(const ValueColumn::Extremes& extremes) const {
  if (visco_axis_ == ViscoAxis::Linear) return {ViscoY(extremes.min), ViscoY(extremes.max)};
  // What is not positive stands at decade 0, between the values or beside them.
  float lowest = Log10(extremes.positive_min);
  float highest = Log10(extremes.max);
  if (extremes.max <= 0) lowest = highest = 0;
  if (extremes.min <= 0) {
    lowest = std::min(lowest, 0.0F);
    highest = std::max(highest, 0.0F);
  }
  return {LogY(lowest), LogY(highest)};
}

PlotAxes::Span PlotAxes::TempSpan(const ValueColumn::Extremes& extremes) const {
  return {TempY(extremes.min), TempY(extremes.max)};
}

bool PlotAxes::operator==(const PlotAxes& other) const {
  const auto state = [](const PlotAxes& axes) {
    const data::AxisRanges& r = axes.ranges_;
    return std::make_tuple(axes.kind_, axes.visco_axis_, axes.XScale_, axes.ViscoScale_, axes.TempScale_,
                           axes.LogScale_, r.TimeMin, r.TimeMax, r.ViscoMin, r.ViscoMax, r.TempMin, r.TempMax,
                           r.ViscoLogMin, r.ViscoLogMax);
  };
  return state(*this) == state(other);
}

double PlotAxes::LogY(float decade) const {
  return Height((static_cast<double>(decade) - ranges_.ViscoLogMin) * LogScale_);
}

}  // namespace quenlor::graph
