// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "graph/painted_cells.h"
#include "graph/plot_settings.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Something of a curve that will be drawn. A marker's place is the line's first dot.
struct CurvePiece {
  enum class Kind { kLine, kCircle, kCross };
  Kind kind;
  platform::Rgb color;
  DotLine line;
};

// Chooses what is drawn on a plot of so many dots, from what lies on top down.
//
// A line that runs only where lines above it run would be hidden by them, whatever their colours, but for a
// fringe no wider than a cell, which is a fraction of the pen's width. It is left out, and so is a marker
// whose outline runs there. Each piece that stays paints a cell that none above it has painted, so their
// number is bounded by the plot's size, however many readings and runs lie one over the other.
//
// Lines end at the plot's edges; a marker is whole or, where its reading lies outside, not there.
class CurvePieces {
 public:
  // The sizes of markers and cells are in dots.
  CurvePieces(int width, int height, const MarkerSizes& markers, int cell);

  int Reach() const { return reach_; }  // of a marker beyond the plot's edges

  bool Cover(const DotLine& line) const;  // whether nothing of it would be seen
  void AddLine(const DotLine& line, platform::Rgb color);
  // Nothing where no more than `least_part` of the outline would be seen.
  void AddMarker(Quantity quantity, Dot centre, platform::Rgb color, double least_part);

  std::vector<CurvePiece> Take();  // from below upwards

 private:
  PaintedCells Cells(int cell) const;
  Dot Moved(Dot dot) const { return {dot.x + reach_, dot.y + reach_}; }

  int width_;
  int height_;
  int reach_;
  PaintedCells painted_;
  PaintedCells circles_;  // their middles
  PaintedCells crosses_;
  std::vector<DotLine> circle_;  // outlines around 0, 0
  std::vector<DotLine> cross_;
  std::vector<CurvePiece> pieces_;
};

}  // namespace quenlor::graph
