// SPDX-License-Identifier: MIT
#pragma once

#include "graph/color_table.h"
#include "graph/label_layout.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Captions as they are drawn on whatever surface, whose units are twips.

// The pen for letters of that colour: with a thin outline where they could not be read on the ground else.
platform::Pen LetterPen(Color color, Color ground);

// A bar in the very colour, with a hairline round it.
void DrawBar(platform::DrawingSurface& surface, const Box& box, Color color, Color ground);

// What is shown of a caption, with its bar if it has one.
void DrawCaption(platform::DrawingSurface& surface, const PlacedLabel& placed, Color color, Color ground);

}  // namespace quenlor::graph
