// SPDX-License-Identifier: MIT
#pragma once

#include "graph/captions.h"
#include "graph/label_layout.h"
#include "graph/plot.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Draws the whole graph as the window shows it, plot and captions, on the whole surface: a picture of its own
// for a file. The captions stand where those of a window with a graph area of that size would,
// in letters of `largest_text` twips at most.
void DrawGraphPicture(platform::DrawingSurface& surface, const Plot& plot, const Captions& captions,
                      double largest_text = kLargestText);

}  // namespace quenlor::graph
