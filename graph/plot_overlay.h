// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPalette>
#include <QSizeF>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "graph/color_settings.h"
#include "graph/live_graph.h"
#include "graph/missing_ticks.h"
#include "graph/plot.h"
#include "graph/reading_told.h"
#include "graph/readout.h"
#include "graph/selected_marks.h"

namespace quenlor::graph {

// What lies over the kept plot and is painted anew with every paint: the cross-hair and the plate of the
// reading at the pointer, marked readings, the two that are compared, and ticks under the time axis where
// readings are missing or the clock was set. Nothing of it is part of the graph.
class PlotOverlay {
 public:
  PlotOverlay(const Plot& plot, const data::Document& document, const LiveGraph& graph,
              const ColorSettings& colors);

  void Point(std::optional<QPointF> pointer);  // the pointer is there, or nowhere
  std::optional<Index> Near() const;           // the reading that is told
  // The reading at the pointer becomes A, or B after A; after both the next one is A again.
  void Compare();
  void Forget();                                                    // A and B
  void Mark(Index first, Index last) { marks_.Mark(first, last); }  // none when last is before first

  // The plot has been drawn, with that size, with the runs of that number alone; 0: with all.
  void Follow(QSizeF size, int alone);

  void Paint(QPainter& painter, const QPalette& palette, double ratio);
  // What stands on the plates, line by line.
  std::vector<std::string> Told() const;
  std::vector<std::string> Compared() const;

 private:
  // False while the readings are others than those that were drawn last.
  bool Drawn() const { return generation_ == graph_.Values().Generation(); }
  PlotPixels Pixels() const { return {plot_.Axes(), size_.width(), size_.height()}; }
  QPointF PlaceOf(Index index, Quantity quantity) const;
  QColor ColorOf(Index index, Quantity quantity) const;
  void PaintCompared(QPainter& painter, const QPalette& palette) const;
  void PaintCross(QPainter& painter) const;
  void PaintNear(QPainter& painter, const QPalette& palette) const;
  void PaintTicks(QPainter& painter) const;
  void FindNear();

  const Plot& plot_;
  const data::Document& document_;
  const LiveGraph& graph_;
  const ColorSettings& colors_;
  SelectedMarks marks_;
  MissingTicks ticks_;
  QSizeF size_;
  int alone_ = 0;
  std::uint64_t generation_ = 0;
  std::optional<QPointF> pointer_;
  std::optional<NearReading> near_;
  std::optional<Index> a_;
  std::optional<Index> b_;
};

}  // namespace quenlor::graph
