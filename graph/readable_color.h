// SPDX-License-Identifier: MIT
#pragma once

#include "graph/color_table.h"

namespace quenlor::graph {

// The colours of the runs are the operator's; on some grounds they cannot be read, and need something beside
// or behind them.

// How strongly two colours stand out from each other: 1, not at all, to 21, black from white. The contrast
// ratio of the Web Content Accessibility Guidelines, from the luminances of sRGB colours.
double Contrast(Color one, Color other);

// Letters of that colour can be read on that ground: the contrast is 3 : 1 at least.
bool CanBeRead(Color letters, Color ground);

// A ground on which letters of that colour can always be read: a dark or a light shade of it.
Color PlateBehind(Color letters);

// A shade of the colour that can be read on that ground: for the outline of letters that cannot, and for
// edges.
Color EdgeOf(Color color, Color ground);

// The colour, but hardly to be seen on that ground.
Color Paled(Color color, Color ground);

}  // namespace quenlor::graph
