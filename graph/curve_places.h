// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "graph/map_to_position.h"
#include "graph/painted_cells.h"
#include "graph/plot_axes.h"
#include "graph/value_arrays.h"

namespace quenlor::graph {

// Where readings stand on a plot of so many dots across and down, over which the given plot units are laid.
class CurvePlaces {
 public:
  CurvePlaces(const ValueArrays& values, const PlotAxes& axes, const platform::Units& units, double width,
              double height)
      : values_(values), axes_(axes), units_(units), width_(width), height_(height) {}

  // Whether there is such a curve: nothing has a place on a range that spans nothing.
  bool Has(Quantity quantity) const {
    if (axes_.XScale() == 0) return false;
    return quantity == Quantity::Visco ? axes_.ShowsVisco() : axes_.ShowsTemp();
  }

  Dot Of(Quantity quantity, Index reading) const {
    return {Column(Xs()[reading]), Row(quantity == Quantity::Visco ? axes_.ViscoY(values_.Visco()[reading])
                                                                   : axes_.TempY(values_.Temp()[reading]))};
  }

  // The polyline through the readings from `begin` up to, not including, `end`, as lines that leave the same
  // picture, appended to `lines` in the order of the readings. It comes from reading begin - 1 if `joined`.
  //
  // Neighbouring readings of one dot column are told by four of them: a line leads to the first, an upright
  // one covers all from the lowest to the highest, and it goes on from the last. What runs straight, but
  // for the rounding to dots, is one line.
  void LinesOf(Quantity quantity, Index begin, Index end, bool joined, std::vector<DotLine>& lines) const;

  // The columns in which these readings stand, the first one and the last one. All that lies out of sight on
  // one side is one column.
  std::pair<int, int> Columns(Index begin, Index end) const;
  // From the highest to the lowest of these readings in that column.
  DotLine Upright(Quantity quantity, int column, Index begin, Index end) const;

 private:
  const ValueColumn& Xs() const {
    return axes_.Kind() == GraphKind::ViscoTemp ? values_.Temp() : values_.Time();
  }
  int Column(double value) const {
    return Whole(MapToPosition(axes_.X(value), units_.left, units_.left + units_.width, 0, width_));
  }
  int SeenColumn(double value) const { return std::clamp(Column(value), -1, static_cast<int>(width_) + 1); }
  int Row(double y) const {
    return Whole(MapToPosition(y, units_.top, units_.top + units_.height, 0, height_));
  }
  static int Whole(float place) { return static_cast<int>(place < 0 ? place - 0.5F : place + 0.5F); }

  const ValueArrays& values_;
  const PlotAxes& axes_;
  const platform::Units units_;
  const double width_;
  const double height_;
};

}  // namespace quenlor::graph
