// SPDX-License-Identifier: MIT
#pragma once

#include "graph/readable_color.h"

namespace quenlor::reports {

// The graph's colours were chosen for a screen; here they meet white paper.

// What a curve is drawn with: its colour, or black where nothing would be seen of it. A curve is found by
// its shape in paler colours than letters are read in.
inline graph::Color InkOf(graph::Color color) {
  return graph::Contrast(color, graph::kWhite) < 1.15 ? graph::kBlack : color;
}

}  // namespace quenlor::reports
