// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLine>
#include <QPainter>
#include <QPoint>
#include <QRect>
#include <QRectF>
#include <vector>

#include "graph/value_arrays.h"
#include "graph/value_column.h"

namespace quenlor::bench {

// Curves as a program draws them that does without our summaries: the same numbers on the same pixels with
// the same pen, but no more.
class PlainCurves {
 public:
  // Numbers between the ends of `range` fill the area; y runs upwards.
  PlainCurves(QRect area, QRectF range, int line_width)
      : area_(area), range_(range), line_width_(line_width) {}

  void AddRun(QColor color, std::vector<double> xs, std::vector<double> ys);

  // One call for each line between two readings.
  void DrawEveryLine(QPainter& painter) const;

  // Looks at all readings, and draws of each pixel column the way from its first reading over the smallest
  // and the largest to its last.
  void DrawColumns(QPainter& painter) const;

  // The same from blocks of 256 readings that were summed up beforehand, in one call for each run.
  void DrawSummaries(QPainter& painter) const;

 private:
  static constexpr std::size_t kBlock = 256;

  // Of some neighbouring readings.
  struct Stretch {
    double x = 0;  // of the first one
    double first = 0;
    double min = 0;
    double max = 0;
    double last = 0;
  };
  struct Run {
    QColor color;
    std::vector<double> xs;
    std::vector<double> ys;
    std::vector<Stretch> blocks;
  };

  int Column(double x) const;
  int RowOf(double y) const;
  void Enter(QPainter& painter, const Run& run) const;
  void AddLines(const Stretch& column, const Stretch* before, std::vector<QLine>& lines) const;

  QRect area_;
  QRectF range_;
  int line_width_;
  std::vector<Run> runs_;
};

}  // namespace quenlor::bench
