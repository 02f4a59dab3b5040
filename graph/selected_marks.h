// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <cstdint>
#include <optional>

#include "graph/plot_axes.h"
#include "graph/value_arrays.h"

namespace quenlor::graph {

// The marks of the readings that are selected in the table: a ring around each of a few, a broad pale stroke
// along the curves of many. The stroke is kept until something else is to be marked, or elsewhere.
class SelectedMarks {
 public:
  explicit SelectedMarks(const ValueArrays& values) : values_(values) {}

  void Mark(Index first, Index last);  // from one to the other; none when last is before first

  // Over a plot of that size, in that colour, on a device with so many pixels to one of the plot's.
  void Paint(QPainter& painter, const PlotAxes& axes, QSizeF size, double ratio, const QColor& ink);

 private:
  struct Inputs {
    PlotAxes axes;
    QSizeF size;
    double ratio = 1;
    std::uint64_t generation = 0;
    Index end = 0;
    bool operator==(const Inputs&) const = default;
  };

  void PaintRings(QPainter& painter, const PlotAxes& axes, QSizeF size, Index end) const;
  void DrawStroke(const Inputs& inputs, const QColor& ink);

  const ValueArrays& values_;
  Index first_ = 0;
  Index last_ = -1;
  std::optional<Inputs> drawn_;
  QImage stroke_;
};

}  // namespace quenlor::graph
