// SPDX-License-Identifier: MIT
#pragma once

#include "data/axis_ranges.h"
#include "graph/axis_labels.h"
#include "graph/graph_math.h"
#include "graph/value_column.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Which curves are drawn, in the order of the "Selection" frame (Option1).
enum class GraphKind { ViscoTime, ViscoTempTime, ViscoTemp };

enum class Quantity { Visco, Temp };  // of a curve

// Where a value stands on the plot (Picture2).
//
// Plot units: x from 0 to 6000 over time, to 10000 over temperature; y from 0 at the top to 10000 at the
// bottom. A range that spans nothing leaves its scale as it was. Every value has a place, the remotest ones
// at C_XY's limits.
class PlotAxes {
 public:
  static constexpr double kHeight = 10000;

  void SetScales(const data::AxisRanges& ranges, GraphKind kind, ViscoAxis visco_axis);

  double XExtent() const { return kind_ == GraphKind::ViscoTemp ? 10000 : 6000; }
  platform::Units PlotUnits() const;  // the extents and a margin of 1 % around them

  bool ShowsVisco() const;
  bool ShowsTemp() const;  // as a curve of its own
  GraphKind Kind() const { return kind_; }
  ViscoAxis Visco() const { return visco_axis_; }
  int HighestDecade() const { return ranges_.ViscoLogMax; }  // at the upper end of the logarithmic axis
  int Decades() const { return ranges_.ViscoLogMax - ranges_.ViscoLogMin; }

  // Of a time or a temperature, as the kind has it. Asked for most often, so the common case is
  // told right here.
  double X(double value) const {
    const double position = (value - XOrigin_) * XScale_;
    return position > 0 && position < kHeight ? static_cast<float>(position) : FarX(value);
  }
  // The value that stands about there, X's way back. Halves, as the range may be wider than any number.
  double XValue(double position) const { return 2 * (XOrigin_ / 2 + position / 2 / XScale_); }
  double ViscoY(double value) const;
  double TempY(double value) const;

  // The heights between which a stretch of readings lies: two of them, neither need be the higher one.
  struct Span {
    double from;
    double to;
  };
  Span ViscoSpan(const ValueColumn::Extremes& extremes) const;
  Span TempSpan(const ValueColumn::Extremes& extremes) const;

  double XScale() const { return XScale_; }  // plot units per second or degree
  // Nothing in the program asks for the other three, which ViscoY and TempY hide.
  double ViscoScale() const { return ViscoScale_; }
  double TempScale() const { return TempScale_; }
  double LogScale() const { return LogScale_; }  // plot units per decade

  bool operator==(const PlotAxes& other) const;

 private:
  double FarX(double value) const;
  double LogY(float decade) const;

  data::AxisRanges ranges_;
  GraphKind kind_ = GraphKind::ViscoTime;
  ViscoAxis visco_axis_ = ViscoAxis::Linear;
  double XOrigin_ = 0;
  double XScale_ = 0;
  double ViscoScale_ = 0;
  double TempScale_ = 0;
  double LogScale_ = 0;
};

}  // namespace quenlor::graph
