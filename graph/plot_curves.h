// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <vector>

#include "graph/painted_area.h"
#include "graph/painted_rows.h"
#include "graph/plot_axes.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Draws readings as curves, in the order of the readings: a later line lies over an earlier one.
//
// PaintRow draws one reading. PaintRows leaves the same pixels behind as PaintRow for each of the readings,
// and looks at as many of them as there are pixel columns, not at all of them. Why that can be exact: points
// stand on whole pixels, so the lines among neighbouring readings of one pixel column are upright and
// together fill the column from the lowest to the highest of them; the value arrays know those two. Only the
// line into a column leans, and it is drawn as it is.
//
// Order shows where two colours meet. Readings of different columns are drawn in their order. Within a column
// two colours meet only when the viscosity and the temperature curve of a document with a single run overlap;
// then the column is cut into blocks, the newest first, until the curves of a block lie apart or newer ones
// hide it.
//
// Where readings jump from column to column, as a noisy temperature makes them, no column tells them. There
// the picture itself does, if the surface tells its pixels: lines of one curve have one colour, so their
// order does not show, and a block whose lines lie in a rectangle that has that colour already needs none.
// Where that is so but for some columns at the left and right of the rectangle, only readings that stand
// there are looked at. The outermost readings of some blocks, spread over the run, are painted first and fill
// most of what all of them would.
//
// A run with fewer readings than pixel columns may be drawn with a smooth pen. Its curves are one shape each,
// the temperature over the viscosity: a smooth line looks another way where it goes on than where it ends, so
// it cannot be drawn reading by reading. PaintRows paints the whole of such a run.
class CurvePainter {
 public:
  // The surface has the plot's viewport.
  CurvePainter(const ValueArrays& values, const PlotAxes& axes, const PlotSettings& settings,
               platform::DrawingSurface& surface);

  void PaintRow(Index index);
  void PaintRows(Index begin, Index end);

  // Whether that run of the values is drawn with a smooth pen.
  static bool IsSmooth(const ValueArrays& values, std::size_t run, const PlotSettings& settings,
                       const platform::PixelRectangle& area);

 private:
  struct Curve {
    Quantity quantity;
    platform::Rgb color;
  };
  struct Filled {  // a pixel column, from the highest to the lowest reading of each curve
    int column = 0;
    std::array<platform::Segment, 2> lines;
  };
  struct Between {  // two values, none by default
    double low = 1;
    double high = 0;
    bool Has(double value) const { return value >= low && value <= high; }
  };

  void EnterRun(std::size_t run);
  void PaintReading(Index index);
  void PaintMarkersOf(Index index);
  void PaintSmoothRun(Index end);
  void PaintColumns(Index begin, Index end);
  bool IsTangle(Index begin, Index end) const;
  void PaintTangle(Index begin, Index end);
  void PaintOutermost(Index begin, Index end);
  void PaintBlocks(Index begin, Index end, int level, Between painted);
  void PaintReadings(Index begin, Index end, Between painted);
  void Touch(PixelRows rows);
  void Look();
  bool IsPainted(const platform::PixelRectangle& box) const;
  Between PaintedWithin(const platform::PixelRectangle& box, bool markers) const;
  platform::PixelRectangle BoxOf(Index begin, Index end, const ValueColumn::Extremes& xs) const;
  bool HideTheWay(const Filled& before, const Filled& here, Index first) const;
  void PaintInColumn(const Filled& here, Index begin, Index end);
  bool TwoColors() const;
  void PaintTwoColors(Index begin, Index end);
  void PaintMarkers(const Curve& curve, Index begin, Index end);
  void PaintMarker(const Curve& curve, platform::Point centre);

  const ValueColumn& XValues() const;
  platform::Point PointOf(const Curve& curve, Index index) const;
  platform::Segment Upright(const Curve& curve, Index begin, Index end) const;
  PixelRows RowsOf(const platform::Segment& upright) const;
  int ReachBefore(bool markers) const { return markers ? reach_ : line_reach_; }
  int ReachAfter(bool markers) const { return markers ? reach_ : line_reach_ - 1; }
  bool AnyMarker(Index begin, Index end) const;
  bool Apart(PixelRows one, PixelRows other) const;

  void UseColor(platform::Rgb color);
  void Line(const platform::Segment& line);
  void Flush();

  const ValueArrays& values_;
  const PlotAxes& axes_;
  const PlotSettings& settings_;
  platform::DrawingSurface& surface_;
  const platform::Viewport viewport_;
  const double pen_pixels_;
  const int line_reach_;  // pixels that a line may cover to the left and above of its points
  const int reach_;       // that a line or marker may cover beyond them, or fewer
  PaintedRows painted_;
  PaintedArea painted_area_;
  PixelRows touched_;  // since the picture was looked at
  Index lines_since_look_ = 0;

  Index run_begin_ = 0;
  std::vector<Curve> curves_;  // of the run
  platform::Pen pen_;
  bool pen_set_ = false;
  std::vector<platform::Segment> lines_;  // to be drawn with the pen
};

}  // namespace quenlor::graph
