// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "graph/plot_axes.h"
#include "graph/value_arrays.h"

namespace quenlor::graph {

// Where readings stand in a plot of so many pixels, and which of them is nearest to a pointer.
class PlotPixels {
 public:
  PlotPixels(const PlotAxes& axes, double width, double height);

  struct Point {
    double x = 0;
    double y = 0;
  };
  Point Of(const ValueArrays& values, Index index, Quantity quantity) const;
  double XOf(double x_value) const { return Across(axes_.X(x_value)); }
  double Width() const { return axes_.PlotUnits().width * across_; }
  double Bottom() const { return Down(PlotAxes::kHeight); }  // of the axes
  const PlotAxes& Axes() const { return axes_; }

 private:
  friend class NearestSearch;
  double Across(double x) const { return (x - left_) * across_; }
  double Down(double y) const { return (y - top_) * down_; }

  const PlotAxes& axes_;
  double left_;
  double top_;
  double across_;  // pixels in a plot unit
  double down_;
};

inline constexpr double kRing = 5;  // pixels; radius of the rings around readings

struct NearReading {
  Index index = 0;
  Quantity quantity = Quantity::Visco;  // which of its curves is the nearer one
  PlotPixels::Point at;
};

// The reading in view, of runs numbered `only` (0: of all), whose point is nearest to that pixel, or farther
// by less than half a pixel; nothing where none is in view. Blocks of readings are told by their summaries,
// so the work hardly grows with their number; it never looks at more than kMostLooks blocks and readings, and
// then answers the nearest so far.
inline constexpr int kMostLooks = 1 << 16;
std::optional<NearReading> NearestReading(const ValueArrays& values, const PlotPixels& pixels,
                                          PlotPixels::Point pointer, int only = 0);

}  // namespace quenlor::graph
