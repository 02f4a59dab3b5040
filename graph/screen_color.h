// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include "graph/color_table.h"

namespace quenlor::graph {

inline QColor ToQColor(Color color) { return {color.Red(), color.Green(), color.Blue()}; }

}  // namespace quenlor::graph
