// SPDX-License-Identifier: MIT
#include "graph/shown_labels.h"

namespace quenlor::graph {

int LabelStride(double needed, double division, int divisions) {
  for (const int stride : {1, 2, 3, 5}) {
    if (divisions % stride == 0 && needed <= division * stride) return stride;
  }
  return divisions;
}

std::array<bool, 10> LabelsApart(const std::array<TickLabel, 10>& labels, double least_distance) {
  std::array<bool, 10> shown{};
  double last = 0;
  for (std::size_t i = 1; i < labels.size(); ++i) {
    const auto& [text, place] = labels[i];
    shown[i] = !text.empty() && place - last >= least_distance && 1 - place >= least_distance;
    if (shown[i]) last = place;
  }
  return shown;
}

}  // namespace quenlor::graph
