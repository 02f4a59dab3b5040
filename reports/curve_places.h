// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "data/axis_ranges.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "reports/map_to_position.h"
#include "reports/painted_cells.h"

namespace quenlor::reports {

enum class Quantity { kVisco, kTemp };

// Where readings stand on a plot of so many dots.
//
// Remote ones stand ten plots away: beyond that, no line into the plot would lean differently.
class CurvePlaces {
 public:
  CurvePlaces(int width, int height, const graph::ValueArrays& values, const graph::PlotSettings& settings,
              const data::AxisRanges& ranges);

  // Whether there is such a curve: nothing has a place on a range that spans nothing.
  bool Has(Quantity quantity) const;

  Dot Of(Quantity quantity, graph::Index reading) const {
    return {Column(Xs()[reading]), quantity == Quantity::kVisco ? ViscoRow(values_.Visco()[reading])
                                                                : TempRow(values_.Temp()[reading])};
  }

  // The polyline through the readings from `begin` up to, not including, `end`, as lines that leave the same
  // picture, appended to `lines` in the order of the readings. It comes from reading begin - 1 if `joined`.
  //
  // Neighbouring readings of one dot column are told by four of them: a line leads to the first, an upright
  // one covers all from the lowest to the highest, and it goes on from the last. What runs straight, but
  // for the rounding to dots, is one line.
  void LinesOf(Quantity quantity, graph::Index begin, graph::Index end, bool joined,
               std::vector<DotLine>& lines) const;

 private:
  struct Rows {
    int lowest;
    int highest;
  };

  const graph::ValueColumn& Xs() const {
    return settings_.kind == graph::GraphKind::ViscoTemp ? values_.Temp() : values_.Time();
  }
  int Column(double value) const { return Place(value, x_min_, x_max_, 0, width_); }
  int ViscoRow(double value) const;
  int TempRow(double value) const { return Place(value, ranges_.TempMin, ranges_.TempMax, height_, 0); }
  int DecadeRow(float decade) const {
    return Place(static_cast<double>(decade), ranges_.ViscoLogMin, ranges_.ViscoLogMax, height_, 0);
  }
  Rows RowsOf(Quantity quantity, graph::Index begin, graph::Index end) const;

  static int Place(double value, double min, double max, int from, int to) {
    const float farthest = 10.0F * static_cast<float>(std::max(from, to));
    const float place = std::clamp(MapToPosition(value, min, max, from, to), -farthest, farthest);
    return static_cast<int>(place < 0 ? place - 0.5F : place + 0.5F);
  }

  int width_;
  int height_;
  const graph::ValueArrays& values_;
  const graph::PlotSettings& settings_;
  const data::AxisRanges& ranges_;
  double x_min_;
  double x_max_;
};

}  // namespace quenlor::reports
