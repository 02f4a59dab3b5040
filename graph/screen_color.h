// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include "graph/color_table.h"

namespace quenlor::graph {

inline QColor ToQColor(Color color) { return {color.Red(), color.Green(), color.Blue()}; }

inline Color ToColor(const QColor& color) {
  const auto level = [](int of) { return static_cast<std::uint32_t>(of); };
  return {level(color.red()) | level(color.green()) << 8 | level(color.blue()) << 16};
}

}  // namespace quenlor::graph
