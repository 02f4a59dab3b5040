// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "data/axis_ranges.h"
#include "graph/plot_axes.h"
#include "graph/plot_grid.h"
#include "graph/plot_settings.h"
#include "graph/value_arrays.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// The measurement graph, drawn onto whatever surface: the graph area (Picture1) with its legend and, in it,
// the plot (Picture2) with grid and curves. The texts around the plot are not drawn here.
//
// The parts may be drawn onto pictures of their own, or by Fig onto one. A picture without a
// pixel gets nothing.
class Plot {
 public:
  using Row = ValueArrays::Table::Row;

  explicit Plot(const ValueArrays& values) : values_(values) { SetScales(); }

  void Set(const PlotSettings& settings, const data::AxisRanges& ranges);
  const PlotSettings& Settings() const { return settings_; }
  const PlotAxes& Axes() const { return axes_; }

  // Everything, on the whole surface; the layout is that of a Picture1 of so many twips. Where lines are
  // kept, curves are drawn by as few as leave the same picture.
  void Fig(platform::DrawingSurface& surface, const PlotLayout& layout) const;

  // Picture1's own part: background and legend.
  void DrawPicture1(platform::DrawingSurface& surface, const platform::PixelRectangle& area,
                    const PlotLayout& layout) const;

  // Each lays the plot's coordinates over the area first.
  void DrawBackground(platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;
  void DrawGrid(platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;
  void DrawCurves(platform::DrawingSurface& surface, const platform::PixelRectangle& area, Row first_row = 1,
                  Row last_row = std::numeric_limits<Row>::max()) const;

  // One reading with its marker and the line from the reading before, without clearing anything. Nothing in
  // the program asks for it: readings that have come since the last drawing are drawn together.
  void PlotRow(platform::DrawingSurface& surface, const platform::PixelRectangle& area, Row row) const;

 private:
  friend class KeptPlot;

  void DrawKeptCurves(platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;
  void SetScales() { axes_.SetScales(ranges_, settings_.kind, settings_.visco_axis); }
  bool EnterPlot(platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;

  const ValueArrays& values_;
  PlotSettings settings_;
  data::AxisRanges ranges_;
  PlotAxes axes_;
};

// A picture of the plot (background, grid, curves) that is kept from one drawing to the next.
//
// When nothing but appended readings has come since the last Update, only those are drawn; otherwise
// everything is. Smooth curves cannot be gone on with, so while the newest run has some, the kept picture is
// without them, and DrawNewest draws them upon a copy. Either way the picture is the one that drawing
// everything would give.
class KeptPlot {
 public:
  explicit KeptPlot(const Plot& plot) : plot_(plot) {}

  // The surface holds what the last Update left there, unless Forget was called or its size is another one.
  void Update(platform::DrawingSurface& surface, const platform::PixelRectangle& area);

  // What the picture of the last Update is without.
  bool LacksNewest() const { return shown_readings_ < plot_.values_.Size(); }
  void DrawNewest(platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;

  // The picture is lost.
  void Forget() { shown_.reset(); }

 private:
  // What a picture depends on, beside the readings that have come since.
  struct Inputs {
    PlotSettings settings;
    PlotAxes axes;
    platform::PixelRectangle area;
    double pen_scale = 1;
    std::uint64_t generation = 0;
    bool several_series = false;
    bool operator==(const Inputs&) const = default;
  };

  Inputs InputsNow(const platform::DrawingSurface& surface, const platform::PixelRectangle& area) const;
  // The readings that can be kept.
  Index Settled(const platform::PixelRectangle& area) const;

  const Plot& plot_;
  std::optional<Inputs> shown_;
  Index shown_readings_ = 0;
};

}  // namespace quenlor::graph
