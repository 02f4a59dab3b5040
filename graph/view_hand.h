// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "graph/live_graph.h"
#include "graph/view_moves.h"

namespace quenlor::graph {

// A hand on the plot: zooms, shoves and walks back, from one gesture to the next.
//
// Each gesture leaves one view that Earlier comes back to, however many steps it had: a gesture begins with
// Begin, and so does a turn of the wheel after a rest.
class ViewHand {
 public:
  explicit ViewHand(LiveGraph& graph) : graph_(graph) {}

  void Begin();

  // So many notches of a wheel nearer at that place, or parts of them; negative ones lead away. On a
  // logarithmic axis each whole notch is a decade.
  void Zoom(PlotPlace at, Along along, double notches);
  // What two fingers have spread to so many times its size.
  void Spread(PlotPlace at, double times);
  // The plot as it stood at Begin, shoved so far to the right and up. A direction counts from when the hand
  // has once gone farther than `smallest` in it: no hand is quite steady.
  void Shove(PlotPlace by, PlotPlace smallest);
  // The rectangle fills the plot; a direction in which it is narrower than `smallest` stays.
  void ZoomTo(PlotPlace one, PlotPlace other, PlotPlace smallest);

 private:
  void Show(const data::AxisRanges& ranges, const std::vector<Axis>& moved);

  LiveGraph& graph_;
  data::AxisRanges begun_;
  std::vector<Axis> moved_;  // since then
  bool across_ = false;      // whether a shove counts in that direction
  bool up_ = false;
  double decade_rest_ = 0;  // notches that make no decade yet
};

}  // namespace quenlor::graph
