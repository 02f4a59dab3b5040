// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QSize>
#include <functional>
#include <string_view>

#include "platform/printer.h"

namespace quenlor::platform::qt {

// Lays a page of that many dots over the painter's device, `size` of whose units hold the whole page, and has
// it drawn.
void PaintPage(QPainter& painter, QSizeF size, const PixelRectangle& page,
               const std::function<void(DrawingSurface&)>& draw);

// The width of a line of text in letters of a height, both in dots: as QtDrawingSurface draws it.
double MeasureText(std::string_view text, double height);

}  // namespace quenlor::platform::qt
