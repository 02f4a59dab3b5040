// SPDX-License-Identifier: MIT
#include "graph/view_hand.h"

#include <algorithm>
#include <cmath>

namespace quenlor::graph {
namespace {

constexpr double kNotch = 0.8;       // of what is shown stays in view
constexpr double kMostNotches = 20;  // at once; a wheel that says more has lost its senses

}  // namespace

void ViewHand::Begin() {
  begun_ = graph_.Ranges();
  moved_.clear();
  across_ = up_ = false;
  decade_rest_ = 0;
}

void ViewHand::Zoom(PlotPlace at, Along along, double notches) {
  notches = std::clamp(notches, -kMostNotches, kMostNotches);
  std::vector<Axis> axes = AxesAt(at, along, graph_.Kind());
  data::AxisRanges ranges = graph_.Ranges();
  std::vector<Axis> moved;
  if (graph_.View().visco_axis == ViscoAxis::Log && std::erase(axes, Axis::Visco) > 0) {
    if (decade_rest_ * notches < 0) decade_rest_ = 0;
    decade_rest_ += notches;
    const double whole = std::trunc(decade_rest_ + std::copysign(1e-9, decade_rest_));
    decade_rest_ -= whole;
    if (whole != 0) ranges = WithDecadesMore(-static_cast<int>(whole), at.up, ranges, graph_.View(), moved);
  }
  const AxisParts parts = ZoomedAt(at, axes, std::pow(kNotch, notches), graph_.Kind());
  ranges = Showing(parts, ranges, graph_.View(), Decades::Nearest, moved);
  Show(ranges, moved);
}

void ViewHand::Spread(PlotPlace at, double times) {
  if (times > 0 && std::isfinite(times)) Zoom(at, Along::Both, -std::log(times) / std::log(kNotch));
}

void ViewHand::Shove(PlotPlace by, PlotPlace smallest) {
  across_ |= std::fabs(by.across) > smallest.across;
  up_ |= std::fabs(by.up) > smallest.up;
  const PlotPlace counted{across_ ? by.across : 0, up_ ? by.up : 0};
  std::vector<Axis> moved = moved_;  // or they would stay where they are when the hand comes back
  const data::AxisRanges ranges =
      Showing(Shoved(counted, graph_.Kind()), begun_, graph_.View(), Decades::Nearest, moved);
  Show(ranges, moved);
}

void ViewHand::ZoomTo(PlotPlace one, PlotPlace other, PlotPlace smallest) {
  Begin();
  std::vector<Axis> moved;
  const AxisParts parts = Between(one, other, smallest, graph_.Kind());
  const data::AxisRanges ranges = Showing(parts, begun_, graph_.View(), Decades::Around, moved);
  Show(ranges, moved);
}

void ViewHand::Show(const data::AxisRanges& ranges, const std::vector<Axis>& moved) {
  if (moved.empty()) return;
  if (moved_.empty()) graph_.LeaveView();
  moved_ = moved;
  graph_.EnterRanges(ranges, moved);
}

}  // namespace quenlor::graph
