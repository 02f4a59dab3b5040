// SPDX-License-Identifier: MIT
#include "graph/missing_ticks.h"

#include <algorithm>
#include <cmath>

namespace quenlor::graph {

void MissingTicks::Follow(const MissingReadings& missing, const ValueArrays& values, const PlotPixels& pixels,
                          int only) {
  const auto& holes = missing.Holes();
  const PlotAxes& axes = pixels.Axes();
  const Inputs inputs{
      axes, pixels.Width(), only, values.Generation(), holes.size(), holes.empty() ? 0 : holes.back().after};
  if (followed_ == inputs) return;
  followed_ = inputs;
  places_.clear();
  if (axes.Kind() == GraphKind::ViscoTemp || axes.XScale() == 0) return;
  for (const MissingReadings::Hole& hole : holes) {
    if (only != 0 && values.Runs()[values.RunOf(hole.after)].number != only) continue;
    const double before = values.Time()[hole.after - 1];
    const double way = values.Time()[hole.after] - before;
    const double time = hole.Clock() ? before : before + way / static_cast<double>(hole.missing + 1);
    const double x = axes.X(time);
    if (x >= 0 && x <= axes.XExtent()) places_.push_back(std::floor(pixels.XOf(time)) + 0.5);
  }
  std::ranges::sort(places_);
  places_.erase(std::unique(places_.begin(), places_.end()), places_.end());
}

}  // namespace quenlor::graph
